#pragma once

#include <cstdint>

namespace zunbrix {

class DesignEditor;

// The designer's commands on the whole design, each one undo step unless it says otherwise. A command
// whose guard fails does nothing and adds no step. The resets here are the buttons' own; a wider reset
// runs the editor's resets inside its single step.

void ResetEverything(DesignEditor& editor);
void ResetNameTableSection(DesignEditor& editor);
void ResetCustomTexts(DesignEditor& editor);
void ResetAttributeTable(DesignEditor& editor);
void ResetBkgChr(DesignEditor& editor);
void ResetSpriteChr(DesignEditor& editor);
void ResetBkgPalette(DesignEditor& editor);
void ResetSpritePalette(DesignEditor& editor);
void ResetBkgTileList(DesignEditor& editor);
void ResetSpriteList(DesignEditor& editor);
void ResetCharacterMap(DesignEditor& editor);

// Exchanges the background and sprite banks.
void SwapChrBanks(DesignEditor& editor);

// Check boxes that are stored the moment they change.
void SetBigCursor(DesignEditor& editor, bool on);
void SetBigSprite(DesignEditor& editor, bool on);

// Only while the list is shown.
void SelectAllBkgTiles(DesignEditor& editor);
void InvertBkgTileSelection(DesignEditor& editor);
void SelectAllSprites(DesignEditor& editor);
void InvertSpriteSelection(DesignEditor& editor);

// The arrows. Only the selected entries move when some but not all are selected, otherwise all of them;
// nothing keeps them on the screen. Background tiles move by cells, sprites by pixels.
void MoveBkgTiles(DesignEditor& editor, int dx, int dy);
void MoveSprites(DesignEditor& editor, int dx, int dy);
// With 8x16 sprites only: the sprites chosen as by the arrows take the other tile of their pair.
void SwapSpriteHalves(DesignEditor& editor);

// Flip bits of a sprite: vertical, horizontal, behind the background.
namespace flip_bit {
inline constexpr std::uint8_t Vertical = 0x01;
inline constexpr std::uint8_t Horizontal = 0x02;
inline constexpr std::uint8_t BehindBackground = 0x04;
} // namespace flip_bit
// Sets or clears the bit in the selected sprites and the selected cursor sprites.
void SetSpriteFlipBit(DesignEditor& editor, std::uint8_t bit, bool on);
// Whether the flip check boxes can be used: some sprite or cursor sprite is selected.
bool FlipBitsEnabled(const DesignEditor& editor);

// The text field's text as a new text at the top left; nothing when the field is empty.
void AddCustomText(DesignEditor& editor);
// The Delete key: selected sprites and background tiles go, marked tiles are blanked and unmarked.
void DeleteSelection(DesignEditor& editor);
// The middle button: selects every sprite of both cursors.
void SelectCursor(DesignEditor& editor);

} // namespace zunbrix
