#pragma once

#include "multicart/file_problem.h"
#include "multicart/layout.h"

#include <QByteArray>
#include <QString>

#include <atomic>
#include <cstdint>

namespace zunbrix {

// How a write ended. On failure `problem` names the source or output file at fault and says why; it is
// empty when the layout itself can't be written (no bytes, or images that overlap or run past the end).
struct RomWriteResult {
    bool ok = false;
    FileProblem problem;
};

// Writes `start`, the flash image made from the source files at the layout's offsets, and then
// `erasedTailBytes` of erased flash to a temporary file beside `path`, and renames it into place only when
// complete, so a failure leaves any earlier file at `path` as it was. Bytes no image covers are FF. A
// source that can't be read, or no longer holds the data it held when it was loaded, fails the write (of
// several, the first in the layout's order is named); so does `stop` when it is set before the file is
// complete. The sources are read on every core while the flash goes to the disk piece by piece.
RomWriteResult writeFlashFile(const LayoutResult& layout, const QString& path, const QByteArray& start,
                              std::uint64_t erasedTailBytes, const std::atomic<bool>* stop = nullptr);

} // namespace zunbrix
