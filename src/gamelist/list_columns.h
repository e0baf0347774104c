#pragma once

#include "multicart/nes_image.h"
#include "frame/string_table.h"

#include <QString>

#include <array>

namespace zunbrix {

enum class ColumnAlignment { Left, Centre, Right };

// What a click on a column's header sorts the list by.
enum class ListSortKey { None, Name, PrgBanks, ChrBanks, Mapper, Mirroring, Battery, Trainer, Remark, Path };

struct ListColumn {
    int titleTextId;
    int width; // device-independent units
    ColumnAlignment alignment;
    ListSortKey sortKey;
};

inline constexpr int kListColumnCount = 12;
// The columns that the list's operations name.
inline constexpr int kNumberColumn = 0; // also the check box
inline constexpr int kNameColumn = 1;
inline constexpr int kCoolboyColumn = 8;
inline constexpr int kCoolgirlColumn = 9;
inline constexpr int kRemarkColumn = 10;
inline constexpr int kPathColumn = 11;

// The game list's twelve columns, in their order: number, file name, PRG, CHR, mapper, mirroring, battery,
// trainer, COOLBOY fit, COOLGIRL fit, remark, file path. The COOLBOY column sorts by the remark and the two
// columns after it sort nothing: that is how the program has always sorted, and users know it so.
inline constexpr std::array<ListColumn, kListColumnCount> kListColumns{{
    {143, 64, ColumnAlignment::Right, ListSortKey::None},
    {137, 256, ColumnAlignment::Left, ListSortKey::Name},
    {138, 96, ColumnAlignment::Right, ListSortKey::PrgBanks},
    {139, 96, ColumnAlignment::Right, ListSortKey::ChrBanks},
    {141, 72, ColumnAlignment::Right, ListSortKey::Mapper},
    {142, 72, ColumnAlignment::Centre, ListSortKey::Mirroring},
    {140, 90, ColumnAlignment::Centre, ListSortKey::Battery},
    {283, 50, ColumnAlignment::Centre, ListSortKey::Trainer},
    {331, 32, ColumnAlignment::Centre, ListSortKey::Remark},
    {332, 32, ColumnAlignment::Centre, ListSortKey::None},
    {281, 256, ColumnAlignment::Left, ListSortKey::None},
    {282, 256, ColumnAlignment::Left, ListSortKey::Path},
}};

// The text of one cell of row `row` (from 0) in `column`.
QString ListCellText(const GameEntry& entry, int row, int column, Language language);

// Why the board of a COOLBOY or COOLGIRL cell that reads "NO" can't take the game, as the line of the board's
// check; "" for any other cell.
QString ListCellToolTip(const GameEntry& entry, int row, int column, Language language);

} // namespace zunbrix
