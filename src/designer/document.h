#pragma once

// The one description of the console menu's look that the build and the designer share.

#include "designer/codec.h"
#include "designer/text_entry.h"
#include "designer/text_tiles.h"
#include "designer/tile_entry.h"

#include <QString>

#include <array>
#include <cstdint>
#include <span>

namespace zunbrix {

using ChrBytes = std::array<std::uint8_t, kChrBytes>;
using TileMarks = std::array<std::uint8_t, kTilesPerBank>;

// Screen rows 0-3 palette 0, rows 4-25 palette 1, rows 26-29 palette 2.
inline constexpr AttributeTable kDefaultAttributes = [] {
    AttributeTable table{};
    for (int i = 8; i < 48; ++i)
        table[static_cast<std::size_t>(i)] = 0x55;
    for (int i = 48; i < 56; ++i)
        table[static_cast<std::size_t>(i)] = 0xA5;
    for (int i = 56; i < 64; ++i)
        table[static_cast<std::size_t>(i)] = 0xAA;
    return table;
}();
inline constexpr PaletteBytes kDefaultBkgPalette = {0x0F, 0x24, 0x23, 0x23, 0x0F, 0x21, 0x21, 0x21,
                                                    0x0F, 0x27, 0x22, 0x22, 0x0F, 0x22, 0x22, 0x22};
inline constexpr PaletteBytes kDefaultSpritePalette = {0x0F, 0x20, 0x27, 0x22, 0x0F, 0x24, 0x24, 0x24,
                                                       0x0F, 0x21, 0x21, 0x21, 0x0F, 0x22, 0x22, 0x22};
inline constexpr std::uint32_t kDefaultCaptionPpuAddr = 0x204C;
inline constexpr std::uint32_t kDefaultPageNumberPpuAddr = 0x236D;
inline constexpr std::uint32_t kDefaultItemPpuAddr = 0x20A9;
inline constexpr std::uint8_t kSmallCursorTile = 31;

// The pattern table's two halves.
inline constexpr int kBkgBank = 0;
inline constexpr int kSpriteBank = 1;

// "<games> IN 1": the caption of a menu of `games` games, until the user keeps one of their own.
QString DefaultCaption(qsizetype games);

// Printable ASCII 33..127 draws with the tile of the same number; every other code with tile 0.
CharMap DefaultCharMap();

class DesignDocument {
public:
    // `menuChr` is where the factory tiles come from the first time LoadDesign runs.
    explicit DesignDocument(std::span<const std::uint8_t> menuChr);
    // Takes the factory tiles from the program's own pattern table.
    DesignDocument();

    // The document that the build and the designer of this process share.
    static DesignDocument& process();

    // Fills the document with the whole stored design: the one loader of the build, the export and the
    // windows. Lists are read only while empty; everything else is read anew each time, and a value that
    // is absent or unreadable leaves its field. The caption replaces the field only when one is stored, so
    // callers put the default in first. False when there are no factory tiles to fall back on; the loading
    // stops there.
    bool LoadDesign();

    // The 16 bytes of a tile in kBkgBank or kSpriteBank.
    std::span<std::uint8_t, kTileBytes> tile(int bank, int tile);
    std::span<const std::uint8_t, kTileBytes> tile(int bank, int tile) const;

    void ResetCharMap();
    void resetBkgChr();       // bank 0 from the factory tiles
    void resetSpriteChr();    // bank 1 from the factory tiles
    void resetBkgPalette();
    void resetSpritePalette();
    void resetAttributes();

    ChrBytes ChrData{};
    ChrBytes DefaultChr{};
    AttributeTable Attributes = kDefaultAttributes;
    static constexpr const AttributeTable& DefaultAttributes = kDefaultAttributes;
    PaletteBytes BkgPalette = kDefaultBkgPalette;
    PaletteBytes SpritePalette = kDefaultSpritePalette;
    std::uint32_t CaptionPpuAddr = kDefaultCaptionPpuAddr;
    std::uint32_t PageNumberPpuAddr = kDefaultPageNumberPpuAddr;
    std::uint32_t ItemPpuAddr = kDefaultItemPpuAddr;
    QString CaptionText;
    TileList BkgTileList;
    TileList SpriteTileList;
    TileEntry ArrowTile = defaultArrowTile();   // the small cursor
    TileList ArrowTileList;                      // the big cursor, four sprites when in use
    TextList CustomText;
    CharMap CharMapData = DefaultCharMap();
    std::uint8_t BigSprite = 0;                  // non-zero: sprites are 8x16
    TileMarks SelectedBkgTiles{};
    TileMarks SelectedSpriteTiles{};

private:
    static TileEntry defaultArrowTile();
    bool loadDefaultChr();
    void loadArrowTileList();

    std::span<const std::uint8_t> menuChr_;
    bool defaultChrLoaded_ = false;
};

} // namespace zunbrix
