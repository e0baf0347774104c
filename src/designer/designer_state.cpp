#include "designer/designer_state.h"

#include "designer/document.h"

#include <algorithm>

namespace zunbrix {

namespace {

// The menu prints ASCII upper case only, and a line is never empty on screen.
QString cleanListLine(const QString& name)
{
    if (name.isEmpty())
        return QStringLiteral(" ");
    QString line = name;
    for (QChar& c : line) {
        if (c.unicode() >= 'a' && c.unicode() <= 'z')
            c = QChar(c.unicode() - 'a' + 'A');
        else if (c.unicode() >= 128)
            c = QLatin1Char('?');
    }
    return line;
}

void fillVisibleLines(DesignerState& state)
{
    state.VisibleLines.clear();
    const int end = std::min<qsizetype>(state.AllLines.size(), state.ListPageFirst + state.ListPageSize);
    for (int i = state.ListPageFirst; i < end; ++i) {
        state.VisibleLines.append(state.AllLines[i]);
        if (state.DoubleSpaced)
            state.VisibleLines.append(QString());
    }
    if (state.AllLines.isEmpty()) {
        state.PageNumberText = QStringLiteral("1/1");
        return;
    }
    const int pages = PageCount(state);
    const int width = static_cast<int>(QString::number(pages).size());
    const int page = state.ListPageFirst / state.ListPageSize + 1;
    state.PageNumberText = QStringLiteral("%1/%2").arg(page, width, 10, QLatin1Char('0')).arg(pages);
}

std::int32_t clampTo(std::int32_t value, std::int32_t low, std::int32_t high)
{
    return std::clamp(value, low, high);
}

} // namespace

void SetCaption(DesignDocument& document, DesignerState& state, const QString& text)
{
    document.CaptionText = text;
    state.CaptionEdit = text;
}

void SetList(DesignerState& state, const QStringList& names, int pageSize, bool doubleSpaced)
{
    state.AllLines.clear();
    for (const QString& name : names)
        state.AllLines.append(cleanListLine(name));
    // A page holds at least one line; a page size of 0 would leave no page to count.
    state.ListPageSize = std::max(pageSize, 1);
    state.ListPageFirst = 0;
    state.DoubleSpaced = doubleSpaced;
    fillVisibleLines(state);
}

void SetShowPageNumber(DesignerState& state, bool show)
{
    state.ShowPageNumber = show;
}

int PageCount(const DesignerState& state)
{
    if (state.AllLines.isEmpty() || state.ListPageSize <= 0)
        return 0;
    return static_cast<int>((state.AllLines.size() + state.ListPageSize - 1) / state.ListPageSize);
}

bool ShowFirstPage(DesignerState& state)
{
    state.ListPageFirst = 0;
    fillVisibleLines(state);
    return true;
}

bool ShowPreviousPage(DesignerState& state)
{
    if (state.ListPageFirst - state.ListPageSize < 0)
        return false;
    state.ListPageFirst -= state.ListPageSize;
    fillVisibleLines(state);
    return true;
}

bool ShowNextPage(DesignerState& state)
{
    if (state.ListPageFirst + state.ListPageSize >= state.AllLines.size())
        return false;
    state.ListPageFirst += state.ListPageSize;
    fillVisibleLines(state);
    return true;
}

bool ShowLastPage(DesignerState& state)
{
    const int lines = static_cast<int>(state.AllLines.size());
    state.ListPageFirst = lines > 0 ? (lines - 1) / state.ListPageSize * state.ListPageSize : 0;
    fillVisibleLines(state);
    return true;
}

int TileNumberAt(const EditorPos& pos)
{
    return std::max(pos.y * 16 + pos.x, 0);
}

EditorPos TilePosOf(int tile)
{
    return EditorPos{tile & 15, tile >> 4};
}

void BuildDefaultBigCursor(DesignDocument& document, const DesignerState& state)
{
    constexpr std::uint8_t kCursorTiles[4] = {2, 3, 18, 19};
    document.ArrowTileList.clear();
    for (int i = 0; i < 4; ++i) {
        TileEntry entry;
        entry.id = i;
        entry.tile = kCursorTiles[i];
        entry.x = state.ItemPos.x * 8 - 18;
        entry.y = state.ItemPos.y * 8 - 4;
        document.ArrowTileList.push_back(entry);
    }
    LayOutBigCursor(document);
}

void LayOutBigCursor(DesignDocument& document)
{
    auto& cursor = document.ArrowTileList;
    if (cursor.size() != 4)
        return;
    cursor[0].x = clampTo(cursor[0].x, 0, 255);
    cursor[0].y = clampTo(cursor[0].y, 1, 239);
    const std::int32_t x = cursor[0].x;
    const std::int32_t y = cursor[0].y;
    const std::int32_t below = document.BigSprite ? 16 : 8;
    cursor[1].x = x + 8;
    cursor[1].y = y;
    cursor[2].x = x;
    cursor[2].y = y + below;
    cursor[3].x = x + 8;
    cursor[3].y = y + below;
}

void RecomputeSelectedColor(const DesignDocument& document, DesignerState& state)
{
    const int cell = state.AttrCellPos.x + state.AttrCellPos.y * 8;
    if (cell >= 0 && cell < 64)
        state.AttrByte = document.Attributes[cell];
    state.AttrViewPos = EditorPos{state.AttrQuadPos.x % 2, state.AttrQuadPos.y % 2};
    const int quadrant = state.AttrViewPos.x + state.AttrViewPos.y * 2;
    const int palette = quadrant >= 0 ? (state.AttrByte >> (2 * quadrant)) & 3 : 0;
    state.BkgPalettePos.x = palette * 4 + 1;
    const std::uint8_t color = document.BkgPalette[state.BkgPalettePos.x];
    state.ColorPos = EditorPos{color & 15, color >> 4};
}

void ResetCountersToListSizes(const DesignDocument& document, DesignerState& state)
{
    state.BkgTileCounter = static_cast<std::int32_t>(document.BkgTileList.size());
    state.SpriteTileCounter = static_cast<std::int32_t>(document.SpriteTileList.size());
    state.TextCounter = static_cast<std::int32_t>(document.CustomText.size());
}

} // namespace zunbrix
