#include "designer/text_tiles.h"

namespace zunbrix {

void DrawTextTiles(NameTable& nameTable, int column, int row, QByteArrayView text,
                   std::span<const std::uint8_t, kCharMapBytes> charMap, Blanks blanks)
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
        if (code == ' ' && blanks == Blanks::Transparent)
            continue;
        nameTable[static_cast<std::size_t>(row * kScreenColumns + column)] = charMap[code];
    }
}

} // namespace zunbrix
