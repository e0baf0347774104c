#pragma once

#include <QByteArray>
#include <QByteArrayView>

#include <cstdint>
#include <vector>

namespace zunbrix {

class DesignDocument;
class DesignEditor;

// The designer's state in the settings store, under the design's key.

// When the designer opens: its own values, the document (LoadDesign), the text field, the undo history and
// the last work state. The result is LoadDesign's: false when there are no factory tiles.
bool OpenDesigner(DesignEditor& editor);

// When the designer closes: everything back to the store. The last work state is written before texts
// lying wholly off the screen are dropped, so they come back at the next open. False when the key can't
// be created; the values after the history are then not written.
bool CloseDesigner(DesignEditor& editor);

// The two check boxes that store their value the moment they change.
void StoreBigCursor(const DesignEditor& editor);
void StoreBigSprite(const DesignDocument& document);

// The stored form of the history: each snapshot behind a header of its own.
QByteArray HistoryDataListBytes(const std::vector<QByteArray>& snapshots);
// Snapshots from the start up to the first entry that is not one or is cut short. A damaged snapshot is
// left out and the others are kept; `shownIndex`, a place in the stored list, moves down past those left
// out before it, so that it names the same snapshot or, if that one was left out, the one after it.
std::vector<QByteArray> ReadHistoryDataList(QByteArrayView data, std::uint32_t& shownIndex);

} // namespace zunbrix
