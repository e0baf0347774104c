#include "designer/visible_name_table.h"

#include "designer/design_editor.h"
#include "frame/text_conversion.h"

#include <algorithm>

namespace zunbrix {

namespace {

bool onGrid(const TileEntry& entry)
{
    return entry.x >= 0 && entry.x < kScreenColumns && entry.y >= 0 && entry.y < kScreenRows;
}

} // namespace

NameTable ComposeVisibleNameTable(const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    NameTable table{};

    const TileList& tiles = document.BkgTileList;
    const bool onlySelected =
        editor.ShiftDown && std::any_of(tiles.begin(), tiles.end(), [](const TileEntry& e) { return e.isSelected(); });
    for (const TileEntry& entry : tiles) {
        if (onGrid(entry) && (!onlySelected || entry.isSelected()))
            table[static_cast<std::size_t>(entry.y * kScreenColumns + entry.x)] = entry.tile;
    }

    if (editor.Show_List) {
        const QStringList& lines = editor.sampleList.VisibleLines();
        for (qsizetype i = 0; i < lines.size(); ++i) {
            const qint64 row = qint64{editor.ItemPos.y} + i;
            if (row >= kScreenRows)
                break;
            if (!lines[i].isEmpty())
                DrawTextTiles(table, editor.ItemPos.x, static_cast<int>(row), WideToAnsi(lines[i]),
                              document.CharMapData, Blanks::Drawn);
        }
    }
    if (editor.Show_Custom_Text) {
        for (const TextEntry& text : document.CustomText) {
            if (text.y >= kScreenRows)
                break;
            DrawTextTiles(table, text.x, text.y, WideToAnsi(text.text), document.CharMapData, Blanks::Drawn);
        }
    }
    if (editor.Show_Caption)
        DrawTextTiles(table, editor.CaptionPos.x, editor.CaptionPos.y, WideToAnsi(document.CaptionText),
                      document.CharMapData, Blanks::Drawn);
    return table;
}

} // namespace zunbrix
