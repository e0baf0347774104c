#include "multicart/build_driver.h"

#include "multicart/assembler_run.h"
#include "multicart/export_information.h"
#include "multicart/generation_settings.h"
#include "multicart/generators.h"
#include "multicart/layout.h"
#include "multicart/rom_writer.h"
#include "multicart/shared_work.h"
#include "multicart/validation.h"
#include "designer/document.h"
#include "designer/export.h"
#include "frame/paths.h"
#include "frame/process_runner.h"
#include "frame/registry_store.h"
#include "frame/text_format.h"
#include "menu/menu_source_tree.h"
#include "frame/text_ids.h"

#include <QCoreApplication>
#include <QDir>

#include <exception>
#include <stdexcept>

namespace zunbrix {

namespace {

const QString kSettingsKey = QStringLiteral("Software\\Zunbrix");
const QString kLastBuildDir = QStringLiteral("LastBuildDir");

// Every process's work folder lies in here, named by its process number.
QString workFolderRoot()
{
    return KnownFolder(KnownFolderId::LocalAppData) + QStringLiteral("/Temp/Zunbrix");
}

// The file type of the last save, kept for the next build of this process.
std::atomic<int> lastSaveType{static_cast<int>(OutputType::Nes)};

struct OutputFormat {
    OutputType type;
    const char* extension;
};
constexpr OutputFormat kOutputFormats[] = {
    {OutputType::Nes, "nes"},
    {OutputType::Unif, "unf"},
    {OutputType::Bin, "bin"},
};

// Sets the flag back when the build ends, whichever way.
class BusyHold {
public:
    explicit BusyHold(std::atomic<bool>& busy) : busy_(busy) {}
    ~BusyHold() { busy_ = false; }
    BusyHold(const BusyHold&) = delete;
    BusyHold& operator=(const BusyHold&) = delete;

private:
    std::atomic<bool>& busy_;
};

// The build was asked to stop; thrown where it notices, so that every hold on the way out lets go.
struct StoppedOnRequest {};

// Removes the work folder when the build ends, unless the user asked to keep it from a build that ran its
// course: a build ended by a stop or by an exception leaves nothing.
class WorkFolderHold {
public:
    WorkFolderHold(const QString& folder, bool keep) : folder_(folder), keep_(keep) {}
    ~WorkFolderHold()
    {
        if (!keep_ || std::uncaught_exceptions() > 0)
            RemoveWorkFolder(folder_);
    }
    WorkFolderHold(const WorkFolderHold&) = delete;
    WorkFolderHold& operator=(const WorkFolderHold&) = delete;

private:
    QString folder_;
    bool keep_;
};

// The names the menu lists: the number in front when asked for, then always a dot.
QStringList displayNames(const std::vector<const GameEntry*>& checked, const BuildOptions& options)
{
    const int width = options.showNumberFill ? static_cast<int>(QString::number(checked.size()).size()) : 1;
    QStringList names;
    names.reserve(static_cast<qsizetype>(checked.size()));
    for (std::size_t i = 0; i < checked.size(); ++i) {
        const QString& name = checked[i]->name;
        if (options.showNumberOrder)
            names.push_back(QStringLiteral("%1.").arg(i + 1, width, 10, QLatin1Char('0')) + name);
        else
            names.push_back(options.showNumberDot ? QLatin1Char('.') + name : name);
    }
    return names;
}

// One build from start to end; each step tells the user why it stops.
class Build {
public:
    Build(const BuildRequest& request, BuildUser& user)
        : request_(request), options_(request.options), user_(user), board_(request.options.boardType)
    {
    }

    BuildResult run();

private:
    QString text(int id) const { return StringTable::Get(id, request_.language); }
    void tell(int textId, const QString& shown, int titleId, std::vector<FileProblem> problems = {})
    {
        user_.ShowMessage({textId, shown, titleId, MessageStyle::Ok, std::move(problems)});
    }
    void tellError(int textId, std::initializer_list<TextArg> args)
    {
        tell(textId, FormatText(text(textId), args), text::TitleError);
    }
    bool stopRequested() const { return request_.stop && request_.stop->load(); }
    void stopIfRequested() const
    {
        if (stopRequested())
            throw StoppedOnRequest{};
    }

    QString workPath(const char* relative) const
    {
        return request_.workFolder + QLatin1Char('/') + QLatin1String(relative);
    }
    QString buildFolder() const { return workPath(kMenuBuildFolder); }
    bool externalMenu() const { return options_.externMenuEnable; }
    bool externalIs(const char* extension) const
    {
        return ExtensionOf(options_.externMenuPath, false).compare(QLatin1String(extension), Qt::CaseInsensitive) == 0;
    }
    QString besideExternal(const char* extension) const
    {
        return FolderOf(options_.externMenuPath) + QLatin1Char('/') + FileNameOf(options_.externMenuPath, false) +
               QLatin1Char('.') + QLatin1String(extension);
    }

    bool listFitsScreen();
    void readGames();
    bool assemble(const QString& source);
    bool exportForExternalSource(int menuBanks);
    bool obtainMenu();
    bool fitsBoard(const LayoutResult& layout);
    bool writeOutput(const LayoutResult& layout, BuildResult& result);

    const BuildRequest& request_;
    const BuildOptions& options_;
    BuildUser& user_;
    BoardType board_;
    DesignDocument design_;
    std::vector<const GameEntry*> checked_;
    std::vector<NesImage> games_;
    QStringList names_;
    NesImage menu_;
};

// A page that runs off the screen would write names over its colours, the other name table or the font. A menu
// of one's own lays out its list as it likes.
bool Build::listFitsScreen()
{
    const ListLook look = listLookFor(options_, design_);
    if (externalMenu() || canDrawList(look))
        return true;
    if (!look.custom)
        tellError(text::ListOffScreenBuiltIn, {look.pageSize});
    else
        tellError(look.nameInsertRow ? text::ListOffScreenCustomSpaced : text::ListOffScreenCustom,
                  {listFirstRow(look), look.pageSize});
    return false;
}

void Build::readGames()
{
    for (const GameEntry& entry : request_.entries)
        if (entry.checked)
            checked_.push_back(&entry);
    names_ = displayNames(checked_, options_);
    const int total = static_cast<int>(checked_.size());
    games_.resize(checked_.size());

    // Reading and checksumming every file is the long part of a large build; each image is its own, so the
    // files are shared out to the cores. Only this thread talks to the user.
    const bool allRead = runShared(
        checked_.size(),
        [&](std::size_t i) {
            if (stopRequested())
                return false;
            games_[i].load(checked_[i]->path);
            games_[i].listIndex = static_cast<std::uint32_t>(i);
            return true;
        },
        [&](std::size_t finished) { user_.Progress(BuildStage::ReadingGames, static_cast<int>(finished), total); });
    stopIfRequested();
    if (!allRead)
        throw std::runtime_error("a game could not be read");
    user_.Progress(BuildStage::ReadingGames, total, total);
}

// Runs the assembler on `source`; on failure the user sees what it printed, or why it did not finish.
bool Build::assemble(const QString& source)
{
    user_.Progress(BuildStage::Assembling, 0, 1);
    const AssemblerRun run = runAssembler(workPath(kMenuAssembler), source, request_.assemblerLimitMs, request_.stop);
    user_.Progress(BuildStage::Assembling, 1, 1);
    stopIfRequested(); // a tool ended by the stop has nothing to say
    if (!run.started) {
        tellError(text::AssemblerNotStarted, {workPath(kMenuAssembler)});
        return false;
    }
    if (!run.finished) {
        const int limitSeconds = (request_.assemblerLimitMs + 999) / 1000;
        const QString stopped = FormatText(text(text::AssemblerStopped), {limitSeconds});
        tell(text::AssemblerStopped, stopped + QStringLiteral("\r\n") + run.output, text::TitleError);
        return false;
    }
    if (run.exitCode != 0) {
        tell(0, run.output, text::TitleError);
        return false;
    }
    return true;
}

// An external menu in source form gets the build's data in a folder `build` beside it.
bool Build::exportForExternalSource(int menuBanks)
{
    const QString folder = FolderOf(options_.externMenuPath) + QStringLiteral("/build");
    CreateFolders(folder);
    const ExportInformationResult exported =
        exportInformation({request_.entries, options_, design_, request_.language},
                          board_ == BoardType::Coolgirl ? 1 : 0, menuBanks, folder, {});
    if (!exported.ok && !exported.message.isEmpty())
        tell(0, exported.message, text::TitleError);
    return exported.ok;
}

bool Build::obtainMenu()
{
    if (!externalMenu()) {
        if (!assemble(workPath(kMenuMainSource)))
            return false;
        menu_ = NesImage(workPath("menu/menu.nes"));
        return true;
    }
    if (!FileExists(options_.externMenuPath) || !(externalIs("asm") || externalIs("nes"))) {
        tellError(text::InvalidExternalMenu, {options_.externMenuPath});
        return false;
    }
    if (externalIs("nes")) {
        menu_ = NesImage(options_.externMenuPath);
        return true;
    }
    if (!exportForExternalSource(static_cast<int>(menu_.prgLayoutBanks)) || !assemble(options_.externMenuPath))
        return false;
    menu_ = NesImage(besideExternal("nes"));
    return true;
}

// A list too large for the board ends the build, before the menu is made when the planned layout is already
// too large.
bool Build::fitsBoard(const LayoutResult& layout)
{
    QString refusal;
    if (checkRomSize(layout, board_, request_.language, refusal))
        return true;
    tell(romSizeLimit(board_).refusalTextId, refusal, text::TitleError);
    return false;
}

bool Build::writeOutput(const LayoutResult& layout, BuildResult& result)
{
    QString startFolder;
    RegistryStore::GetString(kSettingsKey, kLastBuildDir, startFolder);
    const std::optional<OutputChoice> choice =
        user_.ChooseOutput(startFolder, static_cast<OutputType>(lastSaveType.load()));
    if (!choice)
        return false;
    lastSaveType = static_cast<int>(choice->type);
    RegistryStore::SetString(kSettingsKey, kLastBuildDir, FolderOf(choice->path));

    result.outputPath = OutputPathOf(*choice);
    if (const QString replaced = InputReplacedBy(result.outputPath, request_.entries); !replaced.isEmpty()) {
        tellError(text::OutputIsInput, {replaced});
        return false;
    }
    result.mapper = board_ == BoardType::Coolgirl ? 342 : 268;
    result.submapper = board_ == BoardType::Mindkids ? 1 : 0;

    user_.Progress(BuildStage::WritingRom, 0, 1);
    RomWriteResult written;
    switch (choice->type) {
    case OutputType::Nes:
        written = writeNes(layout, result.outputPath, result.mapper, result.submapper, request_.stop);
        break;
    case OutputType::Unif: {
        const char* boardName = board_ == BoardType::Coolgirl   ? "COOLGIRL"
                                : board_ == BoardType::Mindkids ? "MINDKIDS"
                                                                : "COOLBOY";
        written = writeRaw(layout, result.outputPath, QLatin1String(boardName), true, request_.stop);
        break;
    }
    case OutputType::Bin:
        written = writeRaw(layout, result.outputPath, QStringLiteral("COOLBOY"), false, request_.stop);
        break;
    }
    user_.Progress(BuildStage::WritingRom, 1, 1);
    stopIfRequested();
    if (!written.ok) {
        tell(text::OperationFailed, text(text::OperationFailed), text::TitleError, {written.problem});
        return false;
    }
    return true;
}

BuildResult Build::run()
{
    BuildResult result;
    stopIfRequested();
    if (!isMenuMusicAvailable(options_.menuMusic) && !externalMenu()) {
        tellError(text::MusicUnavailable, {options_.menuMusic});
        return result;
    }

    const std::uint32_t menuBanks = plannedMenuBanks(options_);
    menu_.setPrgBanks(menuBanks);
    menu_.setPrgLayoutBanks(menuBanks);
    menu_.setChrBanks(0);
    menu_.setChrLayoutBanks(0);

    readGames();
    // The caption is settled with the rest of the design, before game_config.asm counts it.
    design_.CaptionText = DefaultCaption(games_.size());
    design_.LoadDesign();
    if (!listFitsScreen())
        return result;
    const int nameColumn = nameColumnFor(options_, design_);

    // Count the banks before anything is written: a list too long for the menu ends here.
    const BankCounts counted = generateGameSources(names_, games_, buildFolder(), board_, nameColumn, false);
    QString overflow;
    if (!checkOverflow(menu_.prgLayoutBanks, static_cast<std::uint32_t>(counted.names),
                       static_cast<std::uint32_t>(counted.data), static_cast<std::uint32_t>(counted.finalData),
                       request_.language, overflow)) {
        tell(text::MenuBanksOverflow, overflow, text::TitleError);
        return result;
    }

    const WorkFolderHold workFolder(request_.workFolder, request_.keepWorkFolder);
    if (request_.keepWorkFolder)
        result.keptWorkFolder = request_.workFolder;
    if (const ExtractResult extracted = ExtractMenuSources(request_.workFolder); !extracted.ok) {
        tellError(text::WorkFolderNotMade, {extracted.failedPath, extracted.reason});
        return result;
    }
    stopIfRequested();

    if (games_.empty()) {
        tell(text::NoFilesSelected, text(text::NoFilesSelected), text::TitleTips);
        return result;
    }
    normaliseChr(games_);
    QString badGames;
    std::vector<FileProblem> badFiles;
    const bool supported = board_ == BoardType::Coolgirl
                               ? validateCoolgirl(games_, request_.language, badGames, &badFiles)
                               : validateCoolboy(games_, request_.language, badGames, &badFiles);
    if (!supported) {
        tell(0, badGames, text::TitleError, std::move(badFiles));
        return result;
    }
    if (board_ != BoardType::Coolgirl)
        normalisePrg(games_);
    CreateFolders(buildFolder());

    if (externalMenu() && externalIs("asm") && FileExists(options_.externMenuPath)) {
        // A source of one's own may need a step of its own first; its output is what the layout plans with.
        if (!exportForExternalSource(options_.menuSize))
            return result;
#ifdef Q_OS_WIN
        const QString script = besideExternal("bat");
#else
        const QString script = besideExternal("sh");
#endif
        if (FileExists(script))
            runMenuScript(script, FolderOf(options_.externMenuPath), request_.stop);
        stopIfRequested();
        if (!assemble(options_.externMenuPath))
            return result;
        menu_ = NesImage(besideExternal("nes"));
    }

    // The generators need the games' offsets before the menu exists: lay out with the planned menu, whose
    // size the menu's source is told to assemble to.
    const LayoutResult planned = layoutRom(menu_, games_, board_);
    if (!fitsBoard(planned))
        return result;
    const BankCounts banks = generateGameSources(names_, planned.images, buildFolder(), board_, nameColumn, true);
    const GameConfig config = gameConfigFor(options_, design_, board_, static_cast<int>(menu_.prgLayoutBanks),
                                            static_cast<int>(games_.size()), banks);
    if (!writeGameConfig(buildFolder(), config))
        return result;
    exportMenuData(design_, buildFolder(), options_.customEnable);
    DeleteFileQuiet(workPath("menu/menu.nes"));

    if (!obtainMenu())
        return result;
    QString problem;
    if (!checkMenu(menu_, request_.language, problem)) {
        tell(text::MenuError, problem, text::TitleError);
        return result;
    }
    const LayoutResult layout = layoutRom(menu_, games_, board_);
    if (!fitsBoard(layout))
        return result;
    if (!writeOutput(layout, result))
        return result;

    result.ok = true;
    result.games = static_cast<int>(games_.size());
    result.romBytes = layout.romBytes;
    result.uniqueBytes = layout.uniqueBytes;
    user_.OfferToShowResult(result.outputPath);
    return result;
}

} // namespace

void BuildUser::Progress(BuildStage, int, int) {}

QString DefaultWorkFolder()
{
    return workFolderRoot() + QLatin1Char('/') + QString::number(QCoreApplication::applicationPid());
}

void RemoveAbandonedWorkFolders()
{
    const QDir root(workFolderRoot());
    const qint64 own = QCoreApplication::applicationPid();
    for (const QString& name : root.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        bool isNumber = false;
        const qint64 processId = name.toLongLong(&isNumber);
        if (isNumber && name == QString::number(processId) && processId != own && !IsProcessRunning(processId))
            RemoveWorkFolder(root.filePath(name));
    }
}

QString OutputPathOf(const OutputChoice& choice)
{
    const char* extension = "nes";
    for (const OutputFormat& format : kOutputFormats)
        if (format.type == choice.type)
            extension = format.extension;
    if (ExtensionOf(choice.path, false).compare(QLatin1String(extension), Qt::CaseInsensitive) == 0)
        return choice.path;
    return choice.path + QLatin1Char('.') + QLatin1String(extension);
}

QString InputReplacedBy(const QString& outputPath, const std::vector<GameEntry>& entries)
{
    for (const GameEntry& entry : entries)
        if (IsSameFile(outputPath, entry.path))
            return entry.path;
    return {};
}

BuildResult runBuild(const BuildRequest& request, BuildUser& user, std::atomic<bool>& busy)
{
    const auto show = [&](int textId, std::initializer_list<TextArg> args, int titleId) {
        user.ShowMessage({textId, FormatText(StringTable::Get(textId, request.language), args), titleId,
                          MessageStyle::Ok});
    };
    if (busy.exchange(true)) {
        show(text::Busy, {}, text::TitleWarn);
        return {};
    }
    const BusyHold hold(busy);
    const std::size_t games = checkedCount(request.entries);
    if (games > static_cast<std::size_t>(kMaxBuildGames)) {
        show(text::TooManyGames, {kMaxBuildGames}, text::TitleWarn);
        return {};
    }
    // A game past the menu's index tables would start another game's data: no such ROM is made.
    QString tooMany;
    if (!checkGameCount(games, request.language, tooMany)) {
        user.ShowMessage({text::TooManyForMenu, tooMany, text::TitleError, MessageStyle::Ok});
        return {};
    }
    try {
        return Build(request, user).run();
    } catch (const StoppedOnRequest&) {
        show(text::BuildStopped, {}, text::TitleWarn);
        BuildResult stopped;
        stopped.stopped = true;
        return stopped;
    } catch (const std::exception&) {
        // Out of memory or the like: the build ends as failed, its work folder already gone.
        show(text::OperationFailed, {}, text::TitleError);
        return {};
    }
}

} // namespace zunbrix
