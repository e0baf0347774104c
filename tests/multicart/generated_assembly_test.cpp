#include "multicart/game_config.h"
#include "multicart/generators.h"

#include "synthetic_rom.h"
#include "tools/nesasm/nesasm_runner.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

// The menu's side of the contract in miniature: config first, then every bank at its place, the indexes
// and the default caption, each bank file under the same count test as the menu's source.
QByteArray menuSource()
{
    QByteArray source = " INCLUDE \"build/game_config.asm\"\n"
                        " .INESPRG MENU_PRG_SIZE\n .INESCHR MENU_CHR_SIZE\n .INESMAP 4\n .INESMIR 1\n"
                        "BANK_DATA_MASK = MENU_PRG_SIZE * 2 - 1\n";
    const auto banks = [&](const char* count, const char* file, int firstBank, int files) {
        for (int n = 0; n < files; ++n) {
            source += QStringLiteral(" .IF %1 > %2\n .BANK %3 & BANK_DATA_MASK\n .ORG $A000\n"
                                     " INCLUDE \"build/%4_%5.asm\"\n .ENDIF\n")
                          .arg(QLatin1String(count)).arg(n).arg(firstBank + n).arg(QLatin1String(file))
                          .arg(QString::number(n, 16).toUpper())
                          .toLatin1();
        }
    };
    banks("DATA_BANK_COUNT", "game_data", 0x03, 8);
    banks("FINAL_DATA_BANK_COUNT", "game_final_data", 0x0B, 8);
    banks("NAME_BANK_COUNT", "game_list", 0x18, 16);
    source += " .BANK $3E & BANK_DATA_MASK\n .ORG $A000\n INCLUDE \"build/game_data_bank.asm\"\n"
              " .ORG $B000\n INCLUDE \"build/game_title.asm\"\n"
              " .BANK $3F & BANK_DATA_MASK\n .ORG $A000\n INCLUDE \"build/game_final_data_bank.asm\"\n"
              " .ORG $A800\n INCLUDE \"build/game_list_bank.asm\"\n";
    return source;
}

class GeneratedAssembly : public ::testing::Test {
protected:
    // Generates every file for `games` games of 40-character names and assembles them.
    zunbrix::testing::AsmFolder::Run assemble(int games, BoardType board)
    {
        QStringList names(games, QString(40, QLatin1Char('N')));
        names[0] = QStringLiteral("\u00DCnder");
        names[1].clear();
        return assemble(names, board);
    }

    zunbrix::testing::AsmFolder::Run assemble(const QStringList& names, BoardType board)
    {
        const auto games = static_cast<int>(names.size());
        std::vector<NesImage> images;
        for (int i = 0; i < games; ++i)
            images.push_back(zunbrix::testing::imageOf(static_cast<std::uint32_t>(i), 8, 16));
        const QString build = folder.path(QStringLiteral("build"));
        folder.write(QStringLiteral("build/.keep"), {});
        const BankCounts banks = generateGameSources(names, images, build, board, 6, true);
        GameConfig config{.nameBanks = banks.names, .dataBanks = banks.data, .finalBanks = banks.finalData,
                          .boardType = static_cast<int>(board), .menuPrgBanks = 32, .gamesTotal = games};
        EXPECT_TRUE(writeGameConfig(build, config));
        folder.write(QStringLiteral("menu.asm"), menuSource());
        return folder.run({QStringLiteral("menu.asm")});
    }

    // The little-endian word at `address` of 8 KB bank `bank` of menu.nes.
    int word(int bank, int address) const
    {
        const std::vector<std::uint8_t> image = folder.read(QStringLiteral("menu.nes"));
        const std::size_t at = 16 + static_cast<std::size_t>(bank) * 8192 + static_cast<std::size_t>(address - 0xA000);
        return at + 1 < image.size() ? image[at] | (image[at + 1] << 8) : -1;
    }
    int byte(int bank, int address) const
    {
        const std::vector<std::uint8_t> image = folder.read(QStringLiteral("menu.nes"));
        const std::size_t at = 16 + static_cast<std::size_t>(bank) * 8192 + static_cast<std::size_t>(address - 0xA000);
        return at < image.size() ? image[at] : -1;
    }
    // The length-prefixed name of game `game` in name bank `bank`, whose first game is `first`.
    QByteArray name(int bank, int first, int game) const
    {
        const int address = word(bank, 0xA002 + (game - first) * 2);
        QByteArray bytes;
        for (int i = 1; i <= byte(bank, address); ++i)
            bytes += static_cast<char>(byte(bank, address + i));
        return bytes;
    }

    zunbrix::testing::AsmFolder folder;
};

} // namespace

TEST_F(GeneratedAssembly, CoolboyFilesAssembleAndBanksHoldWhatTheirCostsSay)
{
    const auto run = assemble(1200, BoardType::Coolboy);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output.find("arning"), std::string::npos) << run.output; // 819 records fill bank 0 exactly

    EXPECT_EQ(word(0x03, 0xA000), 0);
    EXPECT_EQ(word(0x03, 0xA002), 0xA000 + 2 + 819 * 2);
    EXPECT_EQ(byte(0x03, 0xBFFF), 4); // the mapper of game 818 ends the bank
    EXPECT_EQ(word(0x04, 0xA000), 819);
    EXPECT_EQ(word(0x0C, 0xA000), 682);

    // Names: "?NDER", an empty name as one zero byte, then names cut to 26; bank 1 opens with a whole one.
    const int first = word(0x18, 0xA002);
    EXPECT_EQ(byte(0x18, first), 5);
    EXPECT_EQ(byte(0x18, first + 1), '?');
    EXPECT_EQ(byte(0x18, word(0x18, 0xA004)), 0);
    EXPECT_EQ(byte(0x18, word(0x18, 0xA006)), 26);
    const int opening = word(0x19, 0xA000);
    EXPECT_GT(opening, 200);
    EXPECT_EQ(byte(0x19, word(0x19, 0xA002)), 40);
    EXPECT_EQ(byte(0x3F, 0xA800 + opening - 1), 0);
    EXPECT_EQ(byte(0x3F, 0xA800 + opening), 1);

    EXPECT_EQ(byte(0x3E, 0xB000), 9); // .STR "1200 IN 1"
    EXPECT_EQ(byte(0x3E, 0xB001), '1');
}

TEST_F(GeneratedAssembly, CoolgirlRecordsFillABankExactly)
{
    const auto run = assemble(585, BoardType::Coolgirl);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output.find("arning"), std::string::npos) << run.output;
    EXPECT_EQ(word(0x0B, 0xA002), 0xA000 + 2 + 585 * 2);
    EXPECT_EQ(byte(0x0B, 0xBFFF), 0x89); // the last record's Reg7 ends the bank
}

// Quotes, backslashes (also last), a semicolon and control bytes come back from the assembler as typed, and
// a name costs its bank what it shows: banks of quotes fill just as the count planned, with no overflow.
TEST_F(GeneratedAssembly, NamesKeepQuotesAndBackslashesAsTyped)
{
    QStringList names(1200, QString(40, QLatin1Char('"')));
    names[0] = QStringLiteral("AC\\DC \"LIVE\"");
    names[1] = QStringLiteral("ENDS IN \\");
    names[2] = QStringLiteral("A;B\tC\r\nD\\X41");
    names[3] = QStringLiteral("\\\"");
    names[5] = QString(40, QChar(0x80)); // 128 stays itself, one byte like every other character
    const auto run = assemble(names, BoardType::Coolboy);
    ASSERT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output.find("arning"), std::string::npos) << run.output;

    EXPECT_EQ(name(0x18, 0, 0), QByteArray("AC\\DC \"LIVE\""));
    EXPECT_EQ(name(0x18, 0, 1), QByteArray("ENDS IN \\"));
    EXPECT_EQ(name(0x18, 0, 2), QByteArray("A;B\tC\r\nD\\X41"));
    EXPECT_EQ(name(0x18, 0, 3), QByteArray("\\\""));
    EXPECT_EQ(name(0x18, 0, 4), QByteArray(26, '"'));
    EXPECT_EQ(name(0x18, 0, 5), QByteArray(26, '\x80'));
    // 2 + 15 + 12 + 15 + 5 bytes for the start and the four names, then 280 cut names of 29: 8,169 bytes
    const int opening = word(0x19, 0xA000);
    EXPECT_EQ(opening, 284);
    EXPECT_EQ(name(0x19, opening, opening), QByteArray(40, '"'));
}
