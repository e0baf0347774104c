#pragma once

#include "gamelist/list_columns.h"
#include "multicart/nes_image.h"

#include <array>
#include <vector>

namespace zunbrix {

// Widths of the list's twelve columns in pixels; -1 where none is known.
using ColumnWidths = std::array<int, kListColumnCount>;

// Keeps the list and the column widths in the settings store (value Data under Software\Zunbrix\History),
// as the text of a list file with a section list_view added. True when the value was written.
bool SaveHistory(const std::vector<GameEntry>& entries, const ColumnWidths& widths);

struct HistoryLoadResult {
    bool found = false;           // the store held a history
    bool exceedsCapacity = false; // it held more entries than the list had room for: warn with text 192
    ColumnWidths widths;          // -1 for a width the history did not hold
};

// Appends the stored list to `entries` and gives the stored column widths. Without a stored history nothing
// changes and `found` is false.
HistoryLoadResult LoadHistory(std::vector<GameEntry>& entries);

} // namespace zunbrix
