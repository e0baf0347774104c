#include "multicart/flash_use.h"
#include "synthetic_rom.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

constexpr std::uint32_t kKb = 1024;

GameEntry checkedEntry(const QString& path)
{
    GameEntry entry(path);
    entry.checked = true;
    return entry;
}

} // namespace

// A small menu of COOLBOY ends at 512 KB and the games fill the space before it; an MMC3 game takes 128 KB
// of PRG there however small it is. One file listed twice is on the flash once.
TEST(FlashUse, CoolboyGamesFillTheSpaceBeforeTheMenu)
{
    QTemporaryDir folder;
    const QString mmc3 = writeRom(folder.filePath("mmc3.nes"), {.mapper = 4, .prgBanks = 2, .chrBanks = 1});
    const QString nrom = writeRom(folder.filePath("nrom.nes"), {.mapper = 0, .prgBanks = 2, .chrBanks = 1, .seed = 2});
    std::vector<GameEntry> entries{checkedEntry(mmc3), checkedEntry(mmc3), GameEntry(nrom)};
    const BuildOptions options; // COOLBOY, 128 KB menu

    FlashUse use = plannedFlashUse(entries, options);
    EXPECT_EQ(use.games, 2);
    EXPECT_TRUE(use.boardTakesAll);
    EXPECT_FALSE(use.tooManyGames);
    EXPECT_EQ(use.romBytes, 512 * kKb);
    EXPECT_EQ(use.uniqueBytes, (128 + 8 + 128) * kKb);

    entries[2].checked = true;
    use = plannedFlashUse(entries, options);
    EXPECT_EQ(use.romBytes, 512 * kKb);
    EXPECT_EQ(use.uniqueBytes, (128 + 8 + 32 + 8 + 128) * kKb);
}

// The COOLGIRL menu is planned as 128 KB at the start whatever size is set; games follow it.
TEST(FlashUse, CoolgirlGamesFollowTheMenu)
{
    QTemporaryDir folder;
    const QString nrom = writeRom(folder.filePath("nrom.nes"), {.mapper = 0, .prgBanks = 2, .chrBanks = 1});
    BuildOptions options;
    options.boardType = BoardType::Coolgirl;
    options.menuSize = 32;
    const FlashUse use = plannedFlashUse({checkedEntry(nrom)}, options);
    EXPECT_EQ(use.romBytes, 176 * kKb) << "128 KB menu, 32 KB PRG, 8 KB CHR, on the 16 KB grid";
    EXPECT_EQ(use.uniqueBytes, 168 * kKb);
}

TEST(FlashUse, SaysWhenABuildWouldRefuse)
{
    QTemporaryDir folder;
    const QString mmc1 = writeRom(folder.filePath("mmc1.nes"), {.mapper = 1, .prgBanks = 8, .chrBanks = 1});
    const QString nrom = writeRom(folder.filePath("nrom.nes"), {.mapper = 0, .prgBanks = 1, .chrBanks = 1});
    const BuildOptions coolboy;
    FlashUse use = plannedFlashUse({checkedEntry(mmc1), checkedEntry(nrom)}, coolboy);
    EXPECT_FALSE(use.boardTakesAll);
    EXPECT_EQ(use.games, 2);

    use = plannedFlashUse({GameEntry(nrom)}, coolboy);
    EXPECT_EQ(use.games, 0);
    EXPECT_EQ(use.romBytes, 0u);

    use = plannedFlashUse(std::vector<GameEntry>(kMaxBuildGames + 1, checkedEntry(nrom)), coolboy);
    EXPECT_TRUE(use.tooManyGames);
    EXPECT_EQ(use.games, kMaxBuildGames + 1);
    EXPECT_EQ(use.romBytes, 0u);
}
