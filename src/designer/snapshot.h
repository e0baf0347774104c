#pragma once

#include "designer/design_error.h"

#include <QByteArray>
#include <QByteArrayView>

namespace zunbrix {

class DesignEditor;

// The whole undoable state as one buffer: a container record holding the design's records. Show flags and
// the other view switches are not part of it.
QByteArray TakeSnapshot(const DesignEditor& editor);

// Puts a snapshot back. A damaged snapshot is refused and nothing changes. A buffer that is not a snapshot
// at all empties the four lists, as it always has.
DesignResult ApplySnapshot(DesignEditor& editor, QByteArrayView snapshot);

// Whether ApplySnapshot would accept the buffer.
bool IsWholeSnapshot(QByteArrayView snapshot);

} // namespace zunbrix
