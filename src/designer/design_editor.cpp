#include "designer/design_editor.h"

#include "designer/big_cursor.h"
#include "designer/clamped_position.h"

#include <algorithm>

namespace zunbrix {
namespace {

constexpr int kLongestCentredLine = 30;
constexpr std::int32_t kCaptionRow = 2;
constexpr std::int32_t kPageNumberRow = 27;
constexpr std::int32_t kFirstListRow = 5;

std::int32_t centredColumn(qsizetype length)
{
    return static_cast<std::int32_t>((kScreenColumns - length) / 2);
}

} // namespace

std::int32_t SelectedTile(const Position& cell)
{
    return std::max(ScaledPosition(cell.y, 16, cell.x), 0);
}

DesignEditor::DesignEditor(DesignDocument& document)
    : AttrByte(document.Attributes[0])
    , document_(document)
{
}

void DesignEditor::SetCaption(const QString& text)
{
    document_.CaptionText = text;
    CaptionEdit = text;
}

bool DesignEditor::SetList(const QStringList& names, int pageSize, bool doubleSpaced)
{
    return sampleList.SetList(names, pageSize, doubleSpaced);
}

void DesignEditor::SetShowPageNumber(bool show)
{
    ShowPageNumber = show;
}

void DesignEditor::beginEditing()
{
    BkgTileCounter = static_cast<std::int32_t>(document_.BkgTileList.size());
    SpriteTileCounter = static_cast<std::int32_t>(document_.SpriteTileList.size());
    TextCounter = static_cast<std::int32_t>(document_.CustomText.size());
    if (document_.ArrowTileList.size() < kBigCursorSprites)
        buildDefaultBigCursor();
    recomputeSelectedColor();
}

void DesignEditor::storePpuAddresses()
{
    document_.CaptionPpuAddr = PpuAddress(CaptionPos.x, CaptionPos.y);
    document_.PageNumberPpuAddr = PpuAddress(PageNumberPos.x, PageNumberPos.y);
    document_.ItemPpuAddr = PpuAddress(ItemPos.x, ItemPos.y);
}

void DesignEditor::addBkgTile(TileEntry entry)
{
    entry.id = BkgTileCounter++;
    document_.BkgTileList.push_back(entry);
}

void DesignEditor::addSprite(TileEntry entry)
{
    entry.id = SpriteTileCounter++;
    document_.SpriteTileList.push_back(entry);
}

void DesignEditor::addText(TextEntry entry)
{
    entry.id = TextCounter++;
    document_.CustomText.push_back(std::move(entry));
}

void DesignEditor::buildDefaultBigCursor()
{
    document_.ArrowTileList = EditorDefaultBigCursor(ItemPos.x, ItemPos.y, document_.BigSprite != 0);
}

void DesignEditor::layOutBigCursor()
{
    LayOutBigCursor(document_.ArrowTileList, document_.BigSprite != 0);
}

void DesignEditor::takeAttrByte()
{
    const std::int64_t cell = std::int64_t{AttrCellPos.x} + std::int64_t{AttrCellPos.y} * 8;
    if (cell >= 0 && cell < kAttributeBytes)
        AttrByte = document_.Attributes[static_cast<std::size_t>(cell)];
}

void DesignEditor::recomputeSelectedColor()
{
    takeAttrByte();
    AttrViewPos = {AttrQuadPos.x & 1, AttrQuadPos.y & 1};
    const int quadrant = AttrViewPos.x + AttrViewPos.y * 2;
    const int palette = (AttrByte >> (quadrant * 2)) & 3;
    BkgPalettePos.x = palette * 4 + 1;
    const std::uint8_t color = document_.BkgPalette[static_cast<std::size_t>(BkgPalettePos.x)];
    ColorPos = {color & 15, color >> 4};
}

void DesignEditor::resetNameTable()
{
    // The field too: it is what the close stores and the snapshots keep.
    SetCaption(DefaultCaption(sampleList.AllLines().size()));
    resetCustomText();
    CaptionPos = {centredColumn(document_.CaptionText.size()), kCaptionRow};
    PageNumberPos = {centredColumn(sampleList.PageNumberText().size()), kPageNumberRow};
    ItemPos = {centredColumn(std::min(sampleList.longestLineLength(), kLongestCentredLine)), kFirstListRow};

    TileEntry& arrow = document_.ArrowTile;
    arrow.x = ItemPos.x * 8 - 10;
    arrow.y = ItemPos.y * 8;
    arrow.tile = kSmallCursorTile;
    arrow.flip = 0;
    // A list as wide as the screen would put the cursor left of it; keep it on the screen.
    ClampCursorSprite(arrow);

    takeAttrByte();
    resetBkgTiles();
    document_.resetAttributes();
    buildDefaultBigCursor();
}

void DesignEditor::resetCustomText()
{
    document_.CustomText.clear();
    TextCounter = 0;
}

void DesignEditor::resetBkgTiles()
{
    document_.BkgTileList.clear();
    BkgTileCounter = 0;
}

void DesignEditor::resetSprites()
{
    document_.SpriteTileList.clear();
    SpriteTileCounter = 0;
}

void DesignEditor::resetAttributes()
{
    document_.resetAttributes();
    recomputeSelectedColor();
}

void DesignEditor::resetAll()
{
    BkgPalettePos = {1, 0};
    SpPalettePos = {1, 0};
    document_.SelectedBkgTiles.fill(0);
    document_.SelectedSpriteTiles.fill(0);
    document_.ResetCharMap();
    resetNameTable();
    document_.resetBkgPalette();
    document_.resetSpritePalette();
    resetBkgTiles();
    document_.resetBkgChr();
    document_.resetSpriteChr();
    resetSprites();
}

} // namespace zunbrix
