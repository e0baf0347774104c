// The menu dialect, feature by feature, through the real tool: each case asserts the bytes it produces.
#include "nesasm_runner.h"

using namespace zunbrix::testing;
using Bytes = std::vector<std::uint8_t>;

namespace {

constexpr std::size_t kBank = 0x2000;

Bytes bank(const Bytes& image, std::size_t number, std::size_t count)
{
    if (image.size() < (number + 1) * kBank)
        return {};
    return {image.begin() + static_cast<std::ptrdiff_t>(number * kBank),
            image.begin() + static_cast<std::ptrdiff_t>(number * kBank + count)};
}

} // namespace

TEST(NesasmDialect, StrFormsAndEscapes)
{
    AsmFolder folder;
    const QByteArray longText(255, 'x');
    const Bytes image = folder.banksOf("  .ORG $8000\n"
                                       "Empty .STR \"\"\n"
                                       "  .STR    \"AB\"  ; blanks before the quote, comment after\n"
                                       "  .STR \"\\r\\n\\t\\\"\\x41\\'7\\q\\\\;\"\n"
                                       "  .USTR \"abZ1\"\n"
                                       "  .LSTR \"ABz1\"\n"
                                       "Named .STR \"\xE4\xB8\xAD\"\n"
                                       "  .DW Empty, Named\n"
                                       "  .STR \"" + longText + "\"\n");
    const Bytes expected = {0x00,                                     // empty string: its length only
                            0x02, 'A', 'B',                           //
                            0x09, 13, 10, 9, '"', 0x41, 0x07, 'q', '\\', ';', //
                            0x04, 'A', 'B', 'Z', '1',                 //
                            0x04, 'a', 'b', 'z', '1',                 //
                            0x03, 0xE4, 0xB8, 0xAD,                   // bytes above 127 pass unchanged
                            0x00, 0x80, 0x18, 0x80,                   // labels take the length byte's address
                            0xFF};
    EXPECT_EQ(prefix(image, expected.size()), expected);
    EXPECT_EQ(image[expected.size() + 254], 'x');
}

TEST(NesasmDialect, ForwardEquatesSelectBanks)
{
    AsmFolder folder;
    const Bytes image = folder.banksOf("  .BANK SOUND_BANK & BANK_MASK\n"
                                       "  .ORG $8000\n"
                                       "  .DB SOUND_BANK, FIRST\n"
                                       "FIRST = SECOND + 1\n"
                                       "SECOND = THIRD * 2\n"
                                       "THIRD = 3\n"
                                       "SOUND_BANK = $3B\n"
                                       "BANK_MASK = $03\n");
    ASSERT_EQ(image.size(), 4 * kBank);
    EXPECT_EQ(bank(image, 3, 3), (Bytes{0x3B, 7, 0xFF}));
    EXPECT_EQ(bank(image, 0, 1), Bytes{0xFF});
}

TEST(NesasmDialect, LocalLabelsBelongToTheLastGlobal)
{
    AsmFolder folder;
    const Bytes image = folder.banksOf("  .ORG $8000\n"
                                       "First:\n"
                                       ".loop DEX\n"
                                       "  BNE .loop\n"
                                       "  JMP .done\n"
                                       ".done: RTS\n"
                                       "Second ; a comment right behind the label\n"
                                       "COUNT = 2   ; an equate opens no new scope\n"
                                       ".loop: DEY\n"
                                       "  BNE .loop\n"
                                       "  JMP .done\n"
                                       ".done RTS\n"
                                       "  .DW First, Second\n");
    const Bytes expected = {0xCA, 0xD0, 0xFD, 0x4C, 0x06, 0x80, 0x60, //
                            0x88, 0xD0, 0xFD, 0x4C, 0x0D, 0x80, 0x60, //
                            0x00, 0x80, 0x07, 0x80};
    EXPECT_EQ(prefix(image, expected.size()), expected);
}

TEST(NesasmDialect, ConditionalsSkipWholeLinesIncludingIncludes)
{
    AsmFolder folder;
    folder.write("board.asm", "  .DB BOARD\n");
    const Bytes image = folder.banksOf("BOARD = 2\n"
                                       "  .ORG $8000\n"
                                       "  .IF BOARD = 1\n"
                                       "  INCLUDE \"board.asm\"\n"
                                       "  .IF UNDEFINED_IN_A_DEAD_BRANCH\n"
                                       "  .DB 1\n"
                                       "  .ELSE\n"
                                       "  .DB 2\n"
                                       "  .ENDIF\n"
                                       "  INCBIN \"no such file.bin\"\n"
                                       "  .ELSE\n"
                                       "  .include \"board.asm\"\n"
                                       "  .IF BOARD >= 2\n"
                                       "  .DB $22\n"
                                       "  .ELSE\n"
                                       "  .DB $11\n"
                                       "  .ENDIF\n"
                                       "  .ENDIF\n");
    EXPECT_EQ(prefix(image, 3), (Bytes{0x02, 0x22, 0xFF}));
}

TEST(NesasmDialect, LaterWriteStandsAndBanksExtendTheImage)
{
    AsmFolder folder;
    folder.write("main.asm", "  .INESPRG 3\n  .INESCHR 0\n  .INESMAP 4\n  .INESMIR 1\n"
                             "  .BANK 0\n  .ORG $8000\n  .DB 1, 2, 3\n"
                             "  .ORG $8001\n  .DB 9\n"
                             "  .BANK 5\n");
    const AsmFolder::Run run = folder.run({"main.asm"});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    const Bytes image = folder.read("main.nes");
    ASSERT_EQ(image.size(), 16 + 6 * kBank);
    EXPECT_EQ(prefix(image, 16), (Bytes{'N', 'E', 'S', 0x1A, 3, 0, 0x41, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_EQ(Bytes(image.begin() + 16, image.begin() + 20), (Bytes{1, 9, 3, 0xFF}));
    EXPECT_TRUE(std::all_of(image.begin() + 20, image.end(), [](std::uint8_t b) { return b == 0xFF; }));
    EXPECT_EQ(run.output, "NES Assembler (v3.2.0.7 Bulid Date: 20240701)\n"); // no word about the overwrite
}

TEST(NesasmDialect, OrgSplitsBankOffsetFromLabelAddress)
{
    AsmFolder folder;
    const Bytes image = folder.banksOf("  .BANK 1\n  .ORG $C010\nHere: .DW Here\n"
                                       "  .BANK 2\nThere: .DW There\n");
    Bytes expected(0x12, 0xFF);
    expected[0x10] = 0x10;
    expected[0x11] = 0xC0;
    EXPECT_EQ(bank(image, 1, 0x12), expected);
    EXPECT_EQ(bank(image, 2, 2), (Bytes{0x00, 0xC0})); // same window, start of the new bank
}

TEST(NesasmDialect, RsAllocatesWithoutEmitting)
{
    AsmFolder folder;
    const Bytes image = folder.banksOf("  .RSSET $40\n"
                                       "Count .RS 1\n"
                                       "Pair .RS 2\n"
                                       "Last .RS 1\n"
                                       "  .ORG $8000\n"
                                       "  .DB Count, Pair, Last\n"
                                       "  STA <Pair\n");
    EXPECT_EQ(prefix(image, 6), (Bytes{0x40, 0x41, 0x43, 0x85, 0x41, 0xFF}));
}

TEST(NesasmDialect, NumbersAndOperators)
{
    AsmFolder folder;
    const Bytes image = folder.banksOf("GAMES_TOTAL = 47\n"
                                       "PAGE_SIZE   =  20\n"
                                       "POS=$234E\n"
                                       "WIDE .EQU $12345678\n"
                                       "  .ORG $8000\n"
                                       "  .DB GAMES_TOTAL % PAGE_SIZE, %101, %11 % 2, 004, 010, ' ', '/'\n"
                                       "  .DB GAMES_TOTAL / PAGE_SIZE * PAGE_SIZE, (0 - 7) / 2 + 10, 2 + 3 * 4\n"
                                       "  .DB 1 << 4 | 1, $F0 & %00111100, 5 = 5, 5 != 5, 3 >= 4, 4 > 3\n"
                                       "  LDA #LOW(POS) - 2\n"
                                       "  LDA #HIGH(POS)+1\n"
                                       "  .DW (WIDE >> 16) & $FFFF, -1\n");
    const Bytes expected = {7,    5,    1,    4,    10,   32,   '/',  40, 7, 14,  //
                            0x11, 0x30, 1,    0,    0,    1,                     //
                            0xA9, 0x4C, 0xA9, 0x24, 0x34, 0x12, 0xFF, 0xFF};
    EXPECT_EQ(prefix(image, expected.size()), expected);
}

TEST(NesasmDialect, LineFormsAndTextEncodings)
{
    AsmFolder folder;
    folder.write("board.asm", "\xEF\xBB\xBF; a byte order mark in front of UTF-8 text\r\n  .ORG $8100\r\nBoard:.DB 7\r\n");
    // CR LF and LF mixed, GBK and UTF-8 bytes in comments, no line end after the last line.
    const Bytes image = folder.banksOf("  INCLUDE \"board.asm\"\n"
                                       "  .org $8000\r\n"
                                       "Start:  lda #1 ; \xC6\xF4\xB6\xAF\r\n"
                                       "Loop  sta <$10,x  ; \xE5\x90\xAF\xE5\x8A\xA8\n"
                                       "  Ldx Start,y\n"
                                       "\tASL\n"
                                       "  ROL A\n"
                                       "  .byte Loop & $FF\n"
                                       "  .word Start\n"
                                       "  .dw Loop");
    const Bytes expected = {0xA9, 0x01, 0x95, 0x10, 0xBE, 0x00, 0x80, 0x0A, 0x2A, 0x02, 0x00, 0x80, 0x02, 0x80, 0xFF};
    EXPECT_EQ(image[0x100], 0x07);
    EXPECT_EQ(prefix(image, expected.size()), expected);
}

TEST(NesasmDialect, OperandsStayAbsoluteUnlessForced)
{
    AsmFolder folder;
    // The forward zero-page symbol must not shrink the instruction in a later pass and move the label behind.
    const Bytes image = folder.banksOf("  .ORG $8000\n"
                                       "  LDA Variable\n"
                                       "  LDA <Variable\n"
                                       "  STX Variable,Y\n"
                                       "After: .DW After\n"
                                       "Variable = $10\n");
    EXPECT_EQ(prefix(image, 10), (Bytes{0xAD, 0x10, 0x00, 0xA5, 0x10, 0x96, 0x10, 0x07, 0x80, 0xFF}));
}

TEST(NesasmDialect, IncbinWithOffsetAndLength)
{
    AsmFolder folder;
    folder.write("menu_data/part.bin", QByteArray("\x01\x02\x03\x04\x05", 5));
    const Bytes image = folder.banksOf("  .ORG $8000\n"
                                       "  INCBIN \"menu_data/part.bin\"\n"
                                       "  .incbin \"menu_data/part.bin\", 3\n"
                                       "  INCBIN \"menu_data/part.bin\", 1, 2\n"
                                       "End: .DW End\n");
    EXPECT_EQ(prefix(image, 12), (Bytes{1, 2, 3, 4, 5, 4, 5, 2, 3, 0x09, 0x80, 0xFF}));
}

TEST(NesasmDialect, DataRunningPastABankGoesOnInTheNextWithAWarning)
{
    AsmFolder folder;
    folder.write("part.asm", "  .ORG $9FFE\n  .DB 1, 2, 3, 4\n");
    folder.write("main.asm", "  .BANK 0\n  INCLUDE \"part.asm\"\n  .DB 5\n");
    const AsmFolder::Run run = folder.run({"-raw", "main.asm"});
    ASSERT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output, "NES Assembler (v3.2.0.7 Bulid Date: 20240701)\n"
                          "#[1]   main.asm\n#[2]   part.asm\n"
                          "00002    .DB 1, 2, 3, 4\n       Warning, bank overflow by 2 bytes!\n");
    const Bytes image = folder.read("main.nes");
    ASSERT_EQ(image.size(), 2 * kBank);
    EXPECT_EQ(Bytes(image.begin() + kBank - 2, image.begin() + kBank + 4), (Bytes{1, 2, 3, 4, 5, 0xFF}));
}
