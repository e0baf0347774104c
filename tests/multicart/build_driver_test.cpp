#include "multicart/assembler_run.h"
#include "multicart/build_driver.h"
#include "multicart/synthetic_rom.h"
#include "designer/design_settings.h"
#include "frame/paths.h"
#include "frame/registry_store.h"
#include "support/private_settings.h"
#include "frame/text_ids.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>
#include <functional>
#include <set>

using namespace zunbrix;
using zunbrix::testing::SyntheticRom;
using zunbrix::testing::writeFile;
using zunbrix::testing::writeRom;

namespace {

// Plays the user: records every message and answers the save question as told.
class RecordingUser : public BuildUser {
public:
    MessageAnswer ShowMessage(const BuildMessage& message) override
    {
        messages.push_back(message);
        return MessageAnswer::Ok;
    }
    std::optional<OutputChoice> ChooseOutput(const QString& startFolder, OutputType startType) override
    {
        asked.push_back({startFolder, startType});
        if (whileChoosing)
            whileChoosing();
        return output;
    }
    void OfferToShowResult(const QString& outputPath) override { shown = outputPath; }
    void Progress(BuildStage stage, int, int) override { stages.insert(stage); }

    std::set<BuildStage> stages;
    std::function<void()> whileChoosing; // what happens to the files while the user picks the output
    std::optional<OutputChoice> output;
    std::vector<OutputChoice> asked;
    std::vector<BuildMessage> messages;
    QString shown;
};

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

class BuildDriver : public ::testing::Test {
protected:
    BuildDriver()
    {
        request.workFolder = root.filePath("work");
        request.options.menuMusic = 0;
        user.output = OutputChoice{root.filePath("out.nes"), OutputType::Nes};
    }

    void addGame(const QString& name, SyntheticRom rom, bool checked = true)
    {
        GameEntry entry(writeRom(root.filePath(name + ".nes"), rom));
        entry.checked = checked;
        request.entries.push_back(entry);
    }
    void addStandardGames()
    {
        addGame("Alpha", {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = 1});
        addGame("Bravo", {.mapper = 0, .prgBanks = 2, .chrBanks = 1, .flags6 = 1, .seed = 2});
        addGame("Charlie", {.mapper = 4, .prgBanks = 8, .chrBanks = 16, .seed = 3});
    }

    BuildResult build()
    {
        std::atomic<bool> busy{false};
        BuildResult result = runBuild(request, user, busy);
        EXPECT_FALSE(busy) << "the busy flag is released";
        return result;
    }

    // The single message the build showed; a failing check when there was not exactly one.
    BuildMessage onlyMessage() const
    {
        EXPECT_EQ(user.messages.size(), 1u);
        return user.messages.empty() ? BuildMessage{-1, {}, -1, MessageStyle::Ok} : user.messages.front();
    }
    bool workFolderLeft() const { return QFileInfo::exists(request.workFolder); }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir root;
    BuildRequest request;
    RecordingUser user;
};

TEST_F(BuildDriver, WritesEachOutputTypeAndRemembersTheChoice)
{
    addStandardGames();
    user.output = OutputChoice{root.filePath("rom.bin"), OutputType::Nes};
    BuildResult result = build();
    ASSERT_TRUE(result.ok) << (user.messages.empty() ? "" : user.messages[0].text.toStdString());
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(result.outputPath, root.filePath("rom.bin.nes"));
    EXPECT_EQ(user.shown, result.outputPath);
    EXPECT_EQ(result.games, 3);
    EXPECT_FALSE(workFolderLeft());

    const QByteArray nes = fileBytes(result.outputPath);
    EXPECT_TRUE(nes.startsWith("NES\x1A"));
    EXPECT_EQ(nes.size() - 16, qsizetype(result.romBytes));
    QString lastBuildDir;
    RegistryStore::GetString(QStringLiteral("Software\\Zunbrix"), QStringLiteral("LastBuildDir"), lastBuildDir);
    EXPECT_EQ(lastBuildDir, root.path());

    // The next build starts where this one saved; a matching extension in any case is kept.
    request.options.boardType = BoardType::Mindkids;
    user.output = OutputChoice{root.filePath("rom.UNF"), OutputType::Unif};
    result = build();
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(user.asked.back().path, root.path());
    EXPECT_EQ(result.outputPath, root.filePath("rom.UNF"));
    const QByteArray unif = fileBytes(result.outputPath);
    EXPECT_TRUE(unif.startsWith("UNIF"));
    EXPECT_TRUE(unif.contains(QByteArray("MINDKIDS\0", 9)));

    request.options.boardType = BoardType::Coolgirl;
    user.output = OutputChoice{root.filePath("girl"), OutputType::Bin};
    result = build();
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(user.asked.back().type, OutputType::Unif);
    EXPECT_EQ(fileBytes(root.filePath("girl.bin")).size(), qsizetype(result.romBytes));
    EXPECT_EQ(result.mapper, 342);
}

TEST_F(BuildDriver, RefusesWhileBusyAndAboveTheGameLimit)
{
    std::atomic<bool> busy{true};
    runBuild(request, user, busy);
    EXPECT_EQ(onlyMessage().textId, 194);
    EXPECT_EQ(onlyMessage().titleId, text::TitleWarn);
    EXPECT_TRUE(busy) << "the running build keeps its flag";

    GameEntry missing(root.filePath("none.nes"));
    missing.checked = true;
    request.entries.assign(kMaxBuildGames + 1, missing);
    user.messages.clear();
    build();
    EXPECT_EQ(onlyMessage().textId, 197);
    EXPECT_TRUE(onlyMessage().text.contains(QStringLiteral("3072")));

    request.entries.pop_back();
    user.messages.clear();
    build();
    ASSERT_FALSE(user.messages.empty());
    EXPECT_NE(user.messages.front().textId, 197) << "exactly the limit passes the guard";
    EXPECT_FALSE(workFolderLeft());
}

// The menu indexes at most 2,048 games; one more would start another game's data. The refusal names the limit
// and comes before any file is read or written.
TEST_F(BuildDriver, ListLongerThanTheMenuCanIndexIsRefused)
{
    GameEntry missing(root.filePath("none.nes"));
    missing.checked = true;
    request.entries.assign(2049, missing);
    for (BoardType board : {BoardType::Coolgirl, BoardType::Coolboy}) {
        user.messages.clear();
        request.options.boardType = board;
        EXPECT_FALSE(build().ok);
        EXPECT_EQ(onlyMessage().textId, text::TooManyForMenu);
        EXPECT_EQ(onlyMessage().titleId, text::TitleError);
        EXPECT_EQ(onlyMessage().text,
                  QStringLiteral("The menu can list and start at most 2048 games, but 2049 are checked"));
        EXPECT_FALSE(workFolderLeft());
        EXPECT_TRUE(user.asked.empty());
        EXPECT_FALSE(QFileInfo::exists(user.output->path));
    }

    request.language = Language::Chinese;
    user.messages.clear();
    build();
    EXPECT_EQ(onlyMessage().text, QStringLiteral("菜单最多只能列出并启动 2048 个游戏, 但已勾选 2049 个"));

    request.entries.pop_back();
    user.messages.clear();
    build();
    ASSERT_FALSE(user.messages.empty());
    EXPECT_NE(user.messages.front().textId, text::TooManyForMenu) << "exactly the limit passes";
}

TEST_F(BuildDriver, OverflowingMenuDataStopsBeforeAnythingIsWritten)
{
    addGame("Long", {.mapper = 0, .prgBanks = 1});
    request.entries.front().name = QString(28, QLatin1Char('N'));
    request.entries.resize(2000, request.entries.front());
    build();
    EXPECT_EQ(onlyMessage().textId, 280);
    EXPECT_EQ(onlyMessage().titleId, text::TitleError);
    EXPECT_FALSE(workFolderLeft());
    EXPECT_TRUE(user.asked.empty());
}

// A page the menu would draw off the screen, over its colours and font, is refused before the work folder
// exists, even one the user asked to keep.
TEST_F(BuildDriver, ListThatRunsOffTheScreenIsRefusedBeforeAnythingIsWritten)
{
    addStandardGames();
    request.keepWorkFolder = true;
    request.options.nameInsertRow = true;
    request.options.pageSize = 15;
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, text::ListOffScreenBuiltIn);
    EXPECT_EQ(onlyMessage().titleId, text::TitleError);
    EXPECT_TRUE(onlyMessage().text.startsWith(QStringLiteral("The built-in menu cannot show 15 games a page with a blank row")));
    EXPECT_FALSE(workFolderLeft());
    EXPECT_TRUE(user.asked.empty());

    // The factory design puts its list on row 5.
    user.messages.clear();
    request.options.customEnable = true;
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, text::ListOffScreenCustomSpaced);
    EXPECT_TRUE(onlyMessage().text.startsWith(QStringLiteral("The custom menu's list at row 5 leaves no room for 15 games")));
    EXPECT_FALSE(workFolderLeft());

    // Ten spaced names fit. The list the designer keeps on row 20 leaves room for ten names, not twenty.
    user.messages.clear();
    request.keepWorkFolder = false;
    request.options.pageSize = 10;
    EXPECT_TRUE(build().ok);
    ASSERT_TRUE(RegistryStore::SetBinary(QString::fromLatin1(design_settings::kKey),
                                         QString::fromLatin1(design_settings::kItemPpuAddr),
                                         QByteArray("\x84\x22\0\0", 4)));
    request.options.nameInsertRow = false;
    EXPECT_TRUE(build().ok);
    request.options.pageSize = 20;
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, text::ListOffScreenCustom);
    EXPECT_TRUE(onlyMessage().text.startsWith(QStringLiteral("The custom menu's list at row 20 leaves no room for 20 games a page:")));

    // A menu of one's own draws its list as it likes.
    user.messages.clear();
    request.options.externMenuEnable = true;
    request.options.externMenuPath = root.filePath("Charlie.nes");
    build();
    EXPECT_EQ(onlyMessage().textId, 277) << "the game is looked at as a menu, not refused for its page";
}

// Style 1 has a list position for every page size.
TEST_F(BuildDriver, StyleOneBuildsEveryPageSize)
{
    addStandardGames();
    request.options.showStyle = 1;
    for (int pageSize : {5, 10, 15, 20}) {
        request.options.pageSize = pageSize;
        EXPECT_TRUE(build().ok) << pageSize << (user.messages.empty() ? "" : user.messages[0].text.toStdString());
    }
}

TEST_F(BuildDriver, EmptySelectionAndUnsupportedGamesEndWithTheirTexts)
{
    addGame("Unchecked", {.mapper = 0, .prgBanks = 1}, false);
    build();
    EXPECT_EQ(onlyMessage().textId, 149);
    EXPECT_EQ(onlyMessage().titleId, text::TitleTips);
    EXPECT_FALSE(workFolderLeft());

    user.messages.clear();
    addGame("Rider", {.mapper = 1, .prgBanks = 8});
    addGame("Trainer", {.mapper = 0, .prgBanks = 1, .flags6 = 4});
    addGame("Cut", {.mapper = 0, .prgBanks = 1, .cutBytes = 1});
    GameEntry gone = GameEntry::unread(root.filePath("Gone.nes"));
    gone.checked = true;
    request.entries.push_back(gone);
    build();
    const BuildMessage message = onlyMessage();
    EXPECT_EQ(message.titleId, text::TitleError);
    EXPECT_EQ(message.text, QStringLiteral("1.Rider Mapper1 not supported!\r\n"
                                           "2.Trainer Trainer not supported!\r\n"
                                           "3.Cut Not a valid NES file!\r\n"
                                           "4.Gone Not a valid NES file!\r\n"));
    // What is wrong with the files of the last two lines, for the front end to add.
    ASSERT_EQ(message.problems.size(), 4u);
    EXPECT_FALSE(message.problems[0] || message.problems[1]);
    EXPECT_EQ(message.problems[2].kind, FileProblemKind::Truncated);
    EXPECT_EQ(message.problems[2].path, root.filePath("Cut.nes"));
    EXPECT_EQ(message.problems[3].kind, FileProblemKind::Missing);
    EXPECT_EQ(message.problems[3].path, root.filePath("Gone.nes"));
    EXPECT_FALSE(workFolderLeft());
    EXPECT_FALSE(QFileInfo::exists(user.output->path));
}

// 17 games of 2 MB from 2 MB on end at 36 MB, past what COOLBOY reaches: refused before the menu is made.
TEST_F(BuildDriver, ListTooLargeForTheBoardIsRefusedBeforeTheMenuIsAssembled)
{
    for (std::uint32_t i = 0; i < 17; ++i)
        addGame(QStringLiteral("Big%1").arg(i), {.mapper = 4, .prgBanks = 128, .chrBanks = 0, .seed = i});
    build();
    EXPECT_EQ(onlyMessage().textId, text::FinalRomTooLarge);
    EXPECT_EQ(onlyMessage().text,
              "Final ROM size: 36.000 MB(36864 KB) overflows the maximum limit of 32 MB(32768 KB)!");
    EXPECT_FALSE(user.stages.contains(BuildStage::Assembling));
    EXPECT_TRUE(user.asked.empty());
    EXPECT_FALSE(workFolderLeft());
}

TEST_F(BuildDriver, AssemblerErrorsAreShownAsTheToolPrintedThem)
{
    addStandardGames();
    request.options.externMenuEnable = true;
    QDir().mkpath(root.filePath("ext"));
    request.options.externMenuPath = writeFile(root.filePath("ext/broken.asm"), "  .INESPRG 8\n  LDA #$100\n");
    build();
    const BuildMessage message = onlyMessage();
    EXPECT_EQ(message.textId, 0);
    EXPECT_EQ(message.titleId, text::TitleError);
    EXPECT_TRUE(message.text.contains(QStringLiteral("error")));
    EXPECT_TRUE(QFileInfo::exists(root.filePath("ext/build/game_config.asm"))) << "data exported beside the source";
    EXPECT_FALSE(workFolderLeft());
    EXPECT_FALSE(QFileInfo::exists(user.output->path));
}

TEST_F(BuildDriver, ExternalMenuMustExistAndBeSourceOrImage)
{
    addStandardGames();
    request.options.externMenuEnable = true;
    for (const QString& path : {root.filePath("nowhere.asm"), writeFile(root.filePath("menu.txt"), "x")}) {
        user.messages.clear();
        request.options.externMenuPath = path;
        build();
        EXPECT_EQ(onlyMessage().textId, 279);
        EXPECT_TRUE(onlyMessage().text.endsWith(path));
        EXPECT_FALSE(workFolderLeft());
    }

    // A game is no menu: it has CHR of its own.
    user.messages.clear();
    request.options.externMenuPath = request.entries.back().path;
    build();
    EXPECT_EQ(onlyMessage().textId, 277);
    EXPECT_FALSE(workFolderLeft());
}

TEST_F(BuildDriver, CancelledSaveEndsSilentlyAndFailedWriteSaysSo)
{
    addStandardGames();
    user.output.reset();
    EXPECT_FALSE(build().ok);
    EXPECT_TRUE(user.messages.empty());
    EXPECT_EQ(user.asked.size(), 1u);
    EXPECT_FALSE(workFolderLeft());
    EXPECT_TRUE(user.shown.isEmpty());

    writeFile(root.filePath("file"), "not a folder");
    user.output = OutputChoice{root.filePath("file/rom.nes"), OutputType::Nes};
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, 150);
    ASSERT_EQ(onlyMessage().problems.size(), 1u);
    const FileProblem notWritten = onlyMessage().problems[0];
    EXPECT_EQ(notWritten.kind, FileProblemKind::WriteFailed);
    EXPECT_EQ(notWritten.path, user.output->path);
    EXPECT_TRUE(notWritten.systemReason.contains(QString::fromLocal8Bit(std::strerror(ENOTDIR))))
        << notWritten.systemReason.toStdString();
    EXPECT_FALSE(workFolderLeft());
}

// The games are read again for the merge: one that changed meanwhile is named, and nothing is written.
TEST_F(BuildDriver, GameChangedBeforeTheMergeIsNamed)
{
    addStandardGames();
    const QString changed = request.entries[1].path;
    user.whileChoosing = [&] { writeRom(changed, {.mapper = 0, .prgBanks = 2, .chrBanks = 1, .seed = 99}); };
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, text::OperationFailed);
    ASSERT_EQ(onlyMessage().problems.size(), 1u);
    EXPECT_EQ(onlyMessage().problems[0].kind, FileProblemKind::ChangedSinceRead);
    EXPECT_EQ(onlyMessage().problems[0].path, changed);
    EXPECT_FALSE(QFileInfo::exists(user.output->path));
    EXPECT_FALSE(workFolderLeft());
}

// Whichever front end chose it, an output that is one of the games is refused and the game is kept.
TEST_F(BuildDriver, OutputOnOneOfTheGamesIsRefused)
{
    addStandardGames();
    const QString bravo = request.entries[1].path;
    const QByteArray bravoBytes = fileBytes(bravo);
    user.output = OutputChoice{root.path() + "/./Bravo", OutputType::Nes};
    EXPECT_FALSE(build().ok);
    EXPECT_EQ(onlyMessage().textId, 920);
    EXPECT_TRUE(onlyMessage().text.contains(bravo));
    EXPECT_EQ(fileBytes(bravo), bravoBytes);
    EXPECT_FALSE(workFolderLeft());
}

// A kept work folder holds a complete menu tree; that tree, copied elsewhere, serves as an external menu in
// source form (with its script run first), and its assembled image as an external menu as it stands.
TEST_F(BuildDriver, KeptWorkFolderServesAsExternalMenu)
{
    addStandardGames();
    request.keepWorkFolder = true;
    BuildResult result = build();
    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.keptWorkFolder, request.workFolder);
    ASSERT_TRUE(QFileInfo::exists(request.workFolder + "/menu/build/game_config.asm"));
    ASSERT_TRUE(QFileInfo::exists(request.workFolder + "/menu/menu.nes"));
    const QByteArray internalRom = fileBytes(result.outputPath);

    const QString external = root.filePath("external");
    ASSERT_TRUE(QDir().rename(request.workFolder + "/menu", external));
    ASSERT_TRUE(DeleteFolder(request.workFolder));
    DeleteFolder(external + "/build");
    writeFile(external + "/menu.sh", "echo ran > script_ran.txt\n");
    request.keepWorkFolder = false;
    request.options.externMenuEnable = true;
    request.options.externMenuPath = external + "/menu.asm";
    user.output = OutputChoice{root.filePath("external.nes"), OutputType::Nes};
    result = build();
    ASSERT_TRUE(result.ok) << (user.messages.empty() ? "" : user.messages[0].text.toStdString());
    EXPECT_TRUE(QFileInfo::exists(external + "/script_ran.txt"));
    EXPECT_EQ(fileBytes(result.outputPath), internalRom) << "the same menu, built from outside";
    EXPECT_FALSE(workFolderLeft());

    QFile::remove(external + "/script_ran.txt");
    request.options.externMenuPath = external + "/menu.nes";
    user.output = OutputChoice{root.filePath("image.nes"), OutputType::Nes};
    result = build();
    ASSERT_TRUE(result.ok);
    EXPECT_FALSE(QFileInfo::exists(external + "/script_ran.txt")) << "an image needs no script";
    EXPECT_EQ(fileBytes(result.outputPath), internalRom);
}

// The look kept in the designer reaches the custom menu's generated files and its assembled image: the
// caption counted in game_config.asm, which is written before the design's files, and the list's column.
TEST_F(BuildDriver, StoredDesignReachesTheCustomMenu)
{
    const QString key = QString::fromLatin1(design_settings::kKey);
    ASSERT_TRUE(RegistryStore::SetString(key, QString::fromLatin1(design_settings::kCaptionText), "MY GAMES"));
    ASSERT_TRUE(RegistryStore::SetBinary(key, QString::fromLatin1(design_settings::kItemPpuAddr),
                                         QByteArray("\xC4\x20\0\0", 4))); // 8388: column 4, row 6
    ASSERT_TRUE(RegistryStore::SetBinary(key, QString::fromLatin1(design_settings::kAttributes),
                                         QByteArray(64, '\x1B')));
    addStandardGames();
    request.entries[1].name = QString(40, 'B');
    request.options.customEnable = true;
    request.keepWorkFolder = true;
    ASSERT_TRUE(build().ok) << (user.messages.empty() ? "" : user.messages[0].text.toStdString());

    const QString generated = request.workFolder + "/menu/build/";
    EXPECT_TRUE(fileBytes(generated + "game_config.asm").contains("\r\nCAPTION_LENGTH = 8\r\n"));
    EXPECT_EQ(fileBytes(generated + "game_caption_data.asm"), " .STR \"MY GAMES\"");
    EXPECT_EQ(fileBytes(generated + "game_item_addr.asm"), "ITEM_SHOW_POS = $20C4");
    EXPECT_EQ(fileBytes(generated + "game_attributes_data.bin"), QByteArray(64, '\x1B'));
    // The second name does not open its bank, so it is cut where the row ends: 32 - 4 characters.
    const QByteArray cutName = "game_name_001 .STR \"" + QByteArray(28, 'B') + "\"";
    EXPECT_TRUE(fileBytes(generated + "game_list_0.asm").contains(cutName));
    EXPECT_TRUE(fileBytes(request.workFolder + "/menu/menu.nes").contains("\x08MY GAMES"));
    DeleteFolder(request.workFolder);
}

#ifndef Q_OS_WIN
// The assembler runner is tried with shell scripts as the "source" of /bin/sh.
TEST(AssemblerRun, WaitsForTheRealEndAndStopsAToolThatHangs)
{
    QTemporaryDir folder;
    const QString late = writeFile(folder.filePath("late.sh"), "echo first\nsleep 1\necho last\nexit 3\n");
    AssemblerRun run = runAssembler(QStringLiteral("/bin/sh"), late, 30000);
    EXPECT_TRUE(run.started && run.finished);
    EXPECT_EQ(run.exitCode, 3);
    EXPECT_TRUE(run.output.contains(QStringLiteral("first")) && run.output.contains(QStringLiteral("last")));

    const QString hang = writeFile(folder.filePath("hang.sh"), "echo waiting\nexec sleep 60\n");
    run = runAssembler(QStringLiteral("/bin/sh"), hang, 500);
    EXPECT_TRUE(run.started);
    EXPECT_FALSE(run.finished);
    EXPECT_NE(run.exitCode, 0);
    EXPECT_TRUE(run.output.contains(QStringLiteral("waiting")));

    EXPECT_FALSE(runAssembler(folder.filePath("no-such-tool"), late, 1000).started);
}
#endif

} // namespace
