#include "designer/design_file_io.h"

#include "frame/paths.h"

#include <QFile>

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

DesignResult WriteDesignFile(const QString& path, QByteArrayView bytes, Overwrite overwrite)
{
    QFile file(path);
    const QIODevice::OpenMode mode =
        overwrite == Overwrite::Truncate ? QIODevice::WriteOnly | QIODevice::Truncate : QIODevice::ReadWrite;
    if (!file.open(mode) || file.write(bytes.data(), bytes.size()) != bytes.size())
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
