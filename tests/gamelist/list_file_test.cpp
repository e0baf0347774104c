#include "multicart/synthetic_rom.h"
#include "frame/paths.h"
#include "frame/registry_store.h"
#include "gamelist/history.h"
#include "gamelist/list_file.h"
#include "support/private_settings.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using zunbrix::testing::SyntheticRom;
using zunbrix::testing::writeFile;
using zunbrix::testing::writeRom;

namespace {

GameEntry entryFor(const QString& path, const QString& name, bool checked, const QString& remark)
{
    GameEntry entry(path);
    entry.name = name;
    entry.checked = checked;
    entry.remark = remark;
    return entry;
}

QByteArray listText(const QStringList& lines)
{
    return lines.join(QStringLiteral("\r\n")).toUtf8();
}

} // namespace

TEST(ListFile, SavesEveryEntryAndLoadsItBackBehindTheList)
{
    QTemporaryDir folder;
    const QString rom = writeRom(folder.filePath("Über Game.nes"), SyntheticRom{.mapper = 0, .prgBanks = 1});
    const std::vector<GameEntry> saved = {
        entryFor(rom, QStringLiteral("Über Game"), true, QStringLiteral("a = b")),
        entryFor(folder.filePath("gone.nes"), QStringLiteral("Gone"), false, {}),
    };

    const std::optional<QString> path = SaveListFile(folder.filePath("games"), saved);
    ASSERT_EQ(path, folder.filePath("games.qvl"));
    QFile file(*path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    EXPECT_TRUE(bytes.startsWith("\xEF\xBB\xBF[history]"));
    EXPECT_FALSE(bytes.contains("list_view"));

    IniFile ini(*path, true);
    ASSERT_TRUE(ini.Load());
    std::vector<GameEntry> list(1);
    const ListLoadResult result = LoadListFile(ini, list);
    EXPECT_EQ(result.added, 2);
    EXPECT_FALSE(result.exceedsCapacity);
    ASSERT_EQ(list.size(), 3u);
    EXPECT_EQ(list[1].path, rom);
    EXPECT_EQ(list[1].name, QStringLiteral("Über Game"));
    EXPECT_EQ(list[1].remark, QStringLiteral("a = b"));
    EXPECT_TRUE(list[1].checked);
    EXPECT_TRUE(list[1].coolboyFit);
    // A missing file stays in the list under the name the list gave it.
    EXPECT_EQ(list[2].name, QStringLiteral("Gone"));
    EXPECT_FALSE(list[2].checked);
    EXPECT_FALSE(list[2].valid());
}

TEST(ListFile, ExtensionIsAddedOnlyWhenItIsNotQvl)
{
    EXPECT_EQ(ListFilePath(QStringLiteral("/x/games")), QStringLiteral("/x/games.qvl"));
    EXPECT_EQ(ListFilePath(QStringLiteral("/x/games.QVL")), QStringLiteral("/x/games.QVL"));
    EXPECT_EQ(ListFilePath(QStringLiteral("/x/games.txt")), QStringLiteral("/x/games.txt.qvl"));
}

// A list written on Windows names its games with backslashes and a drive; the relative form, tried first,
// still finds them next to the program.
TEST(ListFile, WindowsListFindsGamesByTheirRelativePath)
{
    QTemporaryDir folder;
    const QString rom = writeRom(folder.filePath("Tank.nes"), SyntheticRom{.mapper = 4, .prgBanks = 8});
    QString relative = RelativePath(ExeFolder(), rom).value();
    relative.replace(QLatin1Char('/'), QLatin1Char('\\'));
    const QString listPath = writeFile(folder.filePath("win.qvl"),
                                       "\xEF\xBB\xBF" + listText({"[history]", "00000_check=1", "00000_name=Tank",
                                                                  "00000_path=C:\\Games\\Tank.nes",
                                                                  "00000_path_relative=" + relative, "count=1"}));
    IniFile ini(listPath, true);
    ASSERT_TRUE(ini.Load());
    std::vector<GameEntry> list;
    LoadListFile(ini, list);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].path, rom);
    EXPECT_TRUE(list[0].valid());
    EXPECT_EQ(list[0].prgBanks(), 8u);
}

TEST(ListFile, StopsAtTheListCapacityAndSaysSo)
{
    IniFile ini(QString(), true);
    ini.SetInt(QStringLiteral("history"), QStringLiteral("count"), 5);
    std::vector<GameEntry> list(kListCapacity - 2);
    const ListLoadResult result = LoadListFile(ini, list);
    EXPECT_TRUE(result.exceedsCapacity);
    EXPECT_EQ(result.added, 2);
    EXPECT_EQ(list.size(), std::size_t(kListCapacity));
}

TEST(History, KeepsListAndColumnWidthsInTheSettingsStore)
{
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    std::vector<GameEntry> list;
    EXPECT_FALSE(LoadHistory(list).found);

    const QString rom = writeRom(folder.filePath("a.nes"), SyntheticRom{});
    ColumnWidths widths;
    widths.fill(40);
    widths[11] = 300;
    ASSERT_TRUE(SaveHistory({entryFor(rom, QStringLiteral("Alpha"), true, QStringLiteral("note"))}, widths));
    QByteArray data;
    ASSERT_TRUE(RegistryStore::GetBinary(QStringLiteral("Software\\Zunbrix\\History"), QStringLiteral("Data"), data));
    EXPECT_TRUE(data.startsWith("[history]")) << "stored without a byte order mark";

    const HistoryLoadResult loaded = LoadHistory(list);
    EXPECT_TRUE(loaded.found);
    EXPECT_EQ(loaded.widths, widths);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].name, QStringLiteral("Alpha"));
    EXPECT_EQ(list[0].remark, QStringLiteral("note"));
    EXPECT_TRUE(list[0].checked);
}
