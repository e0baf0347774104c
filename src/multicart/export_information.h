#pragma once

#include "multicart/build_options.h"
#include "multicart/nes_image.h"
#include "designer/document.h"
#include "frame/string_table.h"

#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace zunbrix {

// What an export reads of the main window: the list, the settings, the design and the interface language.
// The names as the menu lists them, numbered by the list's number settings.
QStringList displayNames(const QStringList& names, const BuildOptions& options);

struct ExportSources {
    const std::vector<GameEntry>& entries;
    const BuildOptions& options;
    DesignDocument& design;
    Language language;
};

// Lets the user choose the folder to export into, starting at the given one; nothing when cancelled.
using FolderQuestion = std::function<std::optional<QString>(const QString& startFolder)>;

struct ExportInformationResult {
    bool ok = false;
    QString folder;  // where the generated files went
    QString message; // for the user under the title "Error" when not empty: a list too long for the menu, bad
                     // games or overflowing banks
    std::vector<FileProblem> problems; // [i]: what is wrong with the file behind line i of `message`
};

// Writes what a menu of one's own needs of a build, without assembling anything: game_list.txt with the
// plain names, the designer's files, the name, data and final data banks and game_config.asm.
// `romType` 1 is COOLGIRL, anything else COOLBOY; `menuBanks` is the menu's PRG in 16 KB banks.
// A list longer than the menu can index is refused before anything is written. The list and the counting
// run's index files go into `folder` before `askFolder`, if given, may move the rest elsewhere.
ExportInformationResult exportInformation(const ExportSources& sources, int romType, int menuBanks, QString folder,
                                          const FolderQuestion& askFolder);

} // namespace zunbrix
