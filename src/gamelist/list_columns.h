#pragma once

#include "multicart/nes_image.h"
#include "frame/string_table.h"

#include <QString>

#include <array>

namespace zunbrix {

enum class ColumnAlignment { Left, Centre, Right };

struct ListColumn {
    int titleTextId;
    int width; // device-independent units
    ColumnAlignment alignment;
};

// The game list's twelve columns, in their order: number, file name, PRG, CHR, mapper, mirroring, battery,
// trainer, COOLBOY fit, COOLGIRL fit, remark, file path.
inline constexpr std::array<ListColumn, 12> kListColumns{{
    {143, 64, ColumnAlignment::Right},
    {137, 256, ColumnAlignment::Left},
    {138, 96, ColumnAlignment::Right},
    {139, 96, ColumnAlignment::Right},
    {141, 72, ColumnAlignment::Right},
    {142, 72, ColumnAlignment::Centre},
    {140, 90, ColumnAlignment::Centre},
    {283, 50, ColumnAlignment::Centre},
    {331, 32, ColumnAlignment::Centre},
    {332, 32, ColumnAlignment::Centre},
    {281, 256, ColumnAlignment::Left},
    {282, 256, ColumnAlignment::Left},
}};

// The text of one cell of row `row` (from 0) in `column`.
QString ListCellText(const GameEntry& entry, int row, int column, Language language);

} // namespace zunbrix
