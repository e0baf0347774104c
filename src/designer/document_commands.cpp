#include "designer/document_commands.h"

#include "designer/clamped_position.h"
#include "designer/design_editor.h"
#include "designer/design_persistence.h"
#include "designer/undo_history.h"

#include <algorithm>

namespace zunbrix {

namespace {

// What the arrows act on: the selection when it is partial, otherwise the whole list.
template <typename Change>
void forChosenEntries(TileList& list, Change change)
{
    const auto selected = std::count_if(list.begin(), list.end(), [](const TileEntry& e) { return e.isSelected(); });
    const bool partial = selected > 0 && selected < static_cast<std::ptrdiff_t>(list.size());
    for (TileEntry& entry : list) {
        if (!partial || entry.isSelected())
            change(entry);
    }
}

void moveChosenEntries(DesignEditor& editor, TileList DesignDocument::*list, int dx, int dy)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        forChosenEntries(document.*list, [&](TileEntry& entry) {
            entry.x = ClampToPosition(std::int64_t{entry.x} + dx);
            entry.y = ClampToPosition(std::int64_t{entry.y} + dy);
        });
    });
}

void selectAll(DesignEditor& editor, TileList DesignDocument::*list, bool shown)
{
    if (!shown)
        return;
    AsUndoStep(editor, [&](DesignDocument& document) {
        for (TileEntry& entry : document.*list)
            entry.setSelected(true);
    });
}

void invertSelection(DesignEditor& editor, TileList DesignDocument::*list, bool shown)
{
    if (!shown)
        return;
    AsUndoStep(editor, [&](DesignDocument& document) {
        for (TileEntry& entry : document.*list)
            entry.flags ^= TileEntry::kSelected;
    });
}

void blankMarkedTiles(DesignDocument& document, int bank, TileMarks& marks)
{
    for (int tile = 0; tile < kTilesPerBank; ++tile) {
        if (marks[static_cast<std::size_t>(tile)] == 0)
            continue;
        std::ranges::fill(document.tile(bank, tile), 0);
        marks[static_cast<std::size_t>(tile)] = 0;
    }
}

} // namespace

void ResetEverything(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetAll(); });
}

void ResetNameTableSection(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetNameTable(); });
}

void ResetCustomTexts(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetCustomText(); });
}

void ResetAttributeTable(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetAttributes(); });
}

void ResetBkgChr(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) { document.resetBkgChr(); });
}

void ResetSpriteChr(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) { document.resetSpriteChr(); });
}

void ResetBkgPalette(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) { document.resetBkgPalette(); });
}

void ResetSpritePalette(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) { document.resetSpritePalette(); });
}

void ResetBkgTileList(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetBkgTiles(); });
}

void ResetSpriteList(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.resetSprites(); });
}

void ResetCharacterMap(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) { document.ResetCharMap(); });
}

void SwapChrBanks(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) {
        std::swap_ranges(document.ChrData.begin(), document.ChrData.begin() + kBankBytes,
                         document.ChrData.begin() + kBankBytes);
    });
}

void SetBigCursor(DesignEditor& editor, bool on)
{
    AsUndoStep(editor, [&](DesignDocument&) { editor.BigCursor = on ? 1 : 0; });
    StoreBigCursor(editor);
}

void SetBigSprite(DesignEditor& editor, bool on)
{
    AsUndoStep(editor, [&](DesignDocument& document) {
        document.BigSprite = on ? 1 : 0;
        editor.layOutBigCursor();
    });
    StoreBigSprite(editor.document());
}

void SelectAllBkgTiles(DesignEditor& editor)
{
    selectAll(editor, &DesignDocument::BkgTileList, editor.Show_Bg_Tile);
}

void InvertBkgTileSelection(DesignEditor& editor)
{
    invertSelection(editor, &DesignDocument::BkgTileList, editor.Show_Bg_Tile);
}

void SelectAllSprites(DesignEditor& editor)
{
    selectAll(editor, &DesignDocument::SpriteTileList, editor.Show_Sp_Tile);
}

void InvertSpriteSelection(DesignEditor& editor)
{
    invertSelection(editor, &DesignDocument::SpriteTileList, editor.Show_Sp_Tile);
}

void MoveBkgTiles(DesignEditor& editor, int dx, int dy)
{
    moveChosenEntries(editor, &DesignDocument::BkgTileList, dx, dy);
}

void MoveSprites(DesignEditor& editor, int dx, int dy)
{
    moveChosenEntries(editor, &DesignDocument::SpriteTileList, dx, dy);
}

void SwapSpriteHalves(DesignEditor& editor)
{
    if (editor.document().BigSprite == 0)
        return;
    AsUndoStep(editor, [](DesignDocument& document) {
        forChosenEntries(document.SpriteTileList, [](TileEntry& entry) { entry.tile ^= 1; });
    });
}

void SetSpriteFlipBit(DesignEditor& editor, std::uint8_t bit, bool on)
{
    const auto apply = [&](TileEntry& entry) {
        entry.flip = static_cast<std::uint8_t>(on ? entry.flip | bit : entry.flip & ~bit);
    };
    AsUndoStep(editor, [&](DesignDocument& document) {
        for (TileEntry& sprite : document.SpriteTileList) {
            if (sprite.isSelected())
                apply(sprite);
        }
        if (editor.BigCursor != 0) {
            for (TileEntry& sprite : document.ArrowTileList) {
                if (sprite.isSelected())
                    apply(sprite);
            }
        } else if (document.ArrowTile.isSelected()) {
            apply(document.ArrowTile);
        }
    });
}

bool FlipBitsEnabled(const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    const auto anySelected = [](const TileList& list) {
        return std::any_of(list.begin(), list.end(), [](const TileEntry& e) { return e.isSelected(); });
    };
    if (anySelected(document.SpriteTileList))
        return true;
    return editor.BigCursor != 0 ? anySelected(document.ArrowTileList) : document.ArrowTile.isSelected();
}

void AddCustomText(DesignEditor& editor)
{
    AsUndoStep(editor, [&](DesignDocument&) {
        if (editor.CustomTextEdit.isEmpty())
            return;
        TextEntry text;
        text.text = editor.CustomTextEdit;
        editor.addText(text);
    });
}

void DeleteSelection(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) {
        std::erase_if(document.SpriteTileList, [](const TileEntry& e) { return e.isSelected(); });
        std::erase_if(document.BkgTileList, [](const TileEntry& e) { return e.isSelected(); });
        blankMarkedTiles(document, kBkgBank, document.SelectedBkgTiles);
        blankMarkedTiles(document, kSpriteBank, document.SelectedSpriteTiles);
    });
}

void SelectCursor(DesignEditor& editor)
{
    AsUndoStep(editor, [](DesignDocument& document) {
        for (TileEntry& sprite : document.ArrowTileList)
            sprite.setSelected(true);
        document.ArrowTile.setSelected(true);
    });
}

} // namespace zunbrix
