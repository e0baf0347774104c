#include "multicart/generators.h"

#include "support/generated_file.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <string>

using namespace zunbrix;

namespace {

class Generators : public ::testing::Test {
protected:
    QString path(const char* name) const { return dir.filePath(QString::fromLatin1(name)); }
    std::string text(const char* name) const { return fileText(path(name)); }
    void touch(const char* name) const
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    }

    QTemporaryDir dir;
};

NesImage gameImage(std::uint32_t listIndex, const char* name)
{
    NesImage image;
    image.listIndex = listIndex;
    image.name = QString::fromLatin1(name);
    image.setPrgLayoutBanks(8);
    image.setChrLayoutBanks(16);
    image.mapper = 4;
    return image;
}

std::vector<NesImage> images(int count)
{
    std::vector<NesImage> result;
    for (int i = 0; i < count; ++i)
        result.push_back(gameImage(static_cast<std::uint32_t>(i), "G"));
    return result;
}

std::string labelLine(const char* stem, int from, int to)
{
    std::string line = " .WORD ";
    for (int game = from; game < to; ++game) {
        char label[32];
        std::snprintf(label, sizeof label, "%s_%03d", stem, game);
        line += (game == from ? "" : ",") + std::string(label);
    }
    return line + "\r\n";
}

} // namespace

TEST_F(Generators, NameBankIndexAndTitleForOneBank)
{
    touch("game_list_3.asm");
    touch("game_list_F.asm");
    touch("game_list_10.asm");
    const QStringList names{QStringLiteral("Contra"), QString(), QStringLiteral("\u00DCnder"),
                            QString(QChar(0x80)) + QStringLiteral("x")};

    const GeneratorResult result = generateNames(names, dir.path(), 6, true);

    EXPECT_TRUE(result.filesWritten);
    EXPECT_EQ(result.banks, 1);
    EXPECT_EQ(text("game_list_0.asm"), "game_name_begin_000\r\n .WORD 0\r\ngame_name_list_000\r\n"
                                       " .WORD game_name_000,game_name_001,game_name_002,game_name_003\r\n"
                                       "\r\n"
                                       "game_name_000 .STR \"CONTRA\"\r\n"
                                       "game_name_001 .DB $00\r\n"
                                       "game_name_002 .STR \"?NDER\"\r\n"
                                       "game_name_003 .STR \"\x80X\"\r\n"); // 8-bit text, 128 as one byte
    EXPECT_EQ(text("game_list_bank.asm"), "game_list_bank_index\r\n .DB $00,$00,$00,$00\r\n");
    EXPECT_EQ(text("game_title.asm"), " .STR \"4 IN 1\"");
    // Banks of an earlier, larger build are gone, within the maintained range only.
    EXPECT_FALSE(QFile::exists(path("game_list_3.asm")));
    EXPECT_FALSE(QFile::exists(path("game_list_F.asm")));
    EXPECT_TRUE(QFile::exists(path("game_list_10.asm")));
}

TEST_F(Generators, LabelsAndIndexWrapAfterTenPerLine)
{
    generateGameData(images(10), dir.path(), true);
    const std::string ten = text("game_data_0.asm");
    EXPECT_NE(ten.find("game_data_list_000\r\n" + labelLine("game_data", 0, 10) + "\r\ngame_data_000;G\r\n"),
              std::string::npos);
    EXPECT_EQ(text("game_data_bank.asm"), "game_data_bank_index\r\n .DB $00,$00,$00,$00,$00,$00,$00,$00,$00,$00\r\n");

    generateGameData(images(11), dir.path(), true);
    EXPECT_NE(text("game_data_0.asm").find(labelLine("game_data", 0, 10) + labelLine("game_data", 10, 11) + "\r\n"),
              std::string::npos);
    EXPECT_EQ(text("game_data_bank.asm"),
              "game_data_bank_index\r\n .DB $00,$00,$00,$00,$00,$00,$00,$00,$00,$00\r\n .DB $00\r\n");
}

TEST_F(Generators, NameIsCutAtTheRowEndUnlessItOpensABank)
{
    // 282 names cut to 26 characters fill 2 + 282 * 29 = 8180 bytes; the next one no longer fits.
    const QString fits(26, QLatin1Char('A'));
    const QString long40(40, QLatin1Char('B'));
    QStringList names(281, fits);
    names.insert(1, long40);
    names.push_back(long40);

    const GeneratorResult result = generateNames(names, dir.path(), 6, true);

    EXPECT_EQ(result.banks, 2);
    const std::string first = text("game_list_0.asm");
    EXPECT_NE(first.find("game_name_001 .STR \"" + std::string(26, 'B') + "\"\r\n"), std::string::npos);
    EXPECT_NE(first.find("game_name_281 .STR \"" + std::string(26, 'A') + "\"\r\n"), std::string::npos);
    EXPECT_EQ(first.find("game_name_282"), std::string::npos);
    EXPECT_EQ(text("game_list_1.asm"), "game_name_begin_282\r\n .WORD 282\r\ngame_name_list_282\r\n"
                                       " .WORD game_name_282\r\n\r\n"
                                       "game_name_282 .STR \"" + std::string(40, 'B') + "\"\r\n");
    const std::string index = text("game_list_bank.asm");
    EXPECT_EQ(index.substr(index.size() - 20), "\r\n .DB $00,$00,$01\r\n");
}

TEST_F(Generators, DataBankHolds819Games)
{
    EXPECT_EQ(generateGameData(images(819), dir.path(), true).banks, 1);
    EXPECT_FALSE(QFile::exists(path("game_data_1.asm")));

    EXPECT_EQ(generateGameData(images(820), dir.path(), true).banks, 2);
    EXPECT_TRUE(text("game_data_1.asm").starts_with("game_data_begin_819\r\n .WORD 819\r\ngame_data_list_819\r\n"
                                                    " .WORD game_data_819\r\n\r\ngame_data_819;G\r\n"));
}

TEST_F(Generators, FinalBanksHold682CoolboyAnd585CoolgirlRecords)
{
    const auto banks = [&](int games, BoardType board) {
        return generateFinalData(std::vector<GameFinalData>(static_cast<std::size_t>(games)), dir.path(), board, false)
            .banks;
    };
    EXPECT_EQ(banks(682, BoardType::Coolboy), 1);
    EXPECT_EQ(banks(683, BoardType::Mindkids), 2);
    EXPECT_EQ(banks(585, BoardType::Coolgirl), 1);
    EXPECT_EQ(banks(586, BoardType::Coolgirl), 2);
}

TEST_F(Generators, GameDataRecordAndOffsetReport)
{
    NesImage menu = gameImage(0, "menu");
    menu.isMenu = true;
    NesImage big = gameImage(0, "Big");
    big.prgOffset = 0x1000000; // 16 MB: 2048 in 8 KB units
    big.prgCrc32 = 0x12345678;
    big.chrOffset = 0x2000000; // 4096 has 13 binary digits; the first 12 stand
    big.chrCrc32 = 0xCAFEF00D;
    big.verticalMirroring = true;
    big.battery = true;
    NesImage small = gameImage(1, "Small");
    small.prgOffset = 0x20000;
    small.chrOffset = 0x2000000;
    small.fourScreen = true;
    small.mapper = 0;

    generateGameData({menu, big, small}, dir.path(), true);

    const std::string data = text("game_data_0.asm");
    EXPECT_NE(data.find("game_data_000;Big\r\n"
                        " .DW $0800 ;100000000000 01000000 CRC32: 12345678 Size: 00020000\r\n"
                        " .DB $08 ;PRG Size\r\n"
                        " .DW $1000 ;100000000000 02000000 CRC32: CAFEF00D Size: 00020000\r\n"
                        " .DB $10 ;CHR Size\r\n"
                        " .DB %00000011 ;Mirroring D0(0: H 1: V) Battery: D1(0: N 1: Y) Four-Screen: D2(0: N 1: Y)\r\n"
                        " .DB 004 ;Mapper\r\n"
                        "game_data_001;Small\r\n"
                        " .DW $0010 ;000000010000 00020000 CRC32: 00000000 Size: 00020000\r\n"),
              std::string::npos);
    EXPECT_NE(data.find(" .DB %00000100 ;Mirroring"), std::string::npos);
    EXPECT_NE(data.find(" .DB 000 ;Mapper\r\n"), std::string::npos);
    EXPECT_EQ(data.find("menu"), std::string::npos);
    EXPECT_EQ(text("game_prg_chr_offset.txt"), "rom prg offset:\r\n"
                                               "0001 00020000 020000 Small\r\n"
                                               "0000 01000000 020000 Big\r\n"
                                               "\r\n"
                                               "rom chr offset:\r\n"
                                               "0000 02000000 020000 Big\r\n"
                                               "0001 02000000 020000 Small\r\n");
}

TEST_F(Generators, FinalDataRecordsOfBothBoardFamilies)
{
    GameFinalData game;
    game.name = QStringLiteral("Game");
    game.chrReg = {0x01, 0x02, 0x03, 0xA4};
    game.prgReg = {0x11, 0x12, 0x13, 0x94, 0x15, 0x7C, 0x17, 0x89};
    game.chrOffset8k = 0x1234;
    game.chrCount8k = 16;
    game.flags = 5;
    const std::string flags =
        " .DB $05 ;Mirroring D0(0: H 1: V) Battery-backed: D1(0: N 1: Y) Four-screen: D2(0: N 1: Y)\r\n";
    const std::string head = "game_final_data_begin_000\r\n .WORD 0\r\ngame_final_data_list_000\r\n"
                             " .WORD game_final_data_000\r\n\r\ngame_final_data_000;Game\r\n";

    generateFinalData({game}, dir.path(), BoardType::Mindkids, true);
    EXPECT_EQ(text("game_final_data_0.asm"),
              ";COOLBOY\r\n" + head + flags + " .DB $10 ;CHR 8KB count\r\n"
              " .DB $01 ;Reg0 for CHR\r\n .DB $02 ;Reg1 for CHR\r\n .DB $03 ;Reg2 for CHR\r\n .DB $A4 ;Reg3 for CHR\r\n"
              " .DB $11 ;Reg0 for PRG\r\n .DB $12 ;Reg1 for PRG\r\n .DB $13 ;Reg2 for PRG\r\n .DB $94 ;Reg3 for PRG\r\n");

    generateFinalData({game}, dir.path(), BoardType::Coolgirl, true);
    EXPECT_EQ(text("game_final_data_0.asm"),
              ";COOLGIRL\r\n" + head + " .DW $1234 ;CHR 8KB offset\r\n .DB $10 ;CHR 8KB count\r\n" + flags
                  + " .DB $11 ;Reg0 for PRG\r\n .DB $12 ;Reg1 for PRG\r\n .DB $13 ;Reg2 for PRG\r\n"
                    " .DB $94 ;Reg3 for PRG\r\n .DB $15 ;Reg4 for PRG\r\n .DB $7C ;Reg5 for PRG\r\n"
                    " .DB $17 ;Reg6 for PRG\r\n .DB $89 ;Reg7 for PRG\r\n");
    EXPECT_EQ(text("game_final_data_bank.asm"), "game_final_data_bank_index\r\n .DB $00\r\n");
}

TEST_F(Generators, DryRunCountsWithoutTouchingBankFiles)
{
    touch("game_data_5.asm");
    const GeneratorResult counted = generateGameData(images(900), dir.path(), false);
    EXPECT_EQ(counted.banks, 2);
    EXPECT_TRUE(counted.filesWritten);
    EXPECT_FALSE(QFile::exists(path("game_data_0.asm")));
    EXPECT_TRUE(QFile::exists(path("game_data_5.asm")));
    EXPECT_NE(text("game_data_bank.asm"), "<missing>");
    EXPECT_NE(text("game_prg_chr_offset.txt"), "<missing>");

    // Before the build folder exists the index cannot open; the count is what matters then.
    const DebugMessages messages;
    const GeneratorResult missing = generateNames({QStringLiteral("A")}, dir.filePath("absent"), 6, false);
    EXPECT_FALSE(missing.filesWritten);
    EXPECT_EQ(missing.banks, 1);
    EXPECT_EQ(messages.lines, QStringList{QStringLiteral("open file failed!")});
}

TEST_F(Generators, TitleCountsNamesAndAnEmptyListWritesNothing)
{
    const DebugMessages messages;
    const GeneratorResult result = generateNames({}, dir.path(), 6, true);
    EXPECT_EQ(messages.lines, QStringList{QStringLiteral("file list is empty!")});
    EXPECT_FALSE(result.filesWritten);
    EXPECT_EQ(result.banks, 0);
    EXPECT_EQ(text("game_title.asm"), "<missing>");

    generateNames(QStringList(12, QStringLiteral("A")), dir.path(), 6, true);
    EXPECT_EQ(text("game_title.asm"), " .STR \"12 IN 1\"");
}
