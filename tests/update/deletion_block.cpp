#include "deletion_block.h"

#include <QFile>
#include <QFileInfo>

#include <stdexcept>

#ifdef _WIN32
#include <windows.h>
#else
#include <fcntl.h>
#include <unistd.h>
#ifdef __linux__
#include <linux/fs.h>
#include <sys/ioctl.h>
#endif
#endif

namespace zunbrix::testing {

namespace {

#ifdef __linux__
bool setImmutable(const QString& path, bool on)
{
    const int fd = ::open(QFile::encodeName(path).constData(), O_RDONLY);
    if (fd < 0)
        return false;
    int flags = 0;
    bool done = ::ioctl(fd, FS_IOC_GETFLAGS, &flags) == 0;
    if (done) {
        flags = on ? flags | FS_IMMUTABLE_FL : flags & ~FS_IMMUTABLE_FL;
        done = ::ioctl(fd, FS_IOC_SETFLAGS, &flags) == 0;
    }
    ::close(fd);
    return done;
}
#endif

#ifndef _WIN32
const QFile::Permissions kReadOnlyFolder = QFile::ReadOwner | QFile::ExeOwner;
const QFile::Permissions kWritableFolder = kReadOnlyFolder | QFile::WriteOwner;
#endif

} // namespace

DeletionBlock::DeletionBlock(const QString& path) : path_(path)
{
#ifdef _WIN32
    handle_ = CreateFileW(reinterpret_cast<const wchar_t*>(path.utf16()), GENERIC_READ, FILE_SHARE_READ, nullptr,
                          OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    held_ = handle_ != INVALID_HANDLE_VALUE;
#else
#ifdef __linux__
    if (::geteuid() == 0) {
        immutable_ = true;
        held_ = setImmutable(path, true);
    }
#endif
    if (!immutable_)
        held_ = QFile::setPermissions(QFileInfo(path).absolutePath(), kReadOnlyFolder);
#endif
    if (!held_)
        throw std::runtime_error("cannot keep " + path.toStdString() + " from deletion");
}

void DeletionBlock::release()
{
    if (!held_)
        return;
    held_ = false;
#ifdef _WIN32
    CloseHandle(handle_);
#else
#ifdef __linux__
    if (immutable_) {
        setImmutable(path_, false);
        return;
    }
#endif
    QFile::setPermissions(QFileInfo(path_).absolutePath(), kWritableFolder);
#endif
}

} // namespace zunbrix::testing
