#include "multicart/synthetic_rom.h"
#include "frame/registry_store.h"
#include "frame/version_number.h"
#include "gamelist/list_file.h"
#include "support/private_settings.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QThread>

#include <gtest/gtest.h>

#include <cerrno>
#include <cstring>

#ifdef Q_OS_UNIX
#include <csignal>

#include <sys/stat.h>
#endif

using namespace zunbrix;
using zunbrix::testing::SyntheticRom;
using zunbrix::testing::writeFile;
using zunbrix::testing::writeRom;

namespace {

struct CommandRun {
    int exitCode = -1;
    QString out;
    QString err;
};

// Runs the real program in `folder`, with private settings and a private work area.
class ZunbrixCommand : public ::testing::Test {
protected:
    ZunbrixCommand()
    {
        QDir(root.path()).mkpath(QStringLiteral("roms"));
        QDir(root.path()).mkpath(QStringLiteral("data"));
    }

    // Starts the program in `root` without waiting for it.
    void start(QProcess& process, const QStringList& arguments)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(root.path());
        process.start(QStringLiteral(ZUNBRIX_PROGRAM), arguments);
    }

    // A run that has not ended after `limitMs` is killed and gives exit code -1.
    CommandRun zunbrix(const QStringList& arguments, int limitMs = 120000)
    {
        QProcess process;
        start(process, arguments);
        CommandRun run;
        if (!process.waitForFinished(limitMs))
            return run;
        run.exitCode = process.exitCode();
        run.out = QString::fromUtf8(process.readAllStandardOutput());
        run.err = QString::fromUtf8(process.readAllStandardError());
        return run;
    }

    QString rom(const QString& name, SyntheticRom content) { return writeRom(root.filePath("roms/" + name), content); }
    void addGames()
    {
        rom("b-bravo.nes", {.mapper = 4, .prgBanks = 8, .chrBanks = 8, .seed = 2});
        rom("a-alpha.nes", {.mapper = 0, .prgBanks = 2, .chrBanks = 1, .flags6 = 1, .seed = 1});
        rom("c-rider.NES", {.mapper = 1, .prgBanks = 8, .chrBanks = 0, .seed = 3});
        QFile(root.filePath("roms/notes.txt")).open(QIODevice::WriteOnly);
    }
    QString workFolders() const { return dataHome + QStringLiteral("/Temp/Zunbrix"); }
    bool workLeft() const
    {
        return !QDir(workFolders()).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir root;
    QString dataHome = root.filePath("data"); // the user's local data, and so the work folders
};

QByteArray fileBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

TEST_F(ZunbrixCommand, CheckListsEveryGameWithTheListsColumns)
{
    addGames();
    std::vector<GameEntry> list{GameEntry(root.filePath("roms/a-alpha.nes"))};
    list[0].name = QStringLiteral("Alpha from list");
    ASSERT_TRUE(SaveListFile(root.filePath("list.qvl"), list));

    CommandRun run = zunbrix({"check", "roms", "list.qvl"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 6) << run.out.toStdString();
    EXPECT_TRUE(lines[0].contains(QStringLiteral("Number")) && lines[0].contains(QStringLiteral("COOLGIRL")));
    EXPECT_EQ(lines[1].simplified(), QStringLiteral("1 a-alpha 2 (032KB) 1 (008KB) 0 V No No YES YES"));
    EXPECT_EQ(lines[2].simplified(), QStringLiteral("2 b-bravo 8 (128KB) 8 (064KB) 4 H No No YES YES"));
    EXPECT_EQ(lines[3].simplified(), QStringLiteral("3 c-rider 8 (128KB) 0 (000KB) 1 H No No NO YES"));
    EXPECT_TRUE(lines[4].contains(QStringLiteral("Alpha from list")));
    EXPECT_EQ(lines[5], QStringLiteral("Selected: 3 item(s) All: 4 item(s); COOLBOY 3/4, COOLGIRL 4/4, not valid 0"));

    run = zunbrix({"check", "--language", "zh", "roms/a-alpha.nes", "missing.nes"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("missing.nes")));
    EXPECT_TRUE(run.out.contains(QStringLiteral("序号")));
}

TEST_F(ZunbrixCommand, CheckFailsWhenAnEntryIsNotAValidGame)
{
    addGames();
    writeFile(root.filePath("roms/broken.nes"), QByteArray("not a ROM at all"));
    CommandRun run = zunbrix({"check", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.out.contains(QStringLiteral("not valid 1"))) << run.out.toStdString();

    std::vector<GameEntry> list{GameEntry(root.filePath("roms/a-alpha.nes")), GameEntry(root.filePath("gone.nes"))};
    list[1].checked = false;
    ASSERT_TRUE(SaveListFile(root.filePath("list.qvl"), list));
    run = zunbrix({"check", "list.qvl"});
    EXPECT_EQ(run.exitCode, 1) << "an unchecked entry whose file is gone is not a valid game either";
}

// A list kept in the folder of its games, written where the program sat beside them: its relative entries are
// found from any current folder although this program lives elsewhere.
TEST_F(ZunbrixCommand, ListBesideItsGamesFindsThemFromAnywhere)
{
    QDir(root.path()).mkpath(QStringLiteral("shelf/sub"));
    writeRom(root.filePath("shelf/alpha.nes"), {.mapper = 0, .prgBanks = 2, .chrBanks = 1, .flags6 = 1, .seed = 1});
    writeRom(root.filePath("shelf/sub/bravo.nes"), {.mapper = 4, .prgBanks = 8, .chrBanks = 8, .seed = 2});
    writeFile(root.filePath("shelf/list.qvl"),
              "\xEF\xBB\xBF[history]\r\ncount=2\r\n"
              "00000_check=1\r\n00000_name=Alpha\r\n00000_path=C:\\Games\\alpha.nes\r\n"
              "00000_path_relative=.\\alpha.nes\r\n"
              "00001_check=1\r\n00001_name=Bravo\r\n00001_path=D:\\Old\\bravo.nes\r\n"
              "00001_path_relative=sub\\bravo.nes");

    const CommandRun run = zunbrix({"check", "shelf/list.qvl"});
    EXPECT_EQ(run.exitCode, 0) << run.out.toStdString() << run.err.toStdString();
    const QStringList lines = run.out.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    ASSERT_EQ(lines.size(), 4) << run.out.toStdString();
    EXPECT_EQ(lines[1].simplified(), QStringLiteral("1 Alpha 2 (032KB) 1 (008KB) 0 V No No YES YES"));
    EXPECT_EQ(lines[2].simplified(), QStringLiteral("2 Bravo 8 (128KB) 8 (064KB) 4 H No No YES YES"));
    EXPECT_TRUE(lines[3].endsWith(QStringLiteral("not valid 0")));
}

TEST_F(ZunbrixCommand, VersionIsTheProjectsFourNumbers)
{
    const CommandRun run = zunbrix({"--version"});
    EXPECT_EQ(run.exitCode, 0);
    EXPECT_EQ(run.out, QStringLiteral("zunbrix " ZUNBRIX_PROJECT_VERSION "\n"));
    EXPECT_NE(VersionNumber::fromText(QStringLiteral(ZUNBRIX_PROJECT_VERSION)), VersionNumber());
}

// Stored settings that would break or change a build are turned off for one run; the store is left as it was.
TEST_F(ZunbrixCommand, OffFormsOverrideTheStoredSettingsForOneRun)
{
    addGames();
    QFile::remove(root.filePath("roms/c-rider.NES"));
    const QString mainKey = QStringLiteral("Software\\Zunbrix");
    const QString lostMenu = root.filePath("lost/menu.asm");
    ASSERT_TRUE(RegistryStore::SetDword(mainKey, QStringLiteral("ExternMenuEnable"), 1));
    ASSERT_TRUE(RegistryStore::SetString(mainKey, QStringLiteral("ExternMenuPath"), lostMenu));
    ASSERT_TRUE(RegistryStore::SetDword(mainKey, QStringLiteral("PageNumber"), 1));

    CommandRun run = zunbrix({"build", "--music", "0", "-o", "cart.nes", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(lostMenu)) << run.err.toStdString();

    run = zunbrix({"build", "--music", "0", "--no-external-menu", "--no-page-number", "--keep-work", "-o",
                   "cart.nes", "roms"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(QFileInfo(root.filePath("cart.nes")).size() > 128 * 1024);
    const QString kept = run.out.section(QStringLiteral("work folder kept: "), 1).section(QLatin1Char('\n'), 0, 0);
    QFile config(kept + QStringLiteral("/menu/build/game_config.asm"));
    ASSERT_TRUE(config.open(QIODevice::ReadOnly)) << kept.toStdString();
    EXPECT_TRUE(config.readAll().contains("SHOW_PAGE_NUMBER   =  0"));
    QDir(kept).removeRecursively();

    quint32 externalMenu = 0, pageNumber = 0;
    QString menuPath;
    EXPECT_TRUE(RegistryStore::GetDword(mainKey, QStringLiteral("ExternMenuEnable"), externalMenu) && externalMenu);
    EXPECT_TRUE(RegistryStore::GetString(mainKey, QStringLiteral("ExternMenuPath"), menuPath) &&
                menuPath == lostMenu);
    EXPECT_TRUE(RegistryStore::GetDword(mainKey, QStringLiteral("PageNumber"), pageNumber) && pageNumber);
}

TEST_F(ZunbrixCommand, BuildWritesTheRomOrSaysWhyNot)
{
    addGames();
    CommandRun run = zunbrix({"build", "--board", "snes", "roms"});
    EXPECT_EQ(run.exitCode, 2) << "usage error";
    EXPECT_TRUE(run.err.contains(QStringLiteral("invalid value 'snes'")));

    run = zunbrix({"build", "-b", "coolgirl", "--music", "0", "-o", "out/cart", "roms"});
    EXPECT_EQ(run.exitCode, 1) << "the folder does not exist";
    const QString notWritten = root.filePath("out/cart.nes") + QStringLiteral(": cannot be written: ") +
                               QString::fromLocal8Bit(std::strerror(ENOENT));
    EXPECT_TRUE(run.err.contains(QStringLiteral("Error: The operation failed\n") + notWritten)) << run.err.toStdString();

    QDir(root.path()).mkpath(QStringLiteral("out"));
    run = zunbrix({"build", "-b", "coolgirl", "--music", "0", "--keep-work", "-o", "out/cart", "roms"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const QString output = root.filePath("out/cart.nes");
    EXPECT_TRUE(run.out.contains(output + QStringLiteral(": 3 games, ")));
    EXPECT_TRUE(run.out.contains(QStringLiteral("COOLGIRL (mapper 342.0), flash ")));
    EXPECT_TRUE(QFileInfo(output).size() > 128 * 1024);
    const QString kept = run.out.section(QStringLiteral("work folder kept: "), 1).section(QLatin1Char('\n'), 0, 0);
    EXPECT_TRUE(QFileInfo::exists(kept + QStringLiteral("/menu/build/game_config.asm"))) << kept.toStdString();
    QDir(kept).removeRecursively();

    run = zunbrix({"build", "--music", "0", "--language", "zh", "-o", "out/boy.nes", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("3.c-rider Mapper1 不支持!"))) << run.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(root.filePath("out/boy.nes")));
    EXPECT_FALSE(workLeft());
}

#ifdef Q_OS_UNIX
// A FIFO with no writer would hold a reader for ever: named as an argument or in a list, it is refused.
TEST_F(ZunbrixCommand, FifoIsRefusedWithoutWaitingForIt)
{
    rom("good.nes", {.mapper = 0, .prgBanks = 2, .chrBanks = 1});
    const QString fifo = root.filePath("pipe.nes");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    std::vector<GameEntry> list{GameEntry(root.filePath("roms/good.nes")), GameEntry::unread(fifo)};
    for (GameEntry& entry : list)
        entry.checked = true;
    ASSERT_TRUE(SaveListFile(root.filePath("list.qvl"), list));
    const QString refused = fifo + QStringLiteral(": not a regular file");
    constexpr int kLimitMs = 30000;

    CommandRun run = zunbrix({"check", "pipe.nes"}, kLimitMs);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("pipe.nes: not a regular file"))) << run.err.toStdString();
    run = zunbrix({"build", "--music", "0", "-o", "out.nes", "pipe.nes"}, kLimitMs);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("pipe.nes: not a regular file"))) << run.err.toStdString();

    run = zunbrix({"check", "list.qvl"}, kLimitMs);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(refused)) << run.err.toStdString();
    EXPECT_TRUE(run.out.contains(QStringLiteral("not valid 1"))) << run.out.toStdString();

    run = zunbrix({"build", "--music", "0", "-o", "out.nes", "list.qvl"}, kLimitMs);
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("2.pipe Not a valid NES file!\n") + refused)) << run.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(root.filePath("out.nes")));
    EXPECT_FALSE(workLeft());
}
#endif

TEST_F(ZunbrixCommand, ExportWritesTheMenuDataWithoutBuilding)
{
    addGames();
    QFile::remove(root.filePath("roms/c-rider.NES"));
    CommandRun run = zunbrix({"export", "--numbers", "--menu-size", "256", "--dir", "exported", "roms"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    QFile names(root.filePath("exported/game_list.txt"));
    ASSERT_TRUE(names.open(QIODevice::ReadOnly));
    EXPECT_EQ(names.readAll(), QByteArray("a-alpha\r\nb-bravo\r\n"));
    QFile config(root.filePath("exported/game_config.asm"));
    ASSERT_TRUE(config.open(QIODevice::ReadOnly));
    const QByteArray equates = config.readAll();
    EXPECT_TRUE(equates.contains("MENU_PRG_SIZE = 16")) << equates.toStdString();
    EXPECT_TRUE(equates.contains("GAMES_TOTAL   =  2"));
    EXPECT_FALSE(workLeft());

    rom("z-rider.nes", {.mapper = 1, .prgBanks = 8});
    run = zunbrix({"export", "--dir", "again", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("Mapper1 not supported")));
}

// The designer's stored list position decides where the custom menu's names start and where they are cut.
TEST_F(ZunbrixCommand, ExportOfTheCustomMenuUsesTheStoredDesign)
{
    rom("a.nes", {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = 1});
    rom(QString(40, 'b') + ".nes", {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = 2});
    const QString key = QStringLiteral("Software\\Zunbrix\\MenuV2");
    ASSERT_TRUE(RegistryStore::SetBinary(key, QStringLiteral("ItemPpuAddr"), QByteArray("\xC4\x20\0\0", 4)));
    ASSERT_TRUE(RegistryStore::SetString(key, QStringLiteral("CaptionText"), QStringLiteral("MY GAMES")));

    const CommandRun run = zunbrix({"export", "--custom-menu", "--dir", "exported", "roms"});
    ASSERT_EQ(run.exitCode, 0) << run.err.toStdString();
    const auto exported = [&](const char* name) {
        QFile file(root.filePath(QStringLiteral("exported/") + QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_EQ(exported("game_item_addr.asm"), "ITEM_SHOW_POS = $20C4");
    EXPECT_TRUE(exported("game_list_0.asm").contains("game_name_001 .STR \"" + QByteArray(28, 'B') + "\""));
    EXPECT_EQ(exported("game_caption_data.asm"), " .STR \"MY GAMES\"");
    EXPECT_TRUE(exported("game_config.asm").contains("\r\nCAPTION_LENGTH = 8\r\n"));
}

// The ROM must never take the place of a game it is built from, whichever way the path reaches it; the
// refusal comes before the build reads anything (else the unsupported c-rider would be reported first).
TEST_F(ZunbrixCommand, OutputThatIsOneOfTheInputsIsRefusedBeforeTheBuild)
{
    addGames();
    const QString alpha = root.filePath("roms/a-alpha.nes");
    const QByteArray alphaBytes = fileBytes(alpha);
    ASSERT_TRUE(QFile::link(alpha, root.filePath("link.nes")));
    std::vector<GameEntry> list{GameEntry(root.filePath("roms/b-bravo.nes"))};
    list[0].checked = false;
    ASSERT_TRUE(SaveListFile(root.filePath("list.qvl"), list));

    const QStringList refused[] = {
        {"build", "-o", "roms/a-alpha.nes", "roms"},
        {"build", "-o", "./roms//../roms/a-alpha", "roms"}, // the .nes is added to the name given
        {"build", "-o", "link.nes", "roms/a-alpha.nes", "roms/c-rider.NES"},
        {"build", "-o", "roms/b-bravo.nes", "list.qvl", "roms/c-rider.NES"}, // unchecked, but the user's file all the same
    };
    for (const QStringList& arguments : refused) {
        const CommandRun run = zunbrix(arguments);
        EXPECT_EQ(run.exitCode, 1) << arguments.join(' ').toStdString();
        EXPECT_TRUE(run.err.contains(QStringLiteral("is one of the input files"))) << run.err.toStdString();
        EXPECT_FALSE(run.err.contains(QStringLiteral("not supported"))) << run.err.toStdString();
    }
    EXPECT_EQ(fileBytes(alpha), alphaBytes);
    EXPECT_TRUE(QFileInfo(root.filePath("roms/b-bravo.nes")).size() > 0);
    const CommandRun named = zunbrix(refused[0]);
    EXPECT_TRUE(named.err.contains(alpha)) << named.err.toStdString();
    EXPECT_FALSE(workLeft());
}

TEST_F(ZunbrixCommand, WorkFolderThatCannotBeMadeIsNamedWithTheSystemsReason)
{
    addGames();
    QFile blocker(root.filePath("data"));
    ASSERT_TRUE(QDir(root.path()).rmdir(QStringLiteral("data")));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    blocker.close();

    const CommandRun run = zunbrix({"build", "-b", "coolgirl", "--music", "0", "-o", "cart.nes", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("The work folder cannot be made: ") + root.filePath("data/Temp/Zunbrix/")))
        << run.err.toStdString();
#ifdef Q_OS_UNIX
    EXPECT_TRUE(run.err.contains(QStringLiteral(": Not a directory"))) << run.err.toStdString();
#endif
    EXPECT_FALSE(QFileInfo::exists(root.filePath("cart.nes")));
}

// The assembler's command line holds at most 259 characters; a deep work folder must not matter.
TEST_F(ZunbrixCommand, BuildsWithAWorkFolderPathOfOver300Characters)
{
    addGames();
    for (int depth = 0; depth < 6; ++depth)
        dataHome += QLatin1Char('/') + QString(50, QLatin1Char('a' + depth));
    ASSERT_TRUE(QDir().mkpath(dataHome));
    ASSERT_GT(workFolders().size(), 300);

    const CommandRun run = zunbrix({"build", "-b", "coolgirl", "--music", "0", "-o", "cart.nes", "roms"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_TRUE(QFileInfo(root.filePath("cart.nes")).size() > 128 * 1024);
    EXPECT_FALSE(workLeft());
}

TEST_F(ZunbrixCommand, WorkFoldersOfProcessesThatNoLongerRunAreRemovedAtTheNextStart)
{
    addGames();
    QProcess ended;
    start(ended, {"--help"});
    ASSERT_TRUE(ended.waitForStarted());
    const qint64 endedId = ended.processId();
    ASSERT_TRUE(ended.waitForFinished());
    const QString abandoned = workFolders() + QLatin1Char('/') + QString::number(endedId);
    const QString running = workFolders() + QLatin1Char('/') + QString::number(QCoreApplication::applicationPid());
    ASSERT_TRUE(QDir().mkpath(abandoned + "/menu/build"));
    ASSERT_TRUE(QDir().mkpath(running + "/menu"));

    const CommandRun run = zunbrix({"build", "-b", "coolgirl", "--music", "0", "-o", "cart.nes", "roms"});
    EXPECT_EQ(run.exitCode, 0) << run.err.toStdString();
    EXPECT_FALSE(QFileInfo::exists(abandoned));
    EXPECT_TRUE(QFileInfo::exists(running + "/menu")) << "this test is still running";
}

#ifdef Q_OS_UNIX
// A real signal reaches a real build while its work folder exists: the build is held there by the script that
// an external menu source may have beside it, which says when it has begun and then waits.
TEST_F(ZunbrixCommand, SignalStopsTheBuildRemovesItsWorkFolderAndKeepsTheOldOutput)
{
    addGames();
    const QString menu = root.filePath("menu");
    ASSERT_TRUE(QDir().mkpath(menu));
    zunbrix::testing::writeFile(menu + "/menu.asm", "; never assembled: the build stops before\n");
    zunbrix::testing::writeFile(menu + "/menu.sh", "touch started\nexec sleep 120\n");
    QDir(root.path()).mkpath(QStringLiteral("out"));
    const QString output = root.filePath("out/cart.nes");
    zunbrix::testing::writeFile(output, "the ROM of an earlier build");

    const std::pair<int, int> signalsAndCodes[] = {{SIGINT, 130}, {SIGTERM, 143}, {SIGHUP, 129}};
    for (const auto& [signal, exitCode] : signalsAndCodes) {
        QFile::remove(menu + "/started");
        QProcess build;
        start(build, {"build", "-b", "coolgirl", "--music", "0", "--external-menu", "menu/menu.asm", "-o",
                      "out/cart.nes", "roms"});
        ASSERT_TRUE(build.waitForStarted());
        const QString workFolder = workFolders() + QLatin1Char('/') + QString::number(build.processId());
        const QDeadlineTimer deadline(60000);
        while (!QFileInfo::exists(menu + "/started") && !deadline.hasExpired() && build.state() == QProcess::Running)
            QThread::msleep(10);
        ASSERT_TRUE(QFileInfo::exists(menu + "/started")) << build.readAllStandardError().toStdString();
        ASSERT_TRUE(QFileInfo(workFolder + "/menu/menu.asm").isFile());

        ASSERT_EQ(::kill(static_cast<pid_t>(build.processId()), signal), 0);
        ASSERT_TRUE(build.waitForFinished(60000));
        EXPECT_EQ(build.exitStatus(), QProcess::NormalExit) << "signal " << signal;
        EXPECT_EQ(build.exitCode(), exitCode);
        EXPECT_TRUE(QString::fromUtf8(build.readAllStandardError()).contains(QStringLiteral("The build was stopped")));
        EXPECT_FALSE(QFileInfo::exists(workFolder));
        EXPECT_EQ(fileBytes(output), QByteArray("the ROM of an earlier build"));
        EXPECT_EQ(QDir(root.filePath("out")).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
                  QStringList{QStringLiteral("cart.nes")});
    }
    EXPECT_FALSE(workLeft());
}
#endif

// Twenty names a page with a blank row between them would run off the screen into the font: the build says so
// before it writes anything, not even the work folder it was asked to keep.
TEST_F(ZunbrixCommand, BuildRefusesAListThatRunsOffTheScreen)
{
    addGames();
    CommandRun run = zunbrix({"build", "--name-insert-row", "--page-size", "20", "--keep-work", "-o", "spaced.nes", "roms"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_TRUE(run.err.contains(QStringLiteral("cannot show 20 games a page with a blank row between names")))
        << run.err.toStdString();
    EXPECT_FALSE(run.err.contains(QStringLiteral("Mapper1"))) << "refused before the games are checked for the board";
    EXPECT_FALSE(QFileInfo::exists(root.filePath("spaced.nes")));
    EXPECT_FALSE(workLeft());
}

} // namespace
