#pragma once

#include "designer/design_error.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

namespace zunbrix {

// Reading and writing the designer's files. The dialogs that choose them are the window's business.

// No design file comes near this; a larger file was chosen by mistake and is refused unread.
inline constexpr qint64 kLargestDesignFileBytes = 16 * 1024 * 1024;

// The whole file. Refused when it can't be opened, is empty, or is larger than any design file.
DesignResult ReadWholeDesignFile(const QString& path, QByteArray& out);
// At most the first `maxBytes` of the file; the rest is never read. Refused when it can't be opened or is empty.
DesignResult ReadDesignFileStart(const QString& path, qint64 maxBytes, QByteArray& out);
// The size of the file, or a refusal when it can't be opened or is empty.
DesignResult DesignFileSize(const QString& path, qint64& size);

enum class Overwrite {
    Truncate,  // an older, longer file is cut at the end of what was written
    KeepTail,  // written from the start; an older, longer file keeps its tail
};
DesignResult WriteDesignFile(const QString& path, QByteArrayView bytes, Overwrite overwrite);

// The path to save under: the extension of the chosen filter's pattern ("*.qvm") is appended unless the
// path already has it, compared without regard to case.
QString PathWithSaveExtension(const QString& path, const char* filterPattern);

} // namespace zunbrix
