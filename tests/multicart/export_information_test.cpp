#include "multicart/export_information.h"

#include "frame/registry_store.h"
#include "support/generated_file.h"
#include "support/private_settings.h"
#include "synthetic_rom.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

using namespace zunbrix;
using zunbrix::testing::writeRom;

namespace {

class ExportInformation : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("start")));
        ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("chosen")));
        writeRom(dir.filePath(QStringLiteral("game.nes")), {.mapper = 0, .prgBanks = 1, .chrBanks = 0});
    }

    void addEntries(int count, const QString& name, bool checked = true)
    {
        for (int i = 0; i < count; ++i) {
            GameEntry entry;
            entry.path = dir.filePath(QStringLiteral("game.nes"));
            entry.name = name;
            entry.checked = checked;
            entries.push_back(entry);
        }
    }

    ExportInformationResult run(int romType, int menuBanks = 16)
    {
        return exportInformation({entries, options, design, Language::English}, romType, menuBanks, start(),
                                 [&](const QString& from) -> std::optional<QString> {
                                     askedFrom = from;
                                     return answer;
                                 });
    }

    QString start() const { return dir.filePath(QStringLiteral("start")); }
    std::string text(const char* folder, const char* name) const
    {
        return fileText(dir.filePath(QString::fromLatin1(folder) + QLatin1Char('/') + QString::fromLatin1(name)));
    }
    std::string firstEntry(const char* folder) const
    {
        const std::string bank = text(folder, "game_list_0.asm");
        const auto at = bank.find("game_name_000 ");
        return at == std::string::npos ? bank : bank.substr(at, bank.find('\r', at) - at);
    }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir dir;
    std::vector<GameEntry> entries;
    BuildOptions options;
    DesignDocument design;
    std::optional<QString> answer = dir.filePath(QStringLiteral("chosen"));
    QString askedFrom;
};

} // namespace

TEST_F(ExportInformation, ListStaysInTheStartFolderAndTheRestGoesToTheChosenOne)
{
    addEntries(1, QStringLiteral("Contra"));
    addEntries(1, QStringLiteral("Unchecked"), false);
    addEntries(9, QStringLiteral("Other"));
    options.showNumberOrder = true;
    options.showNumberFill = true;
    options.showNumberDot = true;
    ASSERT_TRUE(RegistryStore::SetBinary(QStringLiteral("Software\\Zunbrix\\MenuV2"), QStringLiteral("BigCursor"),
                                         QByteArray(1, '\x01')));

    const ExportInformationResult result = run(0);

    ASSERT_TRUE(result.ok) << result.message.toStdString();
    EXPECT_EQ(askedFrom, start());
    EXPECT_EQ(result.folder, dir.filePath(QStringLiteral("chosen")));
    EXPECT_TRUE(text("start", "game_list.txt").starts_with("Contra\r\nOther\r\n"));
    EXPECT_EQ(text("start", "game_list_bank.asm").substr(0, 22), "game_list_bank_index\r\n");
    EXPECT_EQ(text("start", "game_list_0.asm"), "<missing>");
    EXPECT_EQ(text("chosen", "game_list.txt"), "<missing>");
    EXPECT_EQ(firstEntry("chosen"), "game_name_000 .STR \"01.CONTRA\"");
    EXPECT_NE(text("chosen", "game_final_data_0.asm").find(";COOLBOY\r\n"), std::string::npos);
    EXPECT_EQ(text("chosen", "game_caption_data.asm"), " .STR \"10 IN 1\"");
    const std::string config = text("chosen", "game_config.asm");
    EXPECT_TRUE(config.starts_with("BIG_CURSOR = 1\r\n"));
    EXPECT_NE(config.find("BOARD_TYPE = 0\r\nMENU_PRG_SIZE = 16\r\n"), std::string::npos);
    EXPECT_NE(config.find("GAMES_TOTAL   =  10\r\n"), std::string::npos);
    EXPECT_NE(config.find("CAPTION_LENGTH = 7\r\n"), std::string::npos);
}

TEST_F(ExportInformation, NumberFormatsFollowFillAndDotApart)
{
    addEntries(10, QStringLiteral("Contra"));
    const auto firstWith = [&](bool order, bool fill, bool dot) {
        options.showNumberOrder = order;
        options.showNumberFill = fill;
        options.showNumberDot = dot;
        EXPECT_TRUE(run(1).ok);
        return firstEntry("chosen");
    };
    EXPECT_EQ(firstWith(true, true, false), "game_name_000 .STR \"01CONTRA\"");
    EXPECT_EQ(firstWith(true, false, true), "game_name_000 .STR \"1.CONTRA\"");
    EXPECT_EQ(firstWith(true, false, false), "game_name_000 .STR \"1CONTRA\"");
    EXPECT_EQ(firstWith(false, true, true), "game_name_000 .STR \".CONTRA\"");
    EXPECT_EQ(firstWith(false, false, false), "game_name_000 .STR \"CONTRA\"");
    EXPECT_NE(text("chosen", "game_config.asm").find("BOARD_TYPE = 2\r\n"), std::string::npos);
}

TEST_F(ExportInformation, BadGamesOverflowAndCancelStopTheExport)
{
    addEntries(1, QStringLiteral("Broken"));
    entries.back().path = dir.filePath(QStringLiteral("missing.nes"));
    ExportInformationResult result = run(0);
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.message.contains(QStringLiteral("Not a valid NES file!")));
    EXPECT_TRUE(askedFrom.isEmpty());

    // 1,411 names cut to 26 characters need six name banks; a 128 KB menu leaves room for five.
    entries.clear();
    addEntries(1411, QString(40, QLatin1Char('N')));
    result = run(0, 8);
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.message.startsWith(QStringLiteral("Output information overflow")));
    EXPECT_TRUE(result.message.contains(QStringLiteral("6/5")));
    EXPECT_TRUE(askedFrom.isEmpty());

    entries.resize(2);
    answer.reset();
    result = run(0);
    EXPECT_FALSE(result.ok);
    EXPECT_TRUE(result.message.isEmpty());
    EXPECT_EQ(askedFrom, start());
    EXPECT_EQ(text("start", "game_config.asm"), "<missing>");
    EXPECT_EQ(text("chosen", "game_config.asm"), "<missing>");
}

TEST_F(ExportInformation, NothingCheckedStillExports)
{
    addEntries(2, QStringLiteral("Contra"), false);
    const DebugMessages messages;
    const ExportInformationResult result = run(0);
    EXPECT_TRUE(result.ok);
    EXPECT_TRUE(messages.lines.contains(QStringLiteral("file list is empty!")));
    EXPECT_NE(text("chosen", "game_config.asm").find("GAMES_TOTAL   =  0\r\n"), std::string::npos);
    EXPECT_EQ(text("start", "game_list.txt"), "");
}

// The menu indexes at most 2,048 games: a longer list, on either board, is refused with the limit named and
// nothing is asked or written, not even the list of names; one unchecked entry more changes nothing.
TEST_F(ExportInformation, ListLongerThanTheMenuCanIndexIsRefusedBeforeAnythingIsWritten)
{
    addEntries(2048, QStringLiteral("G"));
    addEntries(1, QStringLiteral("Unchecked"), false);
    ASSERT_TRUE(run(1).ok);

    QDir(start()).removeRecursively();
    ASSERT_TRUE(QDir(dir.path()).mkpath(QStringLiteral("start")));
    addEntries(1, QStringLiteral("G"));
    askedFrom.clear();
    for (int romType : {0, 1}) {
        const ExportInformationResult result = run(romType);
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.message,
                  QStringLiteral("The menu can list and start at most 2048 games, but 2049 are checked"));
        EXPECT_TRUE(askedFrom.isEmpty());
        EXPECT_TRUE(QDir(start()).isEmpty());
    }
}
