#include "frame/paths.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

void touch(const QString& path)
{
    QFile file(WithForwardSlashes(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write("x");
}

} // namespace

TEST(Paths, SplitAtEitherSeparator)
{
    EXPECT_EQ(FolderOf("C:\\games\\nes/Contra.nes"), "C:\\games\\nes");
    EXPECT_EQ(FolderOf("games/nes\\Contra.nes"), "games/nes");
    EXPECT_EQ(FolderOf("Contra.nes"), "");
    EXPECT_EQ(FileNameOf("a\\b/Contra.v2.nes", true), "Contra.v2.nes");
    EXPECT_EQ(FileNameOf("a/b\\Contra.v2.nes", false), "Contra.v2");
    EXPECT_EQ(FileNameOf("a.dir\\noext", false), "noext");
    EXPECT_EQ(ExtensionOf("a\\b.NES", true), ".NES");
    EXPECT_EQ(ExtensionOf("a/b.tar.gz", false), "gz");
    EXPECT_EQ(ExtensionOf("a.dir/noext", false), "");
    const QString unicode = QString::fromUtf8("游戏\\魂斗罗 (中).nes");
    EXPECT_EQ(FileNameOf(unicode, false), QString::fromUtf8("魂斗罗 (中)"));
    EXPECT_EQ(FolderOf(unicode), QString::fromUtf8("游戏"));
}

TEST(Paths, RelativeAndAbsolute)
{
    EXPECT_TRUE(IsRelative("games\\a.nes"));
    EXPECT_TRUE(IsRelative(".\\a.nes"));
    EXPECT_FALSE(IsRelative("C:\\games\\a.nes"));
    EXPECT_FALSE(IsRelative("d:a.nes"));
    EXPECT_FALSE(IsRelative("\\\\server\\share"));
    EXPECT_FALSE(IsRelative("/home/a.nes"));

    EXPECT_EQ(AbsolutePath(""), ExeFolder());
    EXPECT_EQ(AbsolutePath(".\\games\\a.nes"), AbsolutePath("games\\a.nes"));
    EXPECT_EQ(AbsolutePath("./games/a.nes"), ExeFolder() + "/games/a.nes");
    EXPECT_EQ(AbsolutePath("C:\\games\\a.nes"), "C:/games/a.nes");
}

TEST(Paths, RelativePathBetweenFolders)
{
    EXPECT_EQ(RelativePath("/opt/zunbrix", "/opt/zunbrix/games/a.nes"), "./games/a.nes");
    EXPECT_EQ(RelativePath("/opt/zunbrix/", "/opt/games\\b.nes"), "../games/b.nes");
    EXPECT_EQ(RelativePath("C:\\Zunbrix", "C:\\Roms\\x\\c.nes"), "../Roms/x/c.nes");
    EXPECT_EQ(RelativePath("C:\\Zunbrix", "D:\\c.nes"), std::nullopt);
    EXPECT_EQ(RelativePath("/opt", "C:\\c.nes"), std::nullopt);
    // Joined back to the folder it was made from, the relative form names the same file.
    const QString target = ExeFolder() + "/../x/y.nes";
    EXPECT_EQ(QDir::cleanPath(AbsolutePath(*RelativePath(ExeFolder(), target))), QDir::cleanPath(target));
}

TEST(Paths, TheProgramItself)
{
    EXPECT_EQ(ExeFileName(false), "frame_tests");
    EXPECT_EQ(FileNameOf(ExeFolder(), true), "tests");
    EXPECT_TRUE(FileExists(ExePath()));
    EXPECT_TRUE(FolderExists(ExeFolder()));
    EXPECT_FALSE(KnownFolder(KnownFolderId::LocalAppData).isEmpty());
}

TEST(Paths, CreateAndDeleteFoldersWithUnicodeNamesAndBackslashes)
{
    QTemporaryDir temp;
    const QString top = temp.path() + QString::fromUtf8("\\菜单");
    const QString deep = top + QString::fromUtf8("\\build/数据\\x");
    EXPECT_TRUE(CreateFolders(deep));
    EXPECT_TRUE(CreateFolders(deep)); // existing folders count as made
    EXPECT_TRUE(QFileInfo(WithForwardSlashes(deep)).isDir());
    EXPECT_FALSE(CreateFolders(""));

    touch(deep + "\\a.bin");
    touch(top + "/b.bin");
    EXPECT_TRUE(FileExists(deep + "\\a.bin"));
    EXPECT_FALSE(FolderExists(deep + "\\a.bin"));
    EXPECT_FALSE(FileExists(deep));
    EXPECT_FALSE(CreateFolders(deep + "\\a.bin\\under a file"));

    EXPECT_TRUE(DeleteFolder(top));
    EXPECT_FALSE(FolderExists(top));
    EXPECT_FALSE(DeleteFolder(top));
}

TEST(Paths, DeleteFileQuietCountsAMissingFileAsDeleted)
{
    QTemporaryDir temp;
    const QString file = temp.path() + "\\rom.nes";
    touch(file);
    EXPECT_TRUE(DeleteFileQuiet(file));
    EXPECT_FALSE(FileExists(file));
    EXPECT_TRUE(DeleteFileQuiet(file));
    EXPECT_FALSE(DeleteFileQuiet(temp.path()));
    EXPECT_TRUE(FolderExists(temp.path()));
}
