#include "designer/text_tiles.h"

namespace zunbrix {

void DrawTextTiles(NameTable& nameTable, int column, int row, QByteArrayView text,
                   std::span<const std::uint8_t, kCharMapBytes> charMap, Blanks blanks)
{
    ForEachTextTile(column, row, text, charMap, blanks, [&nameTable](int x, int y, std::uint8_t tile) {
        nameTable[static_cast<std::size_t>(y * kScreenColumns + x)] = tile;
    });
}

} // namespace zunbrix
