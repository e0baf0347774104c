#pragma once

#include "gamelist/list_columns.h"
#include "multicart/nes_image.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace zunbrix {

// A new order of the list: element n is the row, before, of the entry that goes to row n.
using ListOrder = std::vector<std::size_t>;

// Where the checked entries lie: the first and the last checked row, and how many are checked.
struct CheckedRows {
    std::size_t first = 0;
    std::size_t last = 0;
    int count = 0;
};
// Nothing when no entry is checked.
std::optional<CheckedRows> FindCheckedRows(const std::vector<GameEntry>& entries);

// Each checked entry one row up, past the unchecked entry above it; the first checked row is not row 0.
ListOrder CheckedMovedUp(const std::vector<GameEntry>& entries, const CheckedRows& checked);
// Each checked entry one row down; the last checked row is not the list's last.
ListOrder CheckedMovedDown(const std::vector<GameEntry>& entries, const CheckedRows& checked);
// The checked entries gathered at the top or at the bottom, the order of both kinds kept.
ListOrder CheckedGathered(const std::vector<GameEntry>& entries, bool atTop);

// The list sorted by a column's key, ascending, or that order reversed; names, remarks and paths compare
// folded to upper case. Without a key only the reversal is left.
ListOrder SortedBy(const std::vector<GameEntry>& entries, ListSortKey key, bool descending);

} // namespace zunbrix
