#include "designer/document.h"

#include "menu/art/menu_chr.h"

#include <algorithm>

namespace zunbrix {

QString DefaultCaption(qsizetype games)
{
    return QStringLiteral("%1 IN 1").arg(games);
}

CharMap DefaultCharMap()
{
    CharMap map{};
    for (int code = 33; code <= 127; ++code)
        map[static_cast<std::size_t>(code)] = static_cast<std::uint8_t>(code);
    return map;
}

DesignDocument::DesignDocument(std::span<const std::uint8_t> menuChr)
    : menuChr_(menuChr)
{
}

DesignDocument::DesignDocument()
    : DesignDocument(MenuChr())
{
}

DesignDocument& DesignDocument::process()
{
    static DesignDocument document;
    return document;
}

TileEntry DesignDocument::defaultArrowTile()
{
    TileEntry entry;
    entry.tile = kSmallCursorTile;
    return entry;
}

std::span<std::uint8_t, kTileBytes> DesignDocument::tile(int bank, int tile)
{
    return std::span<std::uint8_t, kChrBytes>(ChrData).subspan(static_cast<std::size_t>(bank * kBankBytes + tile * kTileBytes)).first<kTileBytes>();
}

std::span<const std::uint8_t, kTileBytes> DesignDocument::tile(int bank, int tile) const
{
    return std::span<const std::uint8_t, kChrBytes>(ChrData).subspan(static_cast<std::size_t>(bank * kBankBytes + tile * kTileBytes)).first<kTileBytes>();
}

void DesignDocument::ResetCharMap()
{
    CharMapData = DefaultCharMap();
}

void DesignDocument::resetBkgChr()
{
    std::copy_n(DefaultChr.begin(), kBankBytes, ChrData.begin());
}

void DesignDocument::resetSpriteChr()
{
    std::copy_n(DefaultChr.begin() + kBankBytes, kBankBytes, ChrData.begin() + kBankBytes);
}

void DesignDocument::resetBkgPalette()
{
    BkgPalette = kDefaultBkgPalette;
}

void DesignDocument::resetSpritePalette()
{
    SpritePalette = kDefaultSpritePalette;
}

void DesignDocument::resetAttributes()
{
    Attributes = kDefaultAttributes;
}

} // namespace zunbrix
