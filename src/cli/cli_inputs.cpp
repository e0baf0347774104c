#include "cli/cli_inputs.h"

#include "frame/ini_file.h"
#include "frame/paths.h"
#include "gamelist/list_file.h"

#include <QDir>
#include <QFileInfo>

namespace zunbrix::cli {

namespace {

void addGame(InputList& list, const QString& path, GameHeaders headers)
{
    if (list.entries.size() >= static_cast<std::size_t>(kListCapacity)) {
        list.exceedsCapacity = true;
        return;
    }
    GameEntry entry = headers == GameHeaders::Read ? GameEntry(path) : GameEntry::unread(path);
    entry.checked = true;
    list.entries.push_back(std::move(entry));
}

} // namespace

InputList ReadInputs(const QStringList& inputs, GameHeaders headers)
{
    InputList list;
    for (const QString& input : inputs) {
        const QFileInfo info(input);
        if (info.isDir()) {
            const QFileInfoList files = QDir(input).entryInfoList({QStringLiteral("*.nes")}, QDir::Files,
                                                                   QDir::Name | QDir::IgnoreCase);
            for (const QFileInfo& file : files)
                addGame(list, file.absoluteFilePath(), headers);
        } else if (!info.isFile()) {
            list.problems.push_back(QStringLiteral("%1: no such file or folder").arg(input));
        } else if (info.suffix().compare(QLatin1String("qvl"), Qt::CaseInsensitive) == 0) {
            IniFile ini(info.absoluteFilePath(), true);
            if (!ini.Load()) {
                list.problems.push_back(QStringLiteral("%1: cannot read the list file").arg(input));
                continue;
            }
            if (LoadListFile(ini, list.entries).exceedsCapacity)
                list.exceedsCapacity = true;
        } else {
            addGame(list, info.absoluteFilePath(), headers);
        }
    }
    return list;
}

} // namespace zunbrix::cli
