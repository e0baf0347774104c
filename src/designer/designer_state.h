#pragma once

#include "designer/undo_history.h"

#include <QString>
#include <QStringList>

#include <cstdint>

namespace zunbrix {

class DesignDocument;

// A position of the editor: a tile cell, a grid cell of a view or a palette entry, by view.
struct EditorPos {
    std::int32_t x = 0;
    std::int32_t y = 0;
    bool operator==(const EditorPos&) const = default;
};

// What the designer window keeps beside the document: its positions, counters, flags, the sample list and
// the undo history. The window only shows these and calls the operations on them.
struct DesignerState {
    EditorPos CaptionPos{12, 2};
    EditorPos PageNumberPos{13, 27};
    EditorPos ItemPos{9, 5};
    EditorPos AttrCellPos;
    EditorPos AttrQuadPos;
    EditorPos AttrViewPos{1, 0};
    EditorPos BkgPalettePos{1, 0};
    EditorPos SpPalettePos;
    EditorPos ColorPos;
    EditorPos BkgChrPos;
    EditorPos SpChrPos;
    EditorPos BkgZoomPos;
    EditorPos SpZoomPos;
    EditorPos MapCharPos;
    EditorPos FontCharPos;
    EditorPos NameTablePos;
    bool BigCursor = false;
    std::uint8_t AttrByte = 0;

    bool FillColor = false;
    bool DrawLine = false;
    bool DragText = false;
    bool Show_Bg_Tile = true;
    bool Show_Sp_Tile = true;
    bool Show_List = true;
    bool Show_Custom_Text = true;
    bool Show_Caption = true;
    bool Show_Cursor = true;

    bool ShiftDown = false;
    bool QuickFromBg = false;
    bool QuickToBg = false;
    bool QuickToSp = false;
    bool QuickStamp = false;
    bool MarkCursor = false;
    bool ShowPageNumber = true;

    QStringList AllLines;
    QStringList VisibleLines;
    int ListPageFirst = 0;
    int ListPageSize = 0;
    bool DoubleSpaced = false;
    QString PageNumberText = QStringLiteral("1/1");

    std::int32_t BkgTileCounter = 0;
    std::int32_t SpriteTileCounter = 0;
    std::int32_t TextCounter = 0;

    // The texts of the caption field and of the field that "Add" takes a custom text from.
    QString CaptionEdit;
    QString CustomTextEdit;
    QString CurrentFilePath;

    UndoHistory history;
};

// Given by the main window before the designer opens.
void SetCaption(DesignDocument& document, DesignerState& state, const QString& text);
void SetList(DesignerState& state, const QStringList& names, int pageSize, bool doubleSpaced);
void SetShowPageNumber(DesignerState& state, bool show);

// Page commands over the sample list; false when refused because the page would leave the list.
bool ShowFirstPage(DesignerState& state);
bool ShowPreviousPage(DesignerState& state);
bool ShowNextPage(DesignerState& state);
bool ShowLastPage(DesignerState& state);

// Number of pages of the sample list, rounded up; 0 without lines or page size.
int PageCount(const DesignerState& state);

// The position of a tile by its number in a 16 by 16 view, and back; negative positions count as tile 0.
int TileNumberAt(const EditorPos& pos);
EditorPos TilePosOf(int tile);

// The editor's default big cursor at the first list line, laid out.
void BuildDefaultBigCursor(DesignDocument& document, const DesignerState& state);
// Places the four sprites of the big cursor as a two by two block after the first one.
void LayOutBigCursor(DesignDocument& document);

// Recomputes AttrByte, AttrViewPos, BkgPalettePos and ColorPos after the attribute position or a load.
void RecomputeSelectedColor(const DesignDocument& document, DesignerState& state);

// The counters follow the list sizes, as when the designer opens.
void ResetCountersToListSizes(const DesignDocument& document, DesignerState& state);

} // namespace zunbrix
