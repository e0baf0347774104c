#include "gamelist/list_file.h"

#include "frame/paths.h"

#include <QDir>

namespace zunbrix {

namespace {

const QString kSection = QStringLiteral("history");

QString entryKey(int index, const char* field)
{
    return QStringLiteral("%1_%2").arg(index, 5, 10, QLatin1Char('0')).arg(QLatin1String(field));
}

// The file an entry names: the relative form wins when it leads to a file, as it survives moving the program
// together with its games to another folder or machine. A relative path is looked for beside the program, then
// beside the list file, so a list kept with its games works wherever the program is.
QString entryPath(const QString& path, const QString& relativePath, const QString& listFolder)
{
    for (const QString& candidate : {relativePath, path}) {
        if (candidate.isEmpty())
            continue;
        QStringList places{AbsolutePath(candidate)};
        if (IsRelative(candidate) && !listFolder.isEmpty())
            places.push_back(AbsolutePathFrom(listFolder, candidate));
        for (const QString& place : places)
            if (FileExists(place))
                return QDir::cleanPath(place);
    }
    return QDir::cleanPath(AbsolutePath(path));
}

} // namespace

ListLoadResult LoadListFile(const IniFile& ini, std::vector<GameEntry>& entries, int capacity)
{
    ListLoadResult result;
    const QString listFolder = FolderOf(ini.Path());
    const int count = ini.GetInt(kSection, QStringLiteral("count"), 0);
    result.exceedsCapacity = static_cast<qint64>(entries.size()) + count > capacity;
    for (int i = 0; i < count && entries.size() < static_cast<std::size_t>(capacity); ++i) {
        GameEntry entry(entryPath(ini.GetString(kSection, entryKey(i, "path"), {}),
                                  ini.GetString(kSection, entryKey(i, "path_relative"), {}), listFolder));
        entry.checked = ini.GetInt(kSection, entryKey(i, "check"), 0) != 0;
        entry.name = ini.GetString(kSection, entryKey(i, "name"), {});
        entry.remark = ini.GetString(kSection, entryKey(i, "remark"), {});
        entries.push_back(std::move(entry));
        ++result.added;
    }
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
