#pragma once

// Text on the name table: each 8-bit character is drawn as the tile the character map gives it.

#include "designer/codec.h"

#include <QByteArrayView>

#include <cstdint>
#include <span>

namespace zunbrix {

inline constexpr int kCharMapBytes = 256;
using CharMap = std::array<std::uint8_t, kCharMapBytes>;
using NameTable = std::array<std::uint8_t, kNameTableBytes>;

enum class Blanks {
    Transparent, // a blank leaves the cell beneath as it is
    Drawn,       // a blank is drawn like any other character
};

// Calls draw(column, row, tile) for each character of `text`, 8-bit text as WideToAnsi makes it, that lands on
// the screen from cell (column, row): a negative column drops as many characters from the front and starts at
// column 0; characters at column 32 or beyond are left out; a row outside 0..29 gives nothing.
template <class DrawTile>
void ForEachTextTile(int column, int row, QByteArrayView text, std::span<const std::uint8_t, kCharMapBytes> charMap,
                     Blanks blanks, DrawTile draw)
{
    if (row < 0 || row >= kScreenRows || column >= kScreenColumns)
        return;
    qsizetype first = 0;
    if (column < 0) {
        first = -static_cast<qsizetype>(column);
        column = 0;
    }
    for (qsizetype i = first; i < text.size() && column < kScreenColumns; ++i, ++column) {
        const auto code = static_cast<std::uint8_t>(text[i]);
        if (code != ' ' || blanks == Blanks::Drawn)
            draw(column, row, charMap[code]);
    }
}

// Writes the tiles of `text` into the name table, as ForEachTextTile places them.
void DrawTextTiles(NameTable& nameTable, int column, int row, QByteArrayView text,
                   std::span<const std::uint8_t, kCharMapBytes> charMap, Blanks blanks);

} // namespace zunbrix
