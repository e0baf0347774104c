#include "designer/stamping.h"

#include "designer/design_editor.h"
#include "designer/hit_test.h"

namespace zunbrix {
namespace {

constexpr int kStampColumns = 32;
constexpr int kStampRows = 32; // the walk goes below the screen's 30 rows
constexpr std::int64_t kLastStampStep = 959;

bool onStampGrid(Position cell)
{
    return cell.x >= 0 && cell.x < kStampColumns && cell.y >= 0 && cell.y < kStampRows;
}

} // namespace

bool StampBkgTile(DesignEditor& editor)
{
    const std::optional<int> tile = TileOfCell(editor.BkgChrPos);
    if (!tile || !onStampGrid(editor.NameTablePos))
        return false;
    TileEntry entry;
    entry.x = editor.NameTablePos.x;
    entry.y = editor.NameTablePos.y;
    entry.tile = static_cast<std::uint8_t>(*tile);
    editor.addBkgTile(entry);
    AdvanceStampCell(editor);
    return true;
}

bool StampSprite(DesignEditor& editor)
{
    const std::optional<int> tile = TileOfCell(editor.SpChrPos);
    if (!tile || !onStampGrid(editor.NameTablePos) || editor.document().SpriteTileList.size() >= kMostSprites)
        return false;
    TileEntry entry;
    entry.x = editor.NameTablePos.x * 8;
    entry.y = editor.NameTablePos.y * 8;
    entry.tile = static_cast<std::uint8_t>(*tile);
    editor.addSprite(entry);
    AdvanceStampCell(editor);
    return true;
}

void AdvanceStampCell(DesignEditor& editor)
{
    Position& cell = editor.NameTablePos;
    if (std::int64_t{cell.y} * 30 + cell.x >= kLastStampStep)
        return;
    if (++cell.x >= kStampColumns) {
        cell.x = 0;
        ++cell.y;
    }
}

} // namespace zunbrix
