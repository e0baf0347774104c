#pragma once

#include "designer/design_error.h"

#include <QByteArray>

#include <cstdint>
#include <functional>
#include <vector>

namespace zunbrix {

class DesignDocument;
class DesignEditor;

// A linear history of whole snapshots. The last snapshot is always the present state once a step exists;
// HistoryIndex is the snapshot the editor shows. The two flags are the enabled state of Undo and Redo.
struct UndoHistory {
    std::vector<QByteArray> HistoryList;
    std::uint32_t HistoryIndex = 0;
    QByteArray PendingSnapshot;
    bool undoEnabled = false;
    bool redoEnabled = false;
};

// Brackets an edit. With `record` false both do nothing: the caller's own bracket holds.
void UndoBegin(DesignEditor& editor, bool record);
// Records a step when the state differs from the one taken at UndoBegin; an unchanged state adds none.
void UndoCommit(DesignEditor& editor, bool record);
// Runs `edit` on the editor's document as one step.
void AsUndoStep(DesignEditor& editor, const std::function<void(DesignDocument&)>& edit);

// Step back or forward through the history. A snapshot that can't be applied is refused and the index
// stays where it was.
DesignResult Undo(DesignEditor& editor);
DesignResult Redo(DesignEditor& editor);

// Enables Undo and Redo as they stand after the history was restored at open.
void RefreshUndoRedoEnabled(UndoHistory& history);

} // namespace zunbrix
