#include "multicart/board_tables.h"
#include "multicart/validation.h"
#include "synthetic_rom.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace zunbrix;
using namespace zunbrix::testing;

TEST(BoardTables, RowsAreConsistentWithTheMapperLists)
{
    for (std::uint16_t mapper : coolgirlMappers) {
        EXPECT_NE(findMapperSizeRow(mapper), nullptr) << mapper;
        EXPECT_EQ(findCoolgirlMapperRow(mapper) == nullptr, mapper == 74) << mapper;
    }
    for (const CoolgirlMapperRow& row : coolgirlMapperTable)
        EXPECT_TRUE(row.boardMapper < 64 && row.mapperFlags < 8 && row.prgMode < 8 && row.chrMode < 8) << row.mapper;
    for (std::uint16_t mapper : coolboyMappers)
        EXPECT_TRUE(boardSupportsMapper(BoardType::Mindkids, mapper));
    EXPECT_FALSE(boardSupportsMapper(BoardType::Coolboy, 1));
    EXPECT_EQ(coolgirlRowFor(74).boardMapper, 20);
    EXPECT_EQ(findMapperSizeRow(6), nullptr);
}

TEST(Validation, NormalisingRaisesOnlyTheLayoutSizes)
{
    std::vector<NesImage> images{imageOf(0, 2, 3), imageOf(1, 2, 64, 1), imageOf(2, 2, 5), imageOf(3, 1, 0, 0),
                                 imageOf(4, 16, 16), imageOf(5, 0, 0)};
    normaliseChr(images);
    normalisePrg(images);
    const std::vector<std::pair<std::uint32_t, std::uint32_t>> expected{{8, 4}, {8, 64}, {8, 8}, {1, 0}, {16, 16}, {0, 0}};
    for (std::size_t i = 0; i < images.size(); ++i) {
        EXPECT_EQ(images[i].prgLayoutBanks, expected[i].first) << i;
        EXPECT_EQ(images[i].chrLayoutBanks, expected[i].second) << i;
        EXPECT_EQ(images[i].prgLayoutBytes, images[i].prgLayoutBanks << 14);
        EXPECT_EQ(images[i].chrLayoutBytes, images[i].chrLayoutBanks << 13);
    }
    EXPECT_EQ(images[0].chrBanks, 3u);
}

TEST(Validation, ReportsEachBadGameOnceWithItsFirstReason)
{
    std::vector<NesImage> images{imageOf(0, 8, 1), imageOf(1, 2, 0, 1), imageOf(2, 8, 0), imageOf(3, 0, 0),
                                 imageOf(4, 3, 3), imageOf(5, 2, 2, 0), imageOf(6, 2, 1, 0), imageOf(7, 8, 8, 74)};
    images[0].valid = false;
    images[0].mapper = 1;
    images[0].problem = {.kind = FileProblemKind::NoInesMark, .path = QStringLiteral("/x/game0.nes")};
    images[2].hasTrainer = true;
    normaliseChr(images);
    QString text;
    std::vector<FileProblem> problems;
    EXPECT_FALSE(validateCoolboy(images, Language::English, text, &problems));
    // Only the first line's game has a file at fault.
    ASSERT_EQ(problems.size(), 6u);
    EXPECT_EQ(problems[0].kind, FileProblemKind::NoInesMark);
    EXPECT_EQ(problems[0].path, "/x/game0.nes");
    EXPECT_TRUE(std::none_of(problems.begin() + 1, problems.end(), [](const FileProblem& p) { return bool(p); }));
    EXPECT_EQ(text, "1.game0 Not a valid NES file!\r\n"
                    "2.game1 Mapper1 not supported!\r\n"
                    "3.game2 Trainer not supported!\r\n"
                    "4.game3 PRG = 0KB CHR = 0KB not supported!\r\n"
                    "5.game4 PRG = 48KB CHR = 24KB not supported!\r\n"
                    "6.game5 PRG = 32KB CHR = 16KB not supported!\r\n");
    EXPECT_FALSE(validateCoolboy(images, Language::Chinese, text));
    EXPECT_TRUE(text.startsWith(QString::fromUtf8("1.game0 不是有效的NES文件!\r\n2.game1 Mapper1 不支持!\r\n")));

    // What COOLGIRL takes: mapper 1, the one odd size of 228, CHR raised from 3 to 4 banks; mapper 5 needs CHR.
    std::vector<NesImage> coolgirl{imageOf(0, 2, 0, 1), imageOf(1, 96, 0, 228), imageOf(2, 8, 3), imageOf(3, 8, 0, 74),
                                   imageOf(4, 2, 0, 5)};
    normaliseChr(coolgirl);
    EXPECT_FALSE(validateCoolgirl(coolgirl, Language::English, text));
    EXPECT_EQ(text, "5.game4 PRG = 32KB CHR = 0KB not supported!\r\n");
    coolgirl.pop_back();
    EXPECT_TRUE(validateCoolgirl(coolgirl, Language::English, text));
    EXPECT_TRUE(text.isEmpty());
}

TEST(Validation, StopsReportingAtTwentyGames)
{
    std::vector<NesImage> images;
    for (std::uint32_t i = 0; i < 25; ++i)
        images.push_back(imageOf(i, 2, 0, 1));
    QString text;
    EXPECT_FALSE(validateCoolboy(images, Language::English, text));
    EXPECT_EQ(text.count("\r\n"), 20);
    EXPECT_TRUE(text.endsWith("20.game19 Mapper1 not supported!\r\n"));
}

TEST(Validation, MenuMustBeValidWithoutChrAndAPowerOfTwoFrom128k)
{
    QString text;
    for (std::uint32_t banks : {8u, 16u, 32u, 64u, 128u})
        EXPECT_TRUE(checkMenu(imageOf(0, banks, 0, 0), Language::English, text)) << banks;
    EXPECT_FALSE(checkMenu(imageOf(0, 8, 1, 0), Language::English, text));
    EXPECT_FALSE(checkMenu(imageOf(0, 4, 0, 0), Language::English, text));
    NesImage broken = imageOf(0, 12, 0, 3);
    broken.path = "/x/menu.nes";
    EXPECT_FALSE(checkMenu(broken, Language::English, text));
    EXPECT_EQ(text, "Menu ROM error! \r\nPath = /x/menu.nes \r\nMapper = 3 \r\nPRG = 192KB \r\nCHR = 0KB\r\n");
}

TEST(Validation, MenuDataRoomDependsOnMenuSize)
{
    QString text;
    EXPECT_TRUE(checkOverflow(16, 10, 8, 8, Language::English, text));
    EXPECT_EQ(text, "Output information overflow \r\nList data: 10/10 \r\nItem data: 8/8 \r\nfinal data:8/8 ");
    EXPECT_FALSE(checkOverflow(16, 10, 9, 8, Language::English, text));
    EXPECT_TRUE(checkOverflow(32, 16, 12, 12, Language::English, text));
    EXPECT_FALSE(checkOverflow(32, 16, 12, 13, Language::English, text));
    for (std::uint32_t menuBanks : {8u, 64u, 128u}) {
        EXPECT_TRUE(checkOverflow(menuBanks, 5, 4, 4, Language::English, text));
        EXPECT_FALSE(checkOverflow(menuBanks, 6, 4, 4, Language::English, text));
        EXPECT_TRUE(text.contains("List data: 6/5 "));
    }
}

TEST(Validation, EachBoardRefusesARomPastWhatItsMenuCanReach)
{
    LayoutResult layout;
    layout.romBytes = 32u << 20;
    QString text;
    EXPECT_TRUE(checkRomSize(layout, BoardType::Mindkids, Language::English, text));
    layout.romBytes += 16384;
    EXPECT_FALSE(checkRomSize(layout, BoardType::Coolboy, Language::English, text));
    EXPECT_EQ(text, "Final ROM size: 32.016 MB(32784 KB) overflows the maximum limit of 32 MB(32768 KB)!");
    EXPECT_TRUE(checkRomSize(layout, BoardType::Coolgirl, Language::English, text));

    // COOLGIRL's menu gives the board a game's CHR place as a word of 8 KB units.
    layout.romBytes = 512u << 20;
    EXPECT_TRUE(checkRomSize(layout, BoardType::Coolgirl, Language::English, text));
    layout.romBytes += 16384;
    EXPECT_FALSE(checkRomSize(layout, BoardType::Coolgirl, Language::English, text));
    EXPECT_EQ(text, "Final ROM size: 512.016 MB(524304 KB) overflows the maximum limit of 512 MB(524288 KB)!");
}

// 2049 games of 2 MB lie from 2 MB on, so the ROM ends at 4100 MB: in 32 bits that would be 4 MB, which
// both boards take.
TEST(Validation, ListBeyond4GigabytesGetsTheBoardsRefusalWithItsTrueSize)
{
    std::vector<NesImage> games;
    for (std::uint32_t i = 0; i < 2049; ++i)
        games.push_back(imageOf(i, 128, 0));
    for (const auto& [board, refusal] : std::vector<std::pair<BoardType, QString>>{
             {BoardType::Coolboy, "overflows the maximum limit of 32 MB(32768 KB)!"},
             {BoardType::Coolgirl, "overflows the maximum limit of 512 MB(524288 KB)!"}}) {
        const LayoutResult layout = layoutRom(imageOf(9999, 8, 0, 0), games, board);
        EXPECT_EQ(layout.romBytes, 4100ull << 20);
        EXPECT_EQ(layout.uniqueBytes, (4098ull << 20) + (128u << 10));
        const auto byOffset = [](const NesImage& a, const NesImage& b) { return a.prgOffset < b.prgOffset; };
        const auto last = std::max_element(layout.images.begin(), layout.images.end(), byOffset);
        EXPECT_EQ(last->prgOffset, 4098ull << 20);
        QString text;
        EXPECT_FALSE(checkRomSize(layout, board, Language::English, text));
        EXPECT_EQ(text, "Final ROM size: 4100.000 MB(4198400 KB) " + refusal);
    }
}
