#include "gamelist/list_columns.h"

#include "multicart/validation.h"
#include "frame/text_format.h"

namespace zunbrix {

namespace {

QString yesNo(bool value, int yesId, int noId, Language language)
{
    return StringTable::Get(value ? yesId : noId, language);
}

QString sizeText(std::uint32_t count, int kbPerBank)
{
    const auto banks = static_cast<long long>(count);
    return FormatText(QStringLiteral("%2d (%0.3dKB)"), {banks, banks * kbPerBank});
}

// The board's reason, tested on the entry's own sizes (NES 2.0's upper bits counted) so that it explains the
// mark, which is made from them too.
QString unfitReason(const GameEntry& entry, int row, BoardType board, Language language)
{
    std::vector<NesImage> game{NesImage::fromHeader(entry)};
    NesImage& image = game.front();
    image.listIndex = static_cast<std::uint32_t>(row);
    image.name = entry.name;
    image.setPrgBanks(entry.prgBanks());
    image.setChrBanks(entry.chrBanks());
    image.setPrgLayoutBanks(entry.prgBanks());
    image.setChrLayoutBanks(entry.chrBanks());
    normaliseChr(game);
    return unsupportedReason(image, board, language);
}

} // namespace

QString ListCellText(const GameEntry& entry, int row, int column, Language language)
{
    switch (column) {
    case kNumberColumn:
        return QString::number(row + 1);
    case kNameColumn:
        return entry.name;
    case 2:
        return sizeText(entry.prgBanks(), 16);
    case 3:
        return sizeText(entry.chrBanks(), 8);
    case 4:
        return QString::number(entry.mapper());
    case 5:
        return yesNo(entry.verticalMirroring(), 133, 134, language);
    case 6:
        return yesNo(entry.battery(), 135, 136, language);
    case 7:
        return yesNo(entry.hasTrainer(), 135, 136, language);
    case kCoolboyColumn:
        return yesNo(entry.coolboyFit, 333, 334, language);
    case kCoolgirlColumn:
        return yesNo(entry.coolgirlFit, 333, 334, language);
    case kRemarkColumn:
        return entry.remark;
    case kPathColumn:
        return entry.path;
    default:
        return {};
    }
}

QString ListCellToolTip(const GameEntry& entry, int row, int column, Language language)
{
    if (column == kCoolboyColumn && !entry.coolboyFit)
        return unfitReason(entry, row, BoardType::Coolboy, language);
    if (column == kCoolgirlColumn && !entry.coolgirlFit)
        return unfitReason(entry, row, BoardType::Coolgirl, language);
    return {};
}

} // namespace zunbrix
