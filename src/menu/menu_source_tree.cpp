#include "menu/menu_source_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace zunbrix {

namespace {

// Makes the folder with all its parents; on failure says which and why.
ExtractResult makeFolder(const QString& folder)
{
    std::error_code error;
    std::filesystem::create_directories(std::filesystem::path(folder.toStdU16String()), error);
    if (error)
        return {false, folder, QString::fromLocal8Bit(error.message())};
    return {true, {}, {}};
}

ExtractResult writeRow(const QString& workFolder, const MenuSourceFile& row)
{
    const QString path = workFolder + QLatin1Char('/') + QLatin1String(row.relativePath);
    if (ExtractResult made = makeFolder(QFileInfo(path).path()); !made.ok)
        return made;
    QFile file(path);
    const auto size = static_cast<qint64>(row.bytes.size());
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) ||
        file.write(reinterpret_cast<const char*>(row.bytes.data()), size) != size || !file.flush())
        return {false, path, file.errorString()};
    file.close();
    if (row.executable &&
        !file.setPermissions(file.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser |
                             QFileDevice::ExeGroup | QFileDevice::ExeOther))
        return {false, path, file.errorString()};
    return {true, {}, {}};
}

} // namespace

ExtractResult ExtractMenuSources(const QString& workFolder)
{
    ExtractResult result = makeFolder(workFolder);
    for (const MenuSourceFile& row : MenuSourceFiles()) {
        if (!result.ok)
            break;
        result = writeRow(workFolder, row);
    }
    if (result.ok)
        result = makeFolder(workFolder + QLatin1Char('/') + QLatin1String(kMenuBuildFolder));
    if (!result.ok)
        RemoveWorkFolder(workFolder);
    return result;
}

bool RemoveWorkFolder(const QString& workFolder)
{
    if (workFolder.isEmpty()) {
        return true;
    }
    return QDir(workFolder).removeRecursively();
}

} // namespace zunbrix
