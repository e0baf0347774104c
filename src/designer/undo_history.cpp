#include "designer/undo_history.h"

#include "designer/design_editor.h"
#include "designer/snapshot.h"

namespace zunbrix {

namespace {

DesignResult showSnapshot(DesignEditor& editor, std::uint32_t index)
{
    // Copied first: applying changes the state that owns the history.
    const QByteArray snapshot = editor.history.HistoryList[index];
    return ApplySnapshot(editor, snapshot);
}

} // namespace

void UndoBegin(DesignEditor& editor, bool record)
{
    if (record)
        editor.history.PendingSnapshot = TakeSnapshot(editor);
}

void UndoCommit(DesignEditor& editor, bool record)
{
    UndoHistory& history = editor.history;
    if (!record || history.PendingSnapshot.isEmpty())
        return;
    QByteArray now = TakeSnapshot(editor);
    if (now == history.PendingSnapshot)
        return;
    auto& list = history.HistoryList;
    if (history.HistoryIndex + 1 < list.size())
        list.erase(list.begin() + history.HistoryIndex + 1, list.end());
    // The last snapshot was the present state; the one taken before this edit stands for it now.
    if (!list.empty())
        list.pop_back();
    list.push_back(history.PendingSnapshot);
    history.HistoryIndex = static_cast<std::uint32_t>(list.size());
    history.undoEnabled = true;
    history.redoEnabled = false;
    list.push_back(std::move(now));
}

void AsUndoStep(DesignEditor& editor, const std::function<void(DesignDocument&)>& edit)
{
    UndoBegin(editor, true);
    edit(editor.document());
    UndoCommit(editor, true);
}

DesignResult Undo(DesignEditor& editor)
{
    UndoHistory& history = editor.history;
    const auto size = history.HistoryList.size();
    if (size == 0 || history.HistoryIndex >= size)
        return {};
    const std::uint32_t previous = history.HistoryIndex;
    if (history.HistoryIndex != 0)
        --history.HistoryIndex;
    const DesignResult applied = showSnapshot(editor, history.HistoryIndex);
    if (!applied.ok()) {
        history.HistoryIndex = previous;
        return applied;
    }
    if (history.HistoryIndex == 0)
        history.undoEnabled = false;
    history.redoEnabled = true;
    return {};
}

DesignResult Redo(DesignEditor& editor)
{
    UndoHistory& history = editor.history;
    const auto size = history.HistoryList.size();
    if (size == 0 || history.HistoryIndex + 1 >= size)
        return {};
    ++history.HistoryIndex;
    const DesignResult applied = showSnapshot(editor, history.HistoryIndex);
    if (!applied.ok()) {
        --history.HistoryIndex;
        return applied;
    }
    if (history.HistoryIndex != 0)
        history.undoEnabled = true;
    if (history.HistoryIndex == size - 1)
        history.redoEnabled = false;
    return {};
}

void RefreshUndoRedoEnabled(UndoHistory& history)
{
    const auto size = history.HistoryList.size();
    history.undoEnabled = size > 0 && history.HistoryIndex > 0;
    history.redoEnabled = size > 0 && history.HistoryIndex + 1 < size;
}

} // namespace zunbrix
