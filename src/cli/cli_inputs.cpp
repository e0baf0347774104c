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

InputList ReadInputs(const QStringList& inputs, GameHeaders headers, Language language)
{
    InputList list;
    for (const QString& input : inputs) {
        const QFileInfo info(input);
        if (info.isDir()) {
            const QFileInfoList files = QDir(input).entryInfoList({QStringLiteral("*.nes")}, QDir::Files,
                                                                   QDir::Name | QDir::IgnoreCase);
            for (const QFileInfo& file : files)
                addGame(list, file.absoluteFilePath(), headers);
        } else if (const FileProblem problem = regularFileProblem(input)) {
            list.problems.push_back(describeFileProblem(problem, language));
        } else if (info.suffix().compare(QLatin1String("qvl"), Qt::CaseInsensitive) == 0) {
            QFile file;
            if (const FileProblem problem = openForReading(file, input)) {
                list.problems.push_back(describeFileProblem(problem, language));
                continue;
            }
            IniFile ini(info.absoluteFilePath(), true);
            ini.Parse(file.readAll());
            if (LoadListFile(ini, list.entries).exceedsCapacity)
                list.exceedsCapacity = true;
        } else {
            addGame(list, info.absoluteFilePath(), headers);
        }
    }
    return list;
}

} // namespace zunbrix::cli
