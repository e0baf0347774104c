#include "cli/cli_arguments.h"

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::cli;

namespace {

CliRequest parsed(const QStringList& words)
{
    auto result = ParseArguments(words);
    if (const UsageError* error = std::get_if<UsageError>(&result)) {
        ADD_FAILURE() << error->message.toStdString();
        return {};
    }
    return std::get<CliRequest>(result);
}

QString usageError(const QStringList& words)
{
    auto result = ParseArguments(words);
    const UsageError* error = std::get_if<UsageError>(&result);
    return error ? error->message : QStringLiteral("<accepted>");
}

} // namespace

TEST(CliArguments, BuildTakesEveryOptionInLongShortAndJoinedForms)
{
    const CliRequest request = parsed({"build", "-b", "mindkids", "--output=out.unf", "--menu-size", "256", "--music",
                                       "0", "--style=1", "--page-size", "20", "--page-number", "--numbers",
                                       "--number-dot", "--number-fill", "--name-insert-row", "--page-speed", "4",
                                       "--custom-menu", "--external-menu", "m.asm", "--language", "zh", "--keep-work",
                                       "list.qvl", "--", "-odd.nes", "roms"});
    EXPECT_EQ(request.command, Command::Build);
    EXPECT_EQ(request.board, BoardType::Mindkids);
    EXPECT_EQ(request.output, QStringLiteral("out.unf"));
    EXPECT_EQ(request.menuBanks, 16);
    EXPECT_EQ(request.music, 0);
    EXPECT_EQ(request.style, 1);
    EXPECT_EQ(request.pageSize, 20);
    EXPECT_EQ(request.pageSpeed, 4);
    for (const std::optional<bool>& on : {request.pageNumber, request.numbers, request.numberDot,
                                          request.numberFill, request.nameInsertRow, request.customMenu,
                                          request.externalMenu})
        EXPECT_EQ(on, true);
    EXPECT_TRUE(request.keepWork);
    EXPECT_EQ(request.externalMenuPath, QStringLiteral("m.asm"));
    EXPECT_EQ(request.language, Language::Chinese);
    EXPECT_EQ(request.inputs, QStringList({"list.qvl", "-odd.nes", "roms"}));

    EXPECT_EQ(parsed({"build", "-bcoolgirl", "-ox.bin", "g.nes"}).board, BoardType::Coolgirl);
    const CliRequest defaults = parsed({"build", "g.nes"});
    EXPECT_FALSE(defaults.board || defaults.menuBanks || defaults.music || defaults.externalMenu ||
                 defaults.numbers);
}

TEST(CliArguments, EveryOnOffOptionHasAnOffFormAndTheLastWordWins)
{
    const CliRequest request = parsed({"build", "--no-page-number", "--no-numbers", "--no-number-dot",
                                       "--no-number-fill", "--no-name-insert-row", "--no-custom-menu",
                                       "--external-menu", "m.asm", "--no-external-menu", "--keep-work",
                                       "--no-keep-work", "g.nes"});
    for (const std::optional<bool>& on : {request.pageNumber, request.numbers, request.numberDot,
                                          request.numberFill, request.nameInsertRow, request.customMenu,
                                          request.externalMenu})
        EXPECT_EQ(on, false);
    EXPECT_FALSE(request.keepWork);
    EXPECT_EQ(parsed({"build", "--no-numbers", "--numbers", "g.nes"}).numbers, true);

    EXPECT_TRUE(usageError({"build", "--no-external-menu=m.asm", "x"}).contains(QStringLiteral("takes no value")));
    EXPECT_TRUE(usageError({"build", "--external-menu=", "x"}).contains(QStringLiteral("invalid value")));
    EXPECT_TRUE(usageError({"build", "--no-board", "x"}).contains(QStringLiteral("unknown option")));
    EXPECT_TRUE(usageError({"export", "--no-keep-work", "--dir", "d", "x"}).contains(QStringLiteral("unknown")));
}

TEST(CliArguments, RefusesWhatNoCommandTakes)
{
    EXPECT_EQ(usageError({}), QStringLiteral("missing command"));
    EXPECT_TRUE(usageError({"make", "x"}).contains(QStringLiteral("unknown command")));
    EXPECT_TRUE(usageError({"build", "-b", "nes", "x"}).contains(QStringLiteral("invalid value 'nes'")));
    EXPECT_TRUE(usageError({"build", "--menu-size", "1024", "x"}).contains(QStringLiteral("--menu-size")));
    EXPECT_TRUE(usageError({"build", "--page-size", "7", "x"}).contains(QStringLiteral("--page-size")));
    EXPECT_TRUE(usageError({"build", "--page-speed", "5", "x"}).contains(QStringLiteral("--page-speed")));
    EXPECT_TRUE(usageError({"build", "--language", "fr", "x"}).contains(QStringLiteral("--language")));
    EXPECT_TRUE(usageError({"build", "--numbers=1", "x"}).contains(QStringLiteral("takes no value")));
    EXPECT_TRUE(usageError({"build", "x", "-o"}).contains(QStringLiteral("needs a value")));
    EXPECT_TRUE(usageError({"build"}).contains(QStringLiteral("no INPUT")));
    EXPECT_TRUE(usageError({"check", "-o", "a.nes", "x"}).contains(QStringLiteral("unknown option")));
    EXPECT_TRUE(usageError({"export", "x"}).contains(QStringLiteral("--dir")));
    EXPECT_TRUE(usageError({"export", "--keep-work", "--dir", "d", "x"}).contains(QStringLiteral("unknown option")));
}

TEST(CliArguments, HelpNeedsNoInputAndListsEachCommandsOwnOptions)
{
    EXPECT_FALSE(parsed({"--help"}).command.has_value());
    EXPECT_EQ(parsed({"check", "--help"}).command, Command::Check);
    EXPECT_TRUE(HelpText(Command::Build).contains(QStringLiteral("-b, --board BOARD")));
    EXPECT_FALSE(HelpText(Command::Check).contains(QStringLiteral("--board")));
    EXPECT_TRUE(HelpText(Command::Export).contains(QStringLiteral("--dir DIR")));
    for (const char* form : {"--page-number, --no-page-number", "--numbers, --no-numbers",
                             "--number-dot, --no-number-dot", "--number-fill, --no-number-fill",
                             "--name-insert-row, --no-name-insert-row", "--custom-menu, --no-custom-menu",
                             "--external-menu PATH, --no-external-menu", "--keep-work, --no-keep-work"})
        EXPECT_TRUE(HelpText(Command::Build).contains(QLatin1String(form))) << form;
    EXPECT_TRUE(HelpText().contains(QStringLiteral("--version")));
    EXPECT_TRUE(parsed({"--version"}).version);
}
