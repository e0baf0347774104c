#include "menu/menu_source_tree.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace zunbrix {
namespace {

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST(MenuSourceTree, ExtractsEveryFileByteForByte)
{
    QTemporaryDir temp;
    const QString work = temp.path() + "/work/4242";
    ASSERT_TRUE(ExtractMenuSources(work).ok);

    QStringList paths;
    for (const MenuSourceFile& row : MenuSourceFiles()) {
        const QString path = work + '/' + row.relativePath;
        const QByteArray bytes = readAll(path);
        EXPECT_EQ(bytes, QByteArray(reinterpret_cast<const char*>(row.bytes.data()), row.bytes.size())) << row.relativePath;
        EXPECT_EQ(QFileInfo(path).isExecutable(), row.executable) << row.relativePath;
        paths << row.relativePath;
    }
    EXPECT_EQ(paths, (QStringList{QString(kMenuAssembler), "menu/menu.asm", "menu/coolboy.asm", "menu/coolgirl.asm",
                                  "menu/coolboy_final_data.asm", "menu/coolgirl_final_data.asm",
                                  "menu/menu_data/chr_data.bin"}));
    EXPECT_TRUE(QFileInfo(work + '/' + kMenuBuildFolder).isDir());
    EXPECT_EQ(readAll(work + "/menu/menu_data/chr_data.bin").size(), 8192);
}

TEST(MenuSourceTree, SourcesHaveCrLfLinesAndStartWithTheGeneratedConfiguration)
{
    for (const MenuSourceFile& row : MenuSourceFiles()) {
        const QByteArray path(row.relativePath);
        if (!path.endsWith(".asm")) {
            continue;
        }
        const QByteArray text(reinterpret_cast<const char*>(row.bytes.data()), row.bytes.size());
        EXPECT_EQ(text.count('\n'), text.count("\r\n")) << row.relativePath;
        if (path == "menu/menu.asm") {
            const QByteArray firstStatement = text.mid(text.indexOf("\n    ") + 1).split('\r').front().trimmed();
            EXPECT_EQ(firstStatement, "INCLUDE \"build/game_config.asm\"");
        }
    }
}

TEST(MenuSourceTree, ExtractionAgainTruncatesOlderFiles)
{
    QTemporaryDir temp;
    QDir().mkpath(temp.path() + "/menu");
    QFile old(temp.path() + "/menu/menu.asm");
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    old.write(QByteArray(4 << 20, ';'));
    old.close();
    ASSERT_TRUE(ExtractMenuSources(temp.path()).ok);
    EXPECT_LT(QFileInfo(temp.path() + "/menu/menu.asm").size(), 1 << 20);
}

TEST(MenuSourceTree, FailureNamesWhatCouldNotBeMadeAndWhyAndRemovesTheWholeWorkFolder)
{
    QTemporaryDir temp;
    // A folder where the main source should go: the tools are written, then the walk fails.
    const QString work = temp.path() + "/work";
    ASSERT_TRUE(QDir().mkpath(work + "/menu/menu.asm"));
    ExtractResult result = ExtractMenuSources(work);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.failedPath, work + "/menu/menu.asm");
    EXPECT_FALSE(result.reason.isEmpty());
    EXPECT_FALSE(QFileInfo::exists(work));

    // A work folder below a plain file cannot be made at all.
    QFile blocker(temp.path() + "/file");
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();
    result = ExtractMenuSources(temp.path() + "/file/work");
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.failedPath, temp.path() + "/file/work");
#ifdef Q_OS_UNIX
    EXPECT_EQ(result.reason, "Not a directory");
#endif
    EXPECT_TRUE(QFileInfo(temp.path() + "/file").isFile());
}

TEST(MenuSourceTree, RemoveWorkFolder)
{
    EXPECT_TRUE(RemoveWorkFolder(QString()));

    QTemporaryDir temp;
    const QString work = temp.path() + "/work";
    ASSERT_TRUE(ExtractMenuSources(work).ok);
    EXPECT_TRUE(RemoveWorkFolder(work));
    EXPECT_FALSE(QFileInfo::exists(work));
    EXPECT_TRUE(QFileInfo(temp.path()).isDir());
}

} // namespace
} // namespace zunbrix
