#pragma once

#include <QFile>
#include <QString>
#include <QTemporaryDir>

#include <cstddef>
#include <cstdint>

namespace zunbrix::testing {

// A folder of the fuzz run's own, for readers that take a path.
inline const QTemporaryDir& FuzzFolder()
{
    static const QTemporaryDir folder;
    return folder;
}

// The fuzz input written over the file `name` in that folder; its path.
inline QString FuzzInputFile(const QString& name, const std::uint8_t* data, std::size_t size)
{
    const QString path = FuzzFolder().filePath(name);
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(reinterpret_cast<const char*>(data), static_cast<qint64>(size)) != static_cast<qint64>(size))
        __builtin_trap();
    return path;
}

} // namespace zunbrix::testing
