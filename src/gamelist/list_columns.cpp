#include "gamelist/list_columns.h"

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

} // namespace

QString ListCellText(const GameEntry& entry, int row, int column, Language language)
{
    switch (column) {
    case 0:
        return QString::number(row + 1);
    case 1:
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
    case 8:
        return yesNo(entry.coolboyFit, 333, 334, language);
    case 9:
        return yesNo(entry.coolgirlFit, 333, 334, language);
    case 10:
        return entry.remark;
    case 11:
        return entry.path;
    default:
        return {};
    }
}

} // namespace zunbrix
