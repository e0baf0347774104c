#include "multicart/layout.h"
#include "multicart/validation.h"
#include "synthetic_rom.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>
#include <tuple>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

constexpr std::uint32_t KB = 1024;

NesImage menuOf(std::uint32_t prgBanks)
{
    NesImage menu = imageOf(0, prgBanks, 0, 0);
    menu.prgCrc32 = 0xFEEDu;
    return menu;
}

const NesImage& gameAt(const LayoutResult& layout, std::uint32_t listIndex)
{
    return *std::find_if(layout.images.begin(), layout.images.end(),
                         [&](const NesImage& image) { return !image.isMenu && image.listIndex == listIndex; });
}

const NesImage& menuIn(const LayoutResult& layout)
{
    return *std::find_if(layout.images.begin(), layout.images.end(), [](const NesImage& image) { return image.isMenu; });
}

// What every layout must hold, whatever order equal sizes end up in: each image placed at a multiple of its
// size, equal data (equal checksum and length) at one place in the room of its largest window, no two copies
// on the same bytes, and the totals that follow.
void expectSoundLayout(const LayoutResult& layout, std::size_t gameCount)
{
    ASSERT_EQ(layout.images.size(), gameCount + 1);
    EXPECT_EQ(std::count_if(layout.images.begin(), layout.images.end(), [](const NesImage& i) { return i.isMenu; }), 1);
    EXPECT_TRUE(std::is_sorted(layout.images.begin(), layout.images.end(),
                               [](const NesImage& a, const NesImage& b) { return a.listIndex < b.listIndex; }));
    struct Copy {
        std::uint64_t offset;
        std::uint64_t room;
    };
    // (PRG?, checksum, data length) of each distinct data, and where its copy lies
    std::map<std::tuple<bool, std::uint32_t, std::uint32_t>, Copy> copyOfData;
    for (const NesImage& image : layout.images) {
        EXPECT_TRUE(image.prgPlaced && image.chrPlaced);
        for (const auto& [isPrg, offset, size, crc, bytes] :
             {std::tuple{true, image.prgOffset, image.prgLayoutBytes, image.prgCrc32, image.prgBytes},
              std::tuple{false, image.chrOffset, image.chrLayoutBytes, image.chrCrc32, image.chrBytes}}) {
            if (size == 0)
                continue;
            EXPECT_EQ(offset % size, 0u) << image.name.toStdString();
            const auto [copy, isNew] = copyOfData.try_emplace({isPrg, crc, bytes}, Copy{offset, size});
            EXPECT_EQ(copy->second.offset, offset) << "equal data stored twice: " << image.name.toStdString();
            copy->second.room = std::max<std::uint64_t>(copy->second.room, size);
        }
    }
    std::vector<Copy> copies;
    std::uint64_t uniqueBytes[2] = {}, end = 0;
    for (const auto& [data, copy] : copyOfData) {
        copies.push_back(copy);
        uniqueBytes[std::get<0>(data)] += copy.room;
        end = std::max(end, copy.offset + copy.room);
    }
    std::sort(copies.begin(), copies.end(), [](const Copy& a, const Copy& b) { return a.offset < b.offset; });
    std::uint64_t coveredEnd = 0;
    for (const Copy& copy : copies) {
        EXPECT_GE(copy.offset, coveredEnd) << "overlap";
        coveredEnd = copy.offset + copy.room;
    }
    EXPECT_EQ(layout.uniquePrgBytes, uniqueBytes[true]);
    EXPECT_EQ(layout.uniqueChrBytes, uniqueBytes[false]);
    EXPECT_EQ(layout.uniqueBytes, uniqueBytes[0] + uniqueBytes[1]);
    EXPECT_EQ(layout.romBytes, (end + 16383) / 16384 * 16384);
}

std::vector<NesImage> randomGames(std::mt19937& random, std::size_t count, BoardType board)
{
    static constexpr std::uint32_t kCoolboySizes[][3] = {{1, 0, 0}, {2, 1, 0}, {2, 1, 4}, {1, 0, 74}, {8, 0, 4},
                                                          {8, 16, 4}, {16, 32, 4}, {32, 16, 74}, {64, 64, 4},
                                                          {128, 0, 4}, {4, 3, 4}};
    static constexpr std::uint32_t kCoolgirlSizes[][3] = {{2, 0, 2}, {1, 1, 3}, {8, 16, 4}, {96, 8, 228},
                                                           {16, 32, 1}, {4, 2, 66}, {128, 64, 4}, {2, 5, 1}};
    std::vector<NesImage> games;
    for (std::uint32_t i = 0; i < count; ++i) {
        const auto& size = board == BoardType::Coolgirl ? kCoolgirlSizes[random() % std::size(kCoolgirlSizes)]
                                                        : kCoolboySizes[random() % std::size(kCoolboySizes)];
        games.push_back(imageOf(i, size[0], size[1], size[2]));
        // Now and then the same file twice, or the same PRG with other CHR (maybe under another mapper).
        if (i > 0 && random() % 8 == 0) {
            games[i] = games[random() % i];
            games[i].listIndex = i;
        } else if (i > 0 && random() % 8 == 0 && games[i - 1].prgBanks == size[0])
            games[i].prgCrc32 = games[i - 1].prgCrc32;
    }
    normaliseChr(games);
    if (board != BoardType::Coolgirl)
        normalisePrg(games);
    return games;
}

} // namespace

TEST(Layout, SmallCoolboyMenuEndsAt512kAndItsHoleFillsFirst)
{
    // 256 + 128 KB fill the 384 KB before the menu; only the rest follows it.
    const std::vector<NesImage> games{imageOf(0, 8, 0), imageOf(1, 16, 0), imageOf(2, 8, 0)};
    const LayoutResult layout = layoutRom(menuOf(8), games, BoardType::Coolboy);
    expectSoundLayout(layout, games.size());
    EXPECT_EQ(menuIn(layout).prgOffset, 393216u);
    EXPECT_EQ(gameAt(layout, 1).prgOffset, 0u);
    std::vector<std::uint64_t> smallOffsets{gameAt(layout, 0).prgOffset, gameAt(layout, 2).prgOffset};
    std::sort(smallOffsets.begin(), smallOffsets.end());
    EXPECT_EQ(smallOffsets, (std::vector<std::uint64_t>{256 * KB, 512 * KB}));
    EXPECT_EQ(layout.romBytes, 640 * KB);
}

TEST(Layout, LargeMenusStartAtZeroAndGamesFollow)
{
    const std::vector<NesImage> games{imageOf(1, 8, 16)};
    for (std::uint32_t menuBanks : {32u, 64u}) {
        const LayoutResult layout = layoutRom(menuOf(menuBanks), games, BoardType::Mindkids);
        expectSoundLayout(layout, 1);
        EXPECT_EQ(menuIn(layout).prgOffset, 0u);
        EXPECT_EQ(gameAt(layout, 1).prgOffset, menuBanks * 16 * KB);
        EXPECT_EQ(gameAt(layout, 1).chrOffset, menuBanks * 16 * KB + 128 * KB);
    }
    EXPECT_TRUE(layoutRom(menuOf(0), games, BoardType::Coolboy).images.empty());
}

TEST(Layout, CoolgirlAlignmentGapTakesChrOnly)
{
    // Menu at 0, cursor at 128 KB: the 256 KB game moves to 256 KB and its CHR takes the gap.
    const std::vector<NesImage> games{imageOf(1, 16, 16)};
    const LayoutResult layout = layoutRom(menuOf(8), games, BoardType::Coolgirl);
    expectSoundLayout(layout, 1);
    EXPECT_EQ(menuIn(layout).prgOffset, 0u);
    EXPECT_EQ(gameAt(layout, 1).prgOffset, 256 * KB);
    EXPECT_EQ(gameAt(layout, 1).chrOffset, 128 * KB);
    EXPECT_EQ(layout.romBytes, 512 * KB);
}

TEST(Layout, SwapScanFillsTheCursorGapWithASmallerGame)
{
    const LayoutResult layout = layoutRom(menuOf(8), {imageOf(1, 16, 0), imageOf(2, 1, 0)}, BoardType::Coolgirl);
    EXPECT_EQ(gameAt(layout, 2).prgOffset, 128 * KB);
    EXPECT_EQ(gameAt(layout, 1).prgOffset, 256 * KB);
    EXPECT_EQ(layout.romBytes, 512 * KB);
}

TEST(Layout, RomEndsOnThe16kGridAndChrRamGamesEndWithPrg)
{
    LayoutResult layout = layoutRom(menuOf(8), {imageOf(1, 1, 1)}, BoardType::Coolgirl);
    EXPECT_EQ(gameAt(layout, 1).chrOffset, 144 * KB);
    EXPECT_EQ(layout.romBytes, 160 * KB);
    layout = layoutRom(menuOf(8), {imageOf(1, 2, 0), imageOf(2, 1, 0)}, BoardType::Coolgirl);
    EXPECT_EQ(layout.romBytes, 176 * KB);
}

TEST(Layout, EqualDataIsStoredOnce)
{
    std::vector<NesImage> games{imageOf(1, 8, 8), imageOf(2, 8, 8), imageOf(3, 8, 8)};
    games[1].prgCrc32 = games[0].prgCrc32; // same file twice
    games[1].chrCrc32 = games[0].chrCrc32;
    games[2].prgCrc32 = games[0].prgCrc32; // same PRG, other CHR
    const LayoutResult layout = layoutRom(menuOf(32), games, BoardType::Coolboy);
    expectSoundLayout(layout, 3);
    EXPECT_EQ(gameAt(layout, 2).prgOffset, gameAt(layout, 1).prgOffset);
    EXPECT_EQ(gameAt(layout, 3).prgOffset, gameAt(layout, 1).prgOffset);
    EXPECT_EQ(gameAt(layout, 2).chrOffset, gameAt(layout, 1).chrOffset);
    EXPECT_NE(gameAt(layout, 3).chrOffset, gameAt(layout, 1).chrOffset);
    EXPECT_EQ(layout.uniquePrgBytes, 512 * KB + 128 * KB);
    EXPECT_EQ(layout.uniqueChrBytes, 128 * KB);

}

TEST(Layout, NromAndMmc3WithTheSamePrgShareOneCopy)
{
    // 32 KB of PRG as an NROM game and as an MMC3 game, whose window COOLBOY raises to 128 KB; the NROM game
    // comes first in the list, and a 256 KB and a 128 KB game compete for the hole before the menu.
    std::vector<NesImage> games{imageOf(0, 2, 1, 0), imageOf(1, 16, 0), imageOf(2, 8, 0), imageOf(3, 2, 1, 4)};
    games[3].prgCrc32 = games[0].prgCrc32;
    normaliseChr(games);
    normalisePrg(games);
    for (std::uint32_t menuBanks : {8u, 32u}) {
        const LayoutResult layout = layoutRom(menuOf(menuBanks), games, BoardType::Coolboy);
        expectSoundLayout(layout, games.size());
        const NesImage& nrom = gameAt(layout, 0);
        const NesImage& mmc3 = gameAt(layout, 3);
        EXPECT_EQ(nrom.prgOffset, mmc3.prgOffset);
        EXPECT_EQ(mmc3.prgOffset % (128 * KB), 0u) << "the copy lies where the larger window can start";
        EXPECT_EQ(nrom.prgLayoutBytes, 32 * KB);
        EXPECT_EQ(layout.uniquePrgBytes, menuBanks * 16 * KB + 256 * KB + 128 * KB + 128 * KB);
    }
}

TEST(Layout, RandomListsGiveSoundAndRepeatableLayouts)
{
    std::mt19937 random(1234);
    for (BoardType board : {BoardType::Coolboy, BoardType::Mindkids, BoardType::Coolgirl}) {
        for (int round = 0; round < 40; ++round) {
            const std::vector<NesImage> games = randomGames(random, 1 + random() % 120, board);
            const NesImage menu = menuOf(std::array{8u, 16u, 32u, 64u}[random() % 4]);
            const LayoutResult layout = layoutRom(menu, games, board);
            expectSoundLayout(layout, games.size());
            const std::uint32_t menuOffset = board != BoardType::Coolgirl && menu.prgLayoutBanks < 32
                                                 ? (32 - menu.prgLayoutBanks) * 16 * KB
                                                 : 0;
            EXPECT_EQ(menuIn(layout).prgOffset, menuOffset);
            // The build lays out twice and relies on both runs agreeing.
            const LayoutResult again = layoutRom(menu, games, board);
            for (std::size_t i = 0; i < layout.images.size(); ++i)
                EXPECT_TRUE(again.images[i].prgOffset == layout.images[i].prgOffset &&
                            again.images[i].chrOffset == layout.images[i].chrOffset);
        }
    }
}
