#pragma once

#include "multicart/board_tables.h"
#include "frame/string_table.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <variant>

namespace zunbrix::cli {

enum class Command { Build, Export, Check };

// What the user asked for. Unset fields keep the value of the settings store for this run; the store itself is
// never written.
struct CliRequest {
    std::optional<Command> command; // none for the program's own --help and --version
    bool help = false;
    bool version = false;
    QStringList inputs;
    std::optional<BoardType> board;
    QString output;
    QString exportFolder;
    std::optional<int> menuBanks; // 16 KB banks
    std::optional<int> music;
    std::optional<int> style;
    std::optional<int> pageSize;
    std::optional<int> pageSpeed;
    std::optional<bool> pageNumber;
    std::optional<bool> numbers;
    std::optional<bool> numberDot;
    std::optional<bool> numberFill;
    std::optional<bool> nameInsertRow;
    std::optional<bool> customMenu;
    std::optional<bool> externalMenu;
    QString externalMenuPath; // the file that --external-menu names
    std::optional<Language> language;
    bool keepWork = false;
};

struct UsageError {
    QString message;
};

// Reads the words after the program's name. The first must be a command (or --help, or --version).
std::variant<CliRequest, UsageError> ParseArguments(const QStringList& words);

// The program's help, or one command's, in the usual form.
QString HelpText();
QString HelpText(Command command);

} // namespace zunbrix::cli
