// libFuzzer target: any bytes read as a snapshot, as a record file of each kind or as a stored history
// must be taken or refused, never crash, hang or leak; a snapshot of what was taken applies back unchanged.
// Then the commands that compute with stored positions run on it, which must stay clear of overflow.
#include "designer/char_mapping.h"
#include "designer/design_editor.h"
#include "designer/design_persistence.h"
#include "designer/document_commands.h"
#include "designer/plain_design_files.h"
#include "designer/record_file.h"
#include "designer/snapshot.h"
#include "designer/tile_tools.h"
#include "designer/visible_name_table.h"

#include <cstddef>
#include <cstdint>

using namespace zunbrix;

namespace {

void runPositionCommands(DesignEditor& editor)
{
    editor.SetList({QStringLiteral("FIRST GAME"), QStringLiteral("SECOND GAME")}, 1, true);
    editor.SetShowPageNumber(true);
    AutoMapUsedCharacters(editor);
    AutoMapAllCharacters(editor);
    CopyGlyphsToBkgTiles(editor);
    CopyGlyphsToSpriteTiles(editor);
    BuildLineRects(editor);
    for (const int step : {1, -1}) {
        MoveBkgTiles(editor, step, -step);
        MoveSprites(editor, 8 * step, -8 * step);
    }
    CopyMarkedBkgToSprite(editor);
    CopyMarkedSpriteToBkg(editor);
    SpritesToSingleHeight(editor);
    SelectAllBkgTiles(editor);
    BkgTilesToSprites(editor);
    // Shift loads from the selected tile on; the file need not exist for the place to be worked out.
    editor.ShiftDown = true;
    LoadTiles(editor, TileBank::Background, QStringLiteral("/nonexistent/tiles.chr"));
    LoadTiles(editor, TileBank::Sprites, QStringLiteral("/nonexistent/tiles.chr"));
    ComposeVisibleNameTable(editor);
    editor.storePpuAddresses();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArrayView bytes(reinterpret_cast<const char*>(data) + 1, static_cast<qsizetype>(size - 1));
    DesignDocument document;
    DesignEditor editor(document);
    editor.beginEditing();

    switch (data[0] % 5) {
    case 0: ApplySnapshot(editor, bytes); break;
    case 1: ApplyRecordFile(RecordFileKind::Menu, editor, bytes); break;
    case 2: ApplyRecordFile(RecordFileKind::NameTablePage, editor, bytes); break;
    case 3: ApplyRecordFile(RecordFileKind::TextList, editor, bytes); break;
    default: {
        std::uint32_t shownIndex = 0;
        for (const QByteArray& snapshot : ReadHistoryDataList(bytes, shownIndex))
            ApplySnapshot(editor, snapshot);
        break;
    }
    }

    // As the designer keeps them: a big cursor of four sprites and the colour taken from the attributes.
    if (document.ArrowTileList.empty())
        editor.buildDefaultBigCursor();
    editor.recomputeSelectedColor();
    const QByteArray taken = TakeSnapshot(editor);
    DesignDocument otherDocument;
    DesignEditor other(otherDocument);
    // The attribute byte is window state: a selected cell off the table keeps the byte taken before.
    other.AttrByte = editor.AttrByte;
    if (!ApplySnapshot(other, taken).ok() || TakeSnapshot(other) != taken)
        __builtin_trap();

    runPositionCommands(editor);
    return 0;
}
