#include "gamelist/game_files.h"

#include "gamelist/list_file.h"
#include "frame/ini_file.h"
#include "frame/paths.h"

#include <QDir>
#include <QFileInfo>

namespace zunbrix {

namespace {

bool isListFile(const QString& path)
{
    return ExtensionOf(path, false).compare(QLatin1String("qvl"), Qt::CaseInsensitive) == 0;
}

// A dropped folder stands for its games, by name.
QStringList filesNamedBy(const QString& path)
{
    if (!QFileInfo(path).isDir())
        return {path};
    QStringList games;
    const QFileInfoList files =
        QDir(path).entryInfoList({QStringLiteral("*.nes")}, QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& file : files)
        games.push_back(file.absoluteFilePath());
    return games;
}

} // namespace

GameFiles ReadGameFiles(const QStringList& names, int room)
{
    GameFiles files;
    const QString programFolder = ExeFolder();
    for (const QString& name : names) {
        for (const QString& path : filesNamedBy(AbsolutePath(name))) {
            if (files.entries.size() >= static_cast<std::size_t>(std::max(room, 0))) {
                files.exceedsCapacity = true;
                return files;
            }
            if (isListFile(path)) {
                IniFile ini(path, true);
                if (!ini.Load())
                    ++files.skipped;
                else if (LoadListFile(ini, files.entries, room).exceedsCapacity)
                    files.exceedsCapacity = true;
                continue;
            }
            GameEntry entry(RelativePath(programFolder, path).value_or(path));
            if (entry.valid())
                files.entries.push_back(std::move(entry));
            else
                ++files.skipped;
        }
    }
    return files;
}

} // namespace zunbrix
