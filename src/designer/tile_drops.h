#pragma once

// What a tile dropped on a tile view does to the banks: a copy, or a move that carries every reference
// along. And a double click on a tile view, which gives the marked entries that tile.

namespace zunbrix {

class DesignDocument;
class DesignEditor;

enum class TileDrop {
    Copy,                 // the target takes the source's pattern
    Move,                 // the source goes blank, and what showed it shows the target
    MoveKeepingSource,    // as Move, but the source keeps its pattern: it stands twice
};

// Tile `from` dropped on tile `to` of the same bank. In the background bank the placed tiles and the
// character map follow a move. In the sprite bank the sprites and the cursors follow it; with 8x16 sprites
// both tiles of the pair move to the pair of `to`, and the references to `from` get the odd tile there.
// Gives the first tile written.
int DropTileInBank(DesignEditor& editor, int bank, int from, int to, TileDrop drop);

// The 16 bytes of one tile copied to a tile of the other bank (or the same).
void CopyTile(DesignDocument& document, int fromBank, int from, int toBank, int to);

// The marked placed tiles show `tile`.
void RetileMarkedBkgTiles(DesignEditor& editor, int tile);
// The marked sprites and the marked cursor sprites show `tile`, its odd tile with 8x16 sprites.
void RetileMarkedSprites(DesignEditor& editor, int tile);

} // namespace zunbrix
