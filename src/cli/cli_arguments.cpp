#include "cli/cli_arguments.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace zunbrix::cli {

namespace {

enum class OptionId {
    Help, Board, Output, Dir, MenuSize, Music, Style, PageSize, PageNumber, Numbers, NumberDot, NumberFill,
    NameInsertRow, PageSpeed, CustomMenu, ExternalMenu, Language, KeepWork,
};

constexpr std::uint8_t kBuild = 1;
constexpr std::uint8_t kExport = 2;
constexpr std::uint8_t kCheck = 4;
constexpr std::uint8_t kEvery = kBuild | kExport | kCheck;

struct OptionSpec {
    OptionId id;
    std::string_view longName;
    char shortName; // '\0' when there is none
    std::string_view valueName; // empty for a flag; the "--no-" form never takes a value
    std::uint8_t commands;
    std::string_view help;
    bool hasOffForm = false; // a "--no-" form turns the setting off for this run
};

constexpr bool kOnOff = true;

constexpr std::array<OptionSpec, 18> kOptions{{
    {OptionId::Board, "board", 'b', "BOARD", kBuild | kExport, "coolboy, mindkids or coolgirl"},
    {OptionId::Output, "output", 'o', "PATH", kBuild,
     "the ROM to write; .nes, .unf or .bin picks the format (default zunbrix-BOARD.nes)"},
    {OptionId::Dir, "dir", '\0', "DIR", kExport, "the folder that receives the files (required)"},
    {OptionId::MenuSize, "menu-size", '\0', "KB", kBuild | kExport, "menu size: 128, 256 or 512"},
    {OptionId::Music, "music", '\0', "0|1", kBuild | kExport, "menu music off or on"},
    {OptionId::Style, "style", '\0', "0|1", kBuild | kExport, "one of the two built-in menu looks"},
    {OptionId::PageSize, "page-size", '\0', "N", kBuild | kExport, "games per page: 5, 10, 15 or 20"},
    {OptionId::PageNumber, "page-number", '\0', "", kBuild | kExport, "show the page number", kOnOff},
    {OptionId::Numbers, "numbers", '\0', "", kBuild | kExport, "put each game's number before its name", kOnOff},
    {OptionId::NumberDot, "number-dot", '\0', "", kBuild | kExport, "a dot between number and name", kOnOff},
    {OptionId::NumberFill, "number-fill", '\0', "", kBuild | kExport, "zero-fill the numbers to one width", kOnOff},
    {OptionId::NameInsertRow, "name-insert-row", '\0', "", kBuild | kExport, "an empty row between two names",
     kOnOff},
    {OptionId::PageSpeed, "page-speed", '\0', "1-4", kBuild | kExport, "rows drawn per frame when a page turns"},
    {OptionId::CustomMenu, "custom-menu", '\0', "", kBuild | kExport, "use the look made in the menu designer", kOnOff},
    {OptionId::ExternalMenu, "external-menu", '\0', "PATH", kBuild, "use this menu (.asm source or .nes image)",
     kOnOff},
    {OptionId::Language, "language", '\0', "en|zh", kEvery, "language of the messages"},
    {OptionId::KeepWork, "keep-work", '\0', "", kBuild, "keep the work folder until the next build and print its path",
     kOnOff},
    {OptionId::Help, "help", 'h', "", kEvery, "show this help"},
}};

struct CommandInfo {
    Command command;
    std::string_view name;
    std::uint8_t bit;
    std::string_view synopsis;
    std::string_view summary;
};

constexpr std::array<CommandInfo, 3> kCommands{{
    {Command::Build, "build", kBuild, "build [options] INPUT...", "build a multicart ROM"},
    {Command::Export, "export", kExport, "export [options] --dir DIR INPUT...",
     "write the menu's generated data for a menu of one's own, without building"},
    {Command::Check, "check", kCheck, "check [options] INPUT...", "list the games and how they fit each board"},
}};

constexpr std::string_view kInputsHelp =
    "An INPUT is a .qvl list file (its checked entries), a .nes file, or a folder (its .nes files, by name).\n"
    "A list's entry that is not found beside the program is looked for beside the list file.\n"
    "Settings not given as options come from the settings store, as the desktop program keeps them.\n"
    "An option's --no- form turns a stored setting off for this run; the store keeps it.\n";

constexpr std::string_view kOffPrefix = "no-";

QString fromView(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

struct NamedOption {
    const OptionSpec* option = nullptr;
    bool on = true; // false for the "--no-" form
};

NamedOption findLong(const QString& name)
{
    for (const OptionSpec& option : kOptions) {
        const QString longName = fromView(option.longName);
        if (name == longName)
            return {&option, true};
        if (option.hasOffForm && name == fromView(kOffPrefix) + longName)
            return {&option, false};
    }
    return {};
}

const OptionSpec* findShort(QChar letter)
{
    for (const OptionSpec& option : kOptions)
        if (option.shortName != '\0' && letter == QLatin1Char(option.shortName))
            return &option;
    return nullptr;
}

std::optional<int> numberIn(const QString& text, std::initializer_list<int> allowed)
{
    bool ok = false;
    const int value = text.toInt(&ok);
    if (!ok)
        return std::nullopt;
    for (int candidate : allowed)
        if (candidate == value)
            return value;
    return std::nullopt;
}

// Stores one option's value, or for an on/off option whether it is on; an error text when the value is not
// one the option takes.
std::optional<QString> apply(CliRequest& request, const OptionSpec& option, bool on, const QString& value)
{
    const auto bad = [&] {
        return QStringLiteral("invalid value '%1' for --%2").arg(value, fromView(option.longName));
    };
    switch (option.id) {
    case OptionId::Help:
        request.help = true;
        break;
    case OptionId::Board:
        if (value == QLatin1String("coolboy"))
            request.board = BoardType::Coolboy;
        else if (value == QLatin1String("mindkids"))
            request.board = BoardType::Mindkids;
        else if (value == QLatin1String("coolgirl"))
            request.board = BoardType::Coolgirl;
        else
            return bad();
        break;
    case OptionId::Output:
        request.output = value;
        break;
    case OptionId::Dir:
        request.exportFolder = value;
        break;
    case OptionId::MenuSize: {
        const std::optional<int> kb = numberIn(value, {128, 256, 512});
        if (!kb)
            return bad();
        request.menuBanks = *kb / 16;
        break;
    }
    case OptionId::Music:
        if (!(request.music = numberIn(value, {0, 1})))
            return bad();
        break;
    case OptionId::Style:
        if (!(request.style = numberIn(value, {0, 1})))
            return bad();
        break;
    case OptionId::PageSize:
        if (!(request.pageSize = numberIn(value, {5, 10, 15, 20})))
            return bad();
        break;
    case OptionId::PageSpeed:
        if (!(request.pageSpeed = numberIn(value, {1, 2, 3, 4})))
            return bad();
        break;
    case OptionId::PageNumber:
        request.pageNumber = on;
        break;
    case OptionId::Numbers:
        request.numbers = on;
        break;
    case OptionId::NumberDot:
        request.numberDot = on;
        break;
    case OptionId::NumberFill:
        request.numberFill = on;
        break;
    case OptionId::NameInsertRow:
        request.nameInsertRow = on;
        break;
    case OptionId::CustomMenu:
        request.customMenu = on;
        break;
    case OptionId::ExternalMenu:
        if (on && value.isEmpty())
            return bad();
        request.externalMenu = on;
        request.externalMenuPath = value;
        break;
    case OptionId::Language:
        if (value == QLatin1String("en"))
            request.language = Language::English;
        else if (value == QLatin1String("zh"))
            request.language = Language::Chinese;
        else
            return bad();
        break;
    case OptionId::KeepWork:
        request.keepWork = on;
        break;
    }
    return std::nullopt;
}

const CommandInfo& infoOf(Command command)
{
    for (const CommandInfo& info : kCommands)
        if (info.command == command)
            return info;
    return kCommands.front();
}

} // namespace

std::variant<CliRequest, UsageError> ParseArguments(const QStringList& words)
{
    CliRequest request;
    if (words.isEmpty())
        return UsageError{QStringLiteral("missing command")};
    if (words.front() == QLatin1String("--help") || words.front() == QLatin1String("-h")) {
        request.help = true;
        return request;
    }
    if (words.front() == QLatin1String("--version")) {
        request.version = true;
        return request;
    }
    const CommandInfo* command = nullptr;
    for (const CommandInfo& info : kCommands)
        if (words.front() == fromView(info.name))
            command = &info;
    if (!command)
        return UsageError{QStringLiteral("unknown command '%1'").arg(words.front())};
    request.command = command->command;

    bool optionsEnded = false;
    for (qsizetype i = 1; i < words.size(); ++i) {
        const QString& word = words[i];
        if (optionsEnded || !word.startsWith(QLatin1Char('-')) || word == QLatin1String("-")) {
            request.inputs.push_back(word);
            continue;
        }
        if (word == QLatin1String("--")) {
            optionsEnded = true;
            continue;
        }
        NamedOption named;
        std::optional<QString> inlineValue;
        if (word.startsWith(QLatin1String("--"))) {
            const qsizetype equals = word.indexOf(QLatin1Char('='));
            named = findLong(word.mid(2, equals < 0 ? -1 : equals - 2));
            if (equals >= 0)
                inlineValue = word.mid(equals + 1);
        } else {
            named.option = findShort(word[1]);
            if (word.size() > 2)
                inlineValue = word.mid(2);
        }
        const OptionSpec* option = named.option;
        if (!option || !(option->commands & command->bit))
            return UsageError{QStringLiteral("unknown option '%1' for %2").arg(word, fromView(command->name))};
        const QString shownName = (named.on ? QString() : fromView(kOffPrefix)) + fromView(option->longName);
        QString value;
        if (named.on && !option->valueName.empty()) {
            if (inlineValue) {
                value = *inlineValue;
            } else if (i + 1 < words.size()) {
                value = words[++i];
            } else {
                return UsageError{QStringLiteral("option --%1 needs a value").arg(shownName)};
            }
        } else if (inlineValue) {
            return UsageError{QStringLiteral("option --%1 takes no value").arg(shownName)};
        }
        if (std::optional<QString> error = apply(request, *option, named.on, value))
            return UsageError{*error};
    }
    if (request.help)
        return request;
    if (request.inputs.isEmpty())
        return UsageError{QStringLiteral("%1: no INPUT given").arg(fromView(command->name))};
    if (request.command == Command::Export && request.exportFolder.isEmpty())
        return UsageError{QStringLiteral("export: --dir DIR is required")};
    return request;
}

QString HelpText()
{
    QString text = QStringLiteral("Usage: zunbrix COMMAND [options] INPUT...\n"
                                  "       zunbrix --help | --version\n\nCommands:\n");
    for (const CommandInfo& info : kCommands)
        text += QStringLiteral("  %1%2\n").arg(fromView(info.name), -9).arg(fromView(info.summary));
    text += QLatin1Char('\n') + fromView(kInputsHelp);
    text += QStringLiteral("Run 'zunbrix COMMAND --help' for a command's options.\n");
    return text;
}

QString HelpText(Command command)
{
    constexpr int kFormWidth = 26;
    const CommandInfo& info = infoOf(command);
    QString text = QStringLiteral("Usage: zunbrix %1\n\n%2.\n\n%3\nOptions:\n")
                       .arg(fromView(info.synopsis), fromView(info.summary), fromView(kInputsHelp));
    for (const OptionSpec& option : kOptions) {
        if (!(option.commands & info.bit))
            continue;
        QString form = option.shortName != '\0' ? QStringLiteral("-%1, ").arg(QLatin1Char(option.shortName))
                                                : QStringLiteral("    ");
        form += QStringLiteral("--") + fromView(option.longName);
        if (!option.valueName.empty())
            form += QLatin1Char(' ') + fromView(option.valueName);
        if (option.hasOffForm)
            form += QStringLiteral(", --") + fromView(kOffPrefix) + fromView(option.longName);
        // A long form keeps the column of the explanations by giving its explanation a line of its own.
        if (form.size() > kFormWidth)
            form += QLatin1Char('\n') + QString(kFormWidth + 2, QLatin1Char(' '));
        text += QStringLiteral("  %1 %2\n").arg(form, -kFormWidth).arg(fromView(option.help));
    }
    text += QStringLiteral("\nExit status: 0 on success, 1 when the work is refused or fails or check finds an entry\n"
                           "that is not a valid game, 2 for a usage error.\n");
    return text;
}

} // namespace zunbrix::cli
