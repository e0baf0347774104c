#pragma once

#include "designer/design_error.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace zunbrix {

class DesignEditor;

// The designer's record files: sections of the design as tagged records.
enum class RecordFileKind {
    Menu,           // .qvm: the whole design
    NameTablePage,  // .qvc: background tiles, attributes, positions, caption, cursor and texts
    TextList,       // .qvt: the texts with the caption and its place
};

QByteArray RecordFileBytes(RecordFileKind kind, const DesignEditor& editor);

// Reads a record file's content into the design, up to its last whole record. A record that doesn't fit
// its field is refused and the design stays as it was. `path` only names the file in a refusal.
DesignResult ApplyRecordFile(RecordFileKind kind, DesignEditor& editor, QByteArrayView data,
                             const QString& path = {});

// A 16 KB image of the PPU's memory: both tile banks, a name table at `nameTableOffset`, its attribute
// table and both palettes. Data of any other size changes nothing.
void ApplyPpuMemoryImage(DesignEditor& editor, QByteArrayView data, int nameTableOffset);

// The Save and Load buttons: `filter` is the number (from 1) of the file type chosen in the dialog. A load
// is one undo step.
DesignResult SaveRecordFile(RecordFileKind kind, const DesignEditor& editor, const QString& path, int filter);
DesignResult LoadRecordFile(RecordFileKind kind, DesignEditor& editor, const QString& path, int filter);

} // namespace zunbrix
