#pragma once

#include <QString>

namespace zunbrix::testing {

// Keeps a file from being deleted or renamed until release(), as an old program still running would. On Windows
// the file is held open without sharing deletion. On Linux an open file does not stop deletion: as root, who
// ignores permissions, the file is marked immutable; otherwise its folder is made read-only. Throws when the
// block cannot be set, so that a test never passes without it.
class DeletionBlock {
public:
    explicit DeletionBlock(const QString& path);
    ~DeletionBlock() { release(); }
    DeletionBlock(const DeletionBlock&) = delete;
    DeletionBlock& operator=(const DeletionBlock&) = delete;

    void release();

private:
    QString path_;
    bool held_ = false;
#ifdef _WIN32
    void* handle_ = nullptr;
#else
    bool immutable_ = false;
#endif
};

} // namespace zunbrix::testing
