#pragma once

// The state of a left-button gesture, from the press to the release, and where a dragged tile came from.

namespace zunbrix {

enum class DragMode {
    Idle = 0,
    Caption = 1,
    PageNumber = 2,
    List = 3,
    SmallCursor = 4,
    BigCursor = 5,
    Region = 6,          // choosing a region of the name table, painting attributes
    Quadrant = 7,        // in the attribute byte
    BgPaletteEntry = 8,
    SpPaletteEntry = 9,
    MasterColor = 10,
    BkgTile = 11,
    Sprite = 12,
    CustomText = 13,
    BkgPixels = 14,
    SpritePixels = 15,
    SourceChars = 16,
    TargetChars = 17,
    StampCell = 18,      // walking the cell that quick stamps start from
};

enum class DragSource {
    None = 0,
    NameTable = 1,
    BgChrView = 2,
    SpChrView = 3,
};

} // namespace zunbrix
