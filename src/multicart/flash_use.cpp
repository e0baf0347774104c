#include "multicart/flash_use.h"

#include "multicart/layout.h"
#include "multicart/validation.h"

#include <QHash>

#include <algorithm>

namespace zunbrix {

FlashUse plannedFlashUse(const std::vector<GameEntry>& entries, const BuildOptions& options)
{
    FlashUse use;
    use.games = static_cast<int>(
        std::count_if(entries.begin(), entries.end(), [](const GameEntry& entry) { return entry.checked; }));
    use.tooManyGames = use.games > kMaxBuildGames;
    if (use.games == 0 || use.tooManyGames)
        return use;

    // A number for each file stands in for the checksums of its data.
    QHash<QString, std::uint32_t> fileNumbers;
    std::vector<NesImage> games;
    games.reserve(static_cast<std::size_t>(use.games));
    for (const GameEntry& entry : entries) {
        if (!entry.checked)
            continue;
        NesImage image = NesImage::fromHeader(entry);
        image.listIndex = static_cast<std::uint32_t>(games.size());
        std::uint32_t& fileNumber = fileNumbers[image.path];
        if (fileNumber == 0)
            fileNumber = static_cast<std::uint32_t>(fileNumbers.size());
        image.prgCrc32 = fileNumber;
        image.chrCrc32 = fileNumber;
        games.push_back(std::move(image));
    }

    const BoardType board = options.boardType;
    normaliseChr(games);
    QString badGames;
    use.boardTakesAll = board == BoardType::Coolgirl ? validateCoolgirl(games, Language::English, badGames)
                                                     : validateCoolboy(games, Language::English, badGames);
    if (board != BoardType::Coolgirl)
        normalisePrg(games);
    NesImage menu;
    menu.setPrgBanks(plannedMenuBanks(options));
    menu.setPrgLayoutBanks(plannedMenuBanks(options));
    const LayoutResult layout = layoutRom(menu, std::move(games), board);
    use.romBytes = layout.romBytes;
    use.uniqueBytes = layout.uniqueBytes;
    return use;
}

} // namespace zunbrix
