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

// Draws `text`, 8-bit text as WideToAnsi makes it, from cell (column, row). A negative column drops as many
// characters from the front and starts at column 0; characters at column 32 or beyond are not drawn; a row
// outside 0..29 draws nothing.
void DrawTextTiles(NameTable& nameTable, int column, int row, QByteArrayView text,
                   std::span<const std::uint8_t, kCharMapBytes> charMap, Blanks blanks);

} // namespace zunbrix
