#include "menu/menu_source_tree.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace zunbrix {

namespace {

bool writeRow(const QString& workFolder, const MenuSourceFile& row)
{
    const QString path = workFolder + QLatin1Char('/') + QLatin1String(row.relativePath);
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        return false;
    }
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        return false;
    }
    const auto size = static_cast<qint64>(row.bytes.size());
    if (file.write(reinterpret_cast<const char*>(row.bytes.data()), size) != size) {
        return false;
    }
    file.close();
    if (row.executable) {
        return file.setPermissions(file.permissions() | QFileDevice::ExeOwner | QFileDevice::ExeUser |
                                   QFileDevice::ExeGroup | QFileDevice::ExeOther);
    }
    return true;
}

} // namespace

bool ExtractMenuSources(const QString& workFolder)
{
    for (const MenuSourceFile& row : MenuSourceFiles()) {
        if (!writeRow(workFolder, row)) {
            RemoveWorkFolder(workFolder);
            return false;
        }
    }
    if (!QDir().mkpath(workFolder + QLatin1Char('/') + QLatin1String(kMenuBuildFolder))) {
        RemoveWorkFolder(workFolder);
        return false;
    }
    return true;
}

bool RemoveWorkFolder(const QString& workFolder)
{
    if (workFolder.isEmpty()) {
        return true;
    }
    return QDir(workFolder).removeRecursively();
}

} // namespace zunbrix
