#include "designer/export.h"

#include "frame/generated_text.h"
#include "frame/text_conversion.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <string>

namespace zunbrix {

namespace {

constexpr int kSpriteScreenHeight = 240;
constexpr int kSpriteScreenWidth = 256;

std::string_view bytesOf(std::span<const std::uint8_t> bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

std::string ppuAddressEquate(const char* name, std::uint32_t address)
{
    std::string text;
    appendFormat(text, "%s = $%04X", name, address);
    return text;
}

// The caption as 8-bit text, cut where the screen's row ends.
QByteArray captionText(const DesignDocument& design)
{
    QByteArray caption = WideToAnsi(design.CaptionText);
    const int column = PpuColumn(design.CaptionPpuAddr);
    if (column + caption.size() > kScreenColumns)
        caption.truncate(kScreenColumns - column);
    return caption;
}

std::string bigCursorBytes(const TileList& arrows)
{
    std::string bytes;
    for (const TileEntry& arrow : arrows)
        bytes += bytesOf(SpriteMemoryBytes(arrow));
    return bytes;
}

// Sprites off the screen stay in the design but are left out here.
std::string spriteList(const TileList& sprites)
{
    std::string text;
    for (const TileEntry& sprite : sprites) {
        if (sprite.y <= 0 || sprite.y >= kSpriteScreenHeight || sprite.x < 0 || sprite.x >= kSpriteScreenWidth)
            continue;
        const auto bytes = SpriteMemoryBytes(sprite);
        appendFormat(text, " .DB $%.2X,$%.2X,$%.2X,$%.2X\r\n", unsigned{bytes[0]}, unsigned{bytes[1]},
                     unsigned{bytes[2]}, unsigned{bytes[3]});
    }
    return text;
}

// The background tiles on the grid, then the free texts over them; a blank in a text lets the tile show.
NameTable exportNameTable(const DesignDocument& design)
{
    NameTable nameTable{};
    for (const TileEntry& tile : design.BkgTileList) {
        if (tile.x >= 0 && tile.x < kScreenColumns && tile.y >= 0 && tile.y < kScreenRows)
            nameTable[static_cast<std::size_t>(tile.y * kScreenColumns + tile.x)] = tile.tile;
    }
    for (const TextEntry& text : design.CustomText)
        DrawTextTiles(nameTable, text.x, text.y, WideToAnsi(text.text), design.CharMapData, Blanks::Transparent);
    return nameTable;
}

CharMap identityCharMap()
{
    CharMap map{};
    std::iota(map.begin(), map.end(), std::uint8_t{0});
    return map;
}

} // namespace

bool exportMenuData(const DesignDocument& design, const QString& folder, bool customEnable)
{
    const auto write = [&](std::string_view name, std::string_view bytes) {
        return writeWholeFile(filePathIn(folder, name), bytes);
    };
    if (!write("game_caption_addr.asm", ppuAddressEquate("TITLE_SHOW_POS", design.CaptionPpuAddr)))
        return false;
    const QByteArray caption = captionText(design);
    if (!caption.isEmpty()) {
        if (!write("game_caption_data.asm", " .STR " + quotedString(caption.toStdString())))
            return false;
    }
    const CharMap charMap = customEnable ? design.CharMapData : identityCharMap();
    return write("game_page_number_addr.asm", ppuAddressEquate("PAGE_INDER_SHOW_POS", design.PageNumberPpuAddr))
        && write("game_item_addr.asm", ppuAddressEquate("ITEM_SHOW_POS", design.ItemPpuAddr))
        && write("game_big_arrow_data.bin", bigCursorBytes(design.ArrowTileList))
        && write("game_attributes_data.bin", bytesOf(design.Attributes))
        && write("game_bkg_palette_data.bin", bytesOf(design.BkgPalette))
        && write("game_sprite_palette_data.bin", bytesOf(design.SpritePalette))
        && write("game_sprite_list.asm", spriteList(design.SpriteTileList))
        && write("game_name_table.bin", bytesOf(exportNameTable(design)))
        && write("custom_chr_data.bin", bytesOf(design.ChrData))
        && write("char_mapping.bin", bytesOf(charMap));
}

} // namespace zunbrix
