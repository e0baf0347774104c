#include "gamelist/list_file.h"

#include "multicart/shared_work.h"
#include "frame/paths.h"

#include <QDir>

#include <algorithm>

namespace zunbrix {

namespace {

const QString kSection = QStringLiteral("history");

QString entryKey(int index, const char* field)
{
    return QStringLiteral("%1_%2").arg(index, 5, 10, QLatin1Char('0')).arg(QLatin1String(field));
}

// Where relative paths of a list document start: the program's folder, then the document's own.
struct ListFolders {
    QString program;
    QString list;
};

// The file an entry names: the relative form wins when it leads to a file, as it survives moving the program
// together with its games to another folder or machine. A relative path is looked for beside the program, then
// beside the list file, so a list kept with its games works wherever the program is.
QString entryPath(const QString& path, const QString& relativePath, const ListFolders& folders)
{
    for (const QString& candidate : {relativePath, path}) {
        if (candidate.isEmpty())
            continue;
        QStringList places{AbsolutePathFrom(folders.program, candidate)};
        if (IsRelative(candidate) && !folders.list.isEmpty())
            places.push_back(AbsolutePathFrom(folders.list, candidate));
        for (const QString& place : places)
            if (FileExists(place))
                return QDir::cleanPath(place);
    }
    return QDir::cleanPath(AbsolutePathFrom(folders.program, path));
}

} // namespace

ListLoadResult LoadListFile(const IniFile& ini, std::vector<GameEntry>& entries, int capacity)
{
    ListLoadResult result;
    const ListFolders folders{ExeFolder(), FolderOf(ini.Path())};
    const int count = ini.GetInt(kSection, QStringLiteral("count"), 0);
    result.exceedsCapacity = static_cast<qint64>(entries.size()) + count > capacity;
    result.added = std::clamp(capacity - static_cast<int>(entries.size()), 0, std::max(count, 0));
    const std::size_t first = entries.size();
    entries.resize(first + static_cast<std::size_t>(result.added));
    // Looking for thousands of files and reading their headers is the long part of a load, so the entries are
    // shared out to the cores; each fills its own place, and the document is only read.
    runShared(static_cast<std::size_t>(result.added), [&](std::size_t i) {
        const int index = static_cast<int>(i);
        GameEntry entry(entryPath(ini.GetString(kSection, entryKey(index, "path"), {}),
                                  ini.GetString(kSection, entryKey(index, "path_relative"), {}), folders));
        entry.checked = ini.GetInt(kSection, entryKey(index, "check"), 0) != 0;
        entry.name = ini.GetString(kSection, entryKey(index, "name"), {});
        entry.remark = ini.GetString(kSection, entryKey(index, "remark"), {});
        entries[first + i] = std::move(entry);
        return true;
    });
    return result;
}

void WriteListEntries(IniFile& ini, const std::vector<GameEntry>& entries)
{
    ini.Remove(kSection, {});
    ini.SetInt(kSection, QStringLiteral("count"), static_cast<int>(entries.size()));
    const QString programFolder = ExeFolder();
    for (std::size_t i = 0; i < entries.size(); ++i) {
        const GameEntry& entry = entries[i];
        const int index = static_cast<int>(i);
        const QString absolute = AbsolutePath(entry.path);
        ini.SetString(kSection, entryKey(index, "path"), absolute);
        ini.SetString(kSection, entryKey(index, "path_relative"),
                      RelativePath(programFolder, absolute).value_or(absolute));
        ini.SetString(kSection, entryKey(index, "name"), entry.name);
        ini.SetInt(kSection, entryKey(index, "check"), entry.checked ? 1 : 0);
        ini.SetString(kSection, entryKey(index, "remark"), entry.remark);
    }
}

QString ListFilePath(const QString& chosenPath)
{
    if (ExtensionOf(chosenPath, false).compare(QLatin1String("qvl"), Qt::CaseInsensitive) == 0)
        return chosenPath;
    return chosenPath + QStringLiteral(".qvl");
}

std::optional<QString> SaveListFile(const QString& chosenPath, const std::vector<GameEntry>& entries)
{
    const QString path = ListFilePath(chosenPath);
    IniFile ini(path, true);
    WriteListEntries(ini, entries);
    if (!ini.Save())
        return std::nullopt;
    return path;
}

} // namespace zunbrix
