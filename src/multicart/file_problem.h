#pragma once

#include "frame/string_table.h"

#include <QFile>
#include <QString>

#include <cstdint>
#include <vector>

namespace zunbrix {

enum class FileProblemKind {
    None,
    Missing,
    NotRegularFile, // a folder, FIFO, device or socket
    ReadFailed,
    NoInesMark,
    Truncated,      // shorter than its header says
    ChangedSinceRead,
    WriteFailed,
};

// What is wrong with one file, as a value: the engine finds it, each front end puts it into words.
struct FileProblem {
    FileProblemKind kind = FileProblemKind::None;
    QString path{};
    QString systemReason{};         // ReadFailed, WriteFailed: the system's own words
    std::uint64_t claimedBytes = 0; // Truncated: what the header says the file holds
    std::uint64_t fileBytes = 0;    // Truncated: what it holds

    explicit operator bool() const { return kind != FileProblemKind::None; }
};

// Missing or not a regular file, from what the file system says of `path`, without opening it (opening a
// FIFO with no writer waits for ever); nothing for a regular file or a link to one.
FileProblem regularFileProblem(const QString& path);

// Opens a regular file for unbuffered reading into `file`; anything else is refused as above.
FileProblem openForReading(QFile& file, const QString& path);

// "<path>: <what is wrong>" in `language`; "" for no problem.
QString describeFileProblem(const FileProblem& problem, Language language);

// A message whose line i names a file at fault, with `problems[i]` described on a line of its own below it;
// lines end in CR LF, as the texts of the table do.
QString withFileProblems(const QString& text, const std::vector<FileProblem>& problems, Language language);

} // namespace zunbrix
