#pragma once

#include <QString>

#include <cstdint>

namespace zunbrix {

// Why a design operation was refused. The document is left as it was before the operation in every case.
enum class DesignFault : int {
    None = 0,
    CannotOpen,       // the file can't be opened or its size can't be read
    FileEmpty,        // a file of 0 bytes: nothing to load
    FileTooLarge,     // larger than any design file can be; not read
    RecordTooLarge,   // a record's payload exceeds the field it fills
    RecordMalformed,  // a record contradicts its own size, or is cut short inside a snapshot
    TooManySprites,   // more sprites than the 64 slots of a sprite file
    CannotWrite,      // the file can't be created or written whole
};

// The result of a design operation: the fault, its number for the table of texts, and the file concerned.
struct DesignResult {
    DesignFault fault = DesignFault::None;
    QString path;
    std::uint32_t recordType = 0;  // the offending record, for the record faults

    bool ok() const { return fault == DesignFault::None; }
    int number() const { return static_cast<int>(fault); }
    // English text naming the file and the problem; empty when ok().
    QString message() const;

    static DesignResult failure(DesignFault fault, const QString& path = {}, std::uint32_t recordType = 0)
    {
        return DesignResult{fault, path, recordType};
    }
};

} // namespace zunbrix
