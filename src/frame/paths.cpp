#include "frame/paths.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStandardPaths>
#include <QStringList>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace zunbrix {

namespace {

qsizetype lastSeparator(const QString& path)
{
    return std::max(path.lastIndexOf(QLatin1Char('\\')), path.lastIndexOf(QLatin1Char('/')));
}

bool hasDrive(const QString& path)
{
    return path.size() >= 2 && path[1] == QLatin1Char(':') && path[0].isLetter();
}

// The folders of an absolute path, the root or drive first; "." and ".." resolved.
QStringList pathParts(const QString& absolutePath)
{
    const QString clean = QDir::cleanPath(WithForwardSlashes(absolutePath));
    QStringList parts = clean.split(QLatin1Char('/'), Qt::SkipEmptyParts);
    if (!hasDrive(clean))
        parts.prepend(QStringLiteral("/"));
    return parts;
}

bool samePart(const QString& a, const QString& b)
{
#ifdef Q_OS_WIN
    return a.compare(b, Qt::CaseInsensitive) == 0;
#else
    return a == b;
#endif
}

} // namespace

QString ExePath()
{
#ifdef Q_OS_WIN
    wchar_t buffer[32768];
    const DWORD length = GetModuleFileNameW(nullptr, buffer, static_cast<DWORD>(std::size(buffer)));
    return WithForwardSlashes(QString::fromWCharArray(buffer, static_cast<qsizetype>(length)));
#else
    if (QCoreApplication::instance())
        return QCoreApplication::applicationFilePath();
    return QFileInfo(QStringLiteral("/proc/self/exe")).symLinkTarget();
#endif
}

QString ExeFolder()
{
    return FolderOf(ExePath());
}

QString ExeFileName(bool withExtension)
{
    return FileNameOf(ExePath(), withExtension);
}

QString FolderOf(const QString& path)
{
    const qsizetype separator = lastSeparator(path);
    return separator < 0 ? QString() : path.left(separator);
}

QString FileNameOf(const QString& path, bool withExtension)
{
    const QString name = path.mid(lastSeparator(path) + 1);
    if (withExtension)
        return name;
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? name : name.left(dot);
}

QString ExtensionOf(const QString& path, bool withDot)
{
    const QString name = FileNameOf(path, true);
    const qsizetype dot = name.lastIndexOf(QLatin1Char('.'));
    if (dot < 0)
        return {};
    return name.mid(withDot ? dot : dot + 1);
}

QString WithForwardSlashes(const QString& path)
{
    QString result = path;
    result.replace(QLatin1Char('\\'), QLatin1Char('/'));
    return result;
}

bool IsRelative(const QString& path)
{
    if (path.startsWith(QLatin1Char('/')) || path.startsWith(QLatin1Char('\\')))
        return false;
    return !hasDrive(path);
}

QString AbsolutePath(const QString& path)
{
    return AbsolutePathFrom(ExeFolder(), path);
}

QString AbsolutePathFrom(const QString& folder, const QString& path)
{
    if (path.isEmpty())
        return folder;
    if (!IsRelative(path))
        return WithForwardSlashes(path);
    QString relative = WithForwardSlashes(path);
    if (relative.startsWith(QLatin1String("./")))
        relative.remove(0, 2);
    return folder + QLatin1Char('/') + relative;
}

std::optional<QString> RelativePath(const QString& fromFolder, const QString& to)
{
    const QStringList from = pathParts(AbsolutePath(fromFolder));
    const QStringList target = pathParts(AbsolutePath(to));
    if (from.isEmpty() || target.isEmpty() || !samePart(from.first(), target.first()))
        return std::nullopt;
    qsizetype common = 1;
    while (common < from.size() && common < target.size() && samePart(from[common], target[common]))
        ++common;
    QStringList relative;
    for (qsizetype i = common; i < from.size(); ++i)
        relative += QStringLiteral("..");
    if (relative.isEmpty())
        relative += QStringLiteral(".");
    relative += target.mid(common);
    return relative.join(QLatin1Char('/'));
}

QString KnownFolder(KnownFolderId id)
{
    switch (id) {
    case KnownFolderId::LocalAppData:
        // AppData\Local on Windows, ~/.local/share elsewhere.
        return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    }
    return {};
}

bool CreateFolders(const QString& path)
{
    return !path.isEmpty() && QDir().mkpath(WithForwardSlashes(path));
}

bool DeleteFolder(const QString& path)
{
    const QString folder = WithForwardSlashes(path);
    return FolderExists(folder) && QDir(folder).removeRecursively();
}

bool FileExists(const QString& path)
{
    const QFileInfo info(WithForwardSlashes(path));
    return info.exists() && !info.isDir();
}

bool FolderExists(const QString& path)
{
    return !path.isEmpty() && QFileInfo(WithForwardSlashes(path)).isDir();
}

bool DeleteFileQuiet(const QString& path)
{
    const QString file = WithForwardSlashes(path);
    const QFileInfo info(file);
    if (!info.exists() && !info.isSymLink())
        return true;
    return !info.isDir() && QFile::remove(file);
}

bool IsSameFile(const QString& a, const QString& b)
{
    // The system compares the files themselves (device and file number), so hard links count as well.
    std::error_code error;
    return std::filesystem::equivalent(std::filesystem::path(WithForwardSlashes(a).toStdU16String()),
                                       std::filesystem::path(WithForwardSlashes(b).toStdU16String()), error) &&
           !error;
}

} // namespace zunbrix
