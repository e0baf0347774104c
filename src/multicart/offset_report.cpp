#include "multicart/offset_report.h"

#include "frame/generated_text.h"
#include "frame/text_conversion.h"

#include <algorithm>

namespace zunbrix {

namespace {

using OffsetOf = std::uint64_t NesImage::*;

void appendSorted(std::string& text, std::vector<const NesImage*> games, OffsetOf offset, OffsetOf layoutBytes)
{
    std::stable_sort(games.begin(), games.end(),
                     [&](const NesImage* a, const NesImage* b) { return a->*offset < b->*offset; });
    for (const NesImage* game : games) {
        appendFormat(text, "%.4u %.8llX %.6llX %s\r\n", game->listIndex, (unsigned long long)(game->*offset),
                     (unsigned long long)(game->*layoutBytes), WideToAnsi(game->name).constData());
    }
}

} // namespace

bool writeOffsetReport(const std::vector<const NesImage*>& games, const QString& folder)
{
    std::string text = "rom prg offset:\r\n";
    appendSorted(text, games, &NesImage::prgOffset, &NesImage::prgLayoutBytes);
    text += "\r\nrom chr offset:\r\n";
    appendSorted(text, games, &NesImage::chrOffset, &NesImage::chrLayoutBytes);
    return writeWholeFile(filePathIn(folder, "game_prg_chr_offset.txt"), text);
}

} // namespace zunbrix
