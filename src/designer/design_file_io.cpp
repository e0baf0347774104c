#include "designer/design_file_io.h"

#include "frame/paths.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>

namespace zunbrix {

DesignResult DesignFileSize(const QString& path, qint64& size)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return DesignResult::failure(DesignFault::CannotOpen, path);
    size = file.size();
    if (size <= 0)
        return DesignResult::failure(DesignFault::FileEmpty, path);
    return {};
}

DesignResult ReadWholeDesignFile(const QString& path, QByteArray& out)
{
    qint64 size = 0;
    if (DesignResult sized = DesignFileSize(path, size); !sized.ok())
        return sized;
    if (size > kLargestDesignFileBytes)
        return DesignResult::failure(DesignFault::FileTooLarge, path);
    return ReadDesignFileStart(path, size, out);
}

DesignResult ReadDesignFileStart(const QString& path, qint64 maxBytes, QByteArray& out)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return DesignResult::failure(DesignFault::CannotOpen, path);
    if (file.size() <= 0)
        return DesignResult::failure(DesignFault::FileEmpty, path);
    out = file.read(std::min(maxBytes, file.size()));
    if (out.isEmpty())
        return DesignResult::failure(DesignFault::CannotOpen, path);
    return {};
}

namespace {

// The part of the old file past the new bytes, which a save over it keeps.
bool copyOldTail(const QString& path, qint64 from, QSaveFile& out)
{
    QFile old(path);
    if (!old.exists())
        return true;
    if (!old.open(QIODevice::ReadOnly) || !old.seek(std::min(from, old.size())))
        return false;
    constexpr qint64 kPieceBytes = 1 << 20;
    while (!old.atEnd()) {
        const QByteArray piece = old.read(kPieceBytes);
        if (piece.isEmpty() || out.write(piece) != piece.size())
            return false;
    }
    return true;
}

} // namespace

DesignResult WriteDesignFile(const QString& path, QByteArrayView bytes, Overwrite overwrite)
{
    // Written beside the old file and put in its place only when whole: a failed save leaves the old file.
    QSaveFile out(path);
    const bool written = out.open(QIODevice::WriteOnly) && out.write(bytes.data(), bytes.size()) == bytes.size() &&
                         (overwrite == Overwrite::Truncate || copyOldTail(path, bytes.size(), out)) && out.commit();
    if (!written)
        return DesignResult::failure(DesignFault::CannotWrite, path);
    return {};
}

QString PathWithSaveExtension(const QString& path, const char* filterPattern)
{
    const QString filterExtension = ExtensionOf(QString::fromLatin1(filterPattern), false);
    if (ExtensionOf(path, false).compare(filterExtension, Qt::CaseInsensitive) == 0)
        return path;
    return path + QLatin1Char('.') + filterExtension;
}

} // namespace zunbrix
