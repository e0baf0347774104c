#pragma once

#include <cstdint>

namespace zunbrix {

// How the menu lays out its list of names: one of the two built-in looks, or the designer's look with the
// list where the design puts it.
struct ListLook {
    int showStyle = 0;                   // the built-in look, 0 or 1
    int pageSize = 10;                   // games a page
    bool nameInsertRow = false;          // an empty row between two names
    bool custom = false;                 // the designer's look
    std::uint32_t customItemPpuAddr = 0; // the designer's list: name table address of its first name
};

// The screen row of the page's first name, 0 at the top; outside 0 to 29 for a list that is not on the
// screen at all.
int listFirstRow(const ListLook& look);

// Whether the menu can draw a whole page of this look: each row is in the menu's table of row addresses
// (21 rows, 15 with a blank row between names) and on the screen's 30 rows. A page that fails would write
// names over the colours, the other name table or the font; a build refuses it, and a window greys the
// choices that lead to it.
bool canDrawList(const ListLook& look);

} // namespace zunbrix
