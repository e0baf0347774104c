#pragma once

// The designer's own state beside the shared document, and the edits that need it: where the caption,
// page number and list sit, the selections of the views, the sample list, the id counters, and the
// resets. Free of windows, so that a window only reads its controls and calls these.

#include "designer/document.h"
#include "designer/sample_list.h"
#include "designer/undo_history.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace zunbrix {

struct Position {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const Position&) const = default;
};

// The tile that the selected cell of a tile view (16 tiles a row) names: 0 for a cell before the bank,
// kTilesPerBank or more for one past its end.
std::int32_t SelectedTile(const Position& cell);

class DesignEditor {
public:
    explicit DesignEditor(DesignDocument& document);

    DesignDocument& document() { return document_; }
    const DesignDocument& document() const { return document_; }

    // What the main window hands over before the designer opens.
    void SetCaption(const QString& text);
    bool SetList(const QStringList& names, int pageSize, bool doubleSpaced);
    void SetShowPageNumber(bool show);

    // After LoadDesign, as the designer opens: the id counters continue after the lists, a big cursor
    // of fewer than four sprites is replaced by the default, and the selected colour is taken.
    void beginEditing();
    // As the designer closes: the PPU addresses follow the caption, page number and list positions.
    void storePpuAddresses();

    // Appends an entry with the next id of its list.
    void addBkgTile(TileEntry entry);
    void addSprite(TileEntry entry);
    void addText(TextEntry entry);

    // Four sprites left of the first list line, laid out.
    void buildDefaultBigCursor();
    void layOutBigCursor();
    // Takes the attribute byte at AttrCellPos, the quadrant in it, the palette entry 1 of that
    // quadrant's palette and its colour in the master palette.
    void recomputeSelectedColor();

    // Caption "<n> IN 1", no texts, caption, page number and list centred, the small cursor before the
    // list, no background tiles, factory attributes and the default big cursor.
    void resetNameTable();
    void resetCustomText();
    void resetBkgTiles();
    void resetSprites();
    void resetAttributes();
    // Everything back to the factory state.
    void resetAll();

    Position CaptionPos{12, 2};
    Position PageNumberPos{13, 27};
    Position ItemPos{9, 5};
    Position AttrCellPos;
    Position AttrQuadPos;   // 0..15, 0..14
    Position AttrViewPos{1, 0};
    Position BkgPalettePos{1, 0};
    Position SpPalettePos;
    Position ColorPos;      // index & 15, index >> 4
    Position BkgChrPos;
    Position SpChrPos;
    Position BkgZoomPos;
    Position SpZoomPos;
    Position MapCharPos;
    Position FontCharPos;
    Position NameTablePos;
    std::uint8_t BigCursor = 0; // non-zero: the menu's cursor is the big one
    std::uint8_t AttrByte = 0;
    // The master palette writes SpritePalette, else BkgPalette; the strip it writes has the focus frame.
    bool PaletteFocus = false;

    bool FillColor = false;
    bool DrawLine = false;
    bool DragText = false;
    bool Show_Bg_Tile = true;
    bool Show_Sp_Tile = true;
    bool Show_List = true;
    bool Show_Custom_Text = true;
    bool Show_Caption = true;
    bool Show_Cursor = true;
    bool ShowPageNumber = false;

    SampleList sampleList;

    // The next id of each list; ids are not reused after a delete.
    std::int32_t BkgTileCounter = 0;
    std::int32_t SpriteTileCounter = 0;
    std::int32_t TextCounter = 0;

    // Window state outside the snapshots: the Shift key as the file commands see it, the quick modes of
    // the character strips and the canvas, and the cursor mark.
    bool ShiftDown = false;
    bool QuickFromBg = false;
    bool QuickToBg = false;
    bool QuickToSp = false;
    bool QuickStamp = false;
    bool MarkCursor = false;
    // The texts of the caption field (kept as the caption when the designer closes) and of the field
    // that "Add" takes a text from; the path last chosen in a file dialog.
    QString CaptionEdit;
    QString CustomTextEdit;
    QString CurrentFilePath;
    UndoHistory history;

private:
    void takeAttrByte();

    DesignDocument& document_;
};

} // namespace zunbrix
