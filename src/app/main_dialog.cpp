#include "app/main_dialog.h"

#include "app/about_dialog.h"
#include "app/design_dialog.h"
#include "app/export_settings_dialog.h"
#include "app/extern_menu_dialog.h"
#include "app/game_list_view.h"
#include "app/rename_dialog.h"
#include "designer/document.h"
#include "frame/crash_dump.h"
#include "frame/paths.h"
#include "frame/registry_store.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"
#include "gamelist/game_list.h"
#include "gamelist/history.h"
#include "gamelist/list_file.h"
#include "gamelist/main_commands.h"
#include "gamelist/main_settings.h"
#include "gamelist/window_placement.h"
#include "menu/menu_source_tree.h"
#include "multicart/export_information.h"
#include "multicart/flash_use.h"
#include "update/program_replacement.h"

#include <QAction>
#include <QActionGroup>
#include <QBoxLayout>
#include <QCloseEvent>
#include <QContextMenuEvent>
#include <QDir>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QSystemTrayIcon>
#include <QUrl>

#include <algorithm>
#include <type_traits>
#include <utility>

namespace zunbrix {

namespace {

// Sizes in device-independent pixels; Qt scales them by the screen's DPI.
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 24;
constexpr int kButtonGap = 8;
constexpr int kMargin = 4;
constexpr QSize kFirstSize(960, 600);

constexpr int kWindowTitleText = 123;
constexpr int kTrayTipLength = 128;
constexpr int kRomInfoText = 156;
constexpr int kOfferToShowText = 284;

QString lastFolder(const char* name)
{
    QString folder;
    RegistryStore::GetString(QLatin1String(kMainSettingsKey), QLatin1String(name), folder);
    return folder;
}

void keepFolder(const char* name, const QString& folder)
{
    RegistryStore::SetString(QLatin1String(kMainSettingsKey), QLatin1String(name), folder);
}

// Runs `ask` on the window's thread and waits for its answer; the worker that calls this holds `busy`.
template <typename Ask>
std::invoke_result_t<Ask> onWindowThread(QObject* window, Ask ask)
{
    std::invoke_result_t<Ask> answer{};
    QMetaObject::invokeMethod(window, [&] { answer = ask(); }, Qt::BlockingQueuedConnection);
    return answer;
}

QString boardName(BoardType board)
{
    switch (board) {
    case BoardType::Coolboy: return QStringLiteral("COOLBOY");
    case BoardType::Mindkids: return QStringLiteral("MINDKIDS");
    case BoardType::Coolgirl: return QStringLiteral("COOLGIRL");
    }
    return {};
}

double megabytes(std::uint64_t bytes)
{
    return static_cast<double>(bytes) / (1 << 20);
}

struct HistoryRead {
    std::vector<GameEntry> entries;
    HistoryLoadResult result;
};

} // namespace

// The build's user is the window: its messages and questions go to the window's thread and wait there.
class WindowBuildUser : public BuildUser {
public:
    explicit WindowBuildUser(CMainDialog& window) : window_(window) {}

    MessageAnswer ShowMessage(const BuildMessage& message) override
    {
        return onWindowThread(&window_, [&] {
            return window_.tell(withFileProblems(message.text, message.problems, window_.language()), message.titleId,
                                message.style);
        });
    }
    std::optional<OutputChoice> ChooseOutput(const QString& startFolder, OutputType startType) override
    {
        return onWindowThread(&window_, [&] { return window_.chooseOutput(startFolder, startType); });
    }
    void OfferToShowResult(const QString& outputPath) override
    {
        onWindowThread(&window_, [&] {
            window_.offerToShow(FolderOf(outputPath));
            return true;
        });
    }

private:
    CMainDialog& window_;
};

CMainDialog::CMainDialog(std::unique_ptr<WindowQuestions> questions, QWidget* parent)
    : QMainWindow(parent), questions_(std::move(questions)), list_(new GameList(this))
{
    setMinimumSize(400, 360);
    setAcceptDrops(true);
    setWindowIcon(QIcon(QStringLiteral(":/zunbrix/zunbrix.png")));
    createActions();
    createMenus();
    createControls();
    createTrayIcon();
    DesignDocument design;
    design.LoadDesign();
    state_.setCustomListAddress(design.ItemPpuAddr);
    const bool chineseSystem = QLocale::system().language() == QLocale::Chinese;
    for (int id : MainCommandState::StartupReplay(chineseSystem))
        runCommand(id, MainCommandState::Origin::Replay);
    showMarks();
    applyTexts();
    // The list's widths, made wide enough for the titles in the language shown; a stored list brings its own.
    for (int column = 0; column < kListColumnCount; ++column)
        view_->setColumnWidth(column, std::max(kListColumns[static_cast<std::size_t>(column)].width,
                                               view_->horizontalHeader()->sectionSizeHint(column)));
    restorePlacement();
    // The old program left by an update may still be ending: its deletion waits between tries, off this thread.
    workers_.start([] { DeleteReplacedProgram(); });
    loadHistory();
    // Told once the window is up, over it.
    QMetaObject::invokeMethod(this, &CMainDialog::announceCrashReport, Qt::QueuedConnection);
}

CMainDialog::~CMainDialog() = default;

void CMainDialog::createActions()
{
    QHash<CommandGroup, QActionGroup*> groups;
    for (const MainCommand& row : MainCommands()) {
        auto* action = new QAction(this);
        action->setCheckable(row.kind != CommandKind::Action);
        if (row.shortcut[0] != '\0')
            action->setShortcut(QKeySequence(QString::fromLatin1(row.shortcut)));
        if (row.kind == CommandKind::Radio) {
            QActionGroup*& group = groups[row.group];
            if (group == nullptr) {
                // The marks come from the command state; the group only gives the items their radio look.
                group = new QActionGroup(this);
                group->setExclusionPolicy(QActionGroup::ExclusionPolicy::ExclusiveOptional);
            }
            group->addAction(action);
        }
        const int id = row.id;
        connect(action, &QAction::triggered, this, [this, id] { runCommand(id, MainCommandState::Origin::User); });
        actions_.insert(id, action);
    }
}

void CMainDialog::createMenus()
{
    QVector<QMenu*> open; // the submenu at each depth of the outline
    for (const MenuItem& item : MainMenu()) {
        open.resize(item.depth);
        if (item.commandId != 0) {
            open.back()->addAction(actions_.value(item.commandId));
            continue;
        }
        QMenu* menu = item.depth == 0 ? menuBar()->addMenu(QString()) : open.back()->addMenu(QString());
        menus_.append({menu, item.textId});
        open.append(menu);
    }
    shortMenu_ = new QMenu(this);
    for (int id : ShortMenu())
        shortMenu_->addAction(actions_.value(id));
}

void CMainDialog::createControls()
{
    auto* central = new QWidget(this);
    auto* row = new QHBoxLayout(central);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    view_ = new GameListView(*list_, central);
    CRenameDialog::installUndo(*view_, *list_, search_);
    connect(view_, &GameListView::openRequested, this, [this](const QString& path) { questions_->openWithSystem(path); });
    row->addWidget(view_, 1);

    auto* column = new QVBoxLayout;
    column->setSpacing(kButtonGap);
    for (const ListButton& entry : ListButtons()) {
        auto* button = new QPushButton(central);
        button->setFixedSize(kButtonWidth, kButtonHeight);
        const int id = entry.id;
        connect(button, &QPushButton::clicked, this, [this, id] { runListButton(id); });
        column->addWidget(button);
        buttons_.insert(id, button);
    }
    column->addStretch(1);
    row->addLayout(column);
    setCentralWidget(central);

    status_ = new QLabel(this);
    status_->setTextInteractionFlags(Qt::TextSelectableByKeyboard | Qt::TextSelectableByMouse);
    statusBar()->addWidget(status_, 1);
    for (auto signal : {&GameList::rowsInserted, &GameList::rowsRemoved})
        connect(list_, signal, this, &CMainDialog::updateStatus);
    connect(list_, &GameList::modelReset, this, &CMainDialog::updateStatus);
    connect(list_, &GameList::dataChanged, this, &CMainDialog::updateStatus);
}

void CMainDialog::createTrayIcon()
{
    tray_ = new QSystemTrayIcon(windowIcon(), this);
    tray_->setContextMenu(shortMenu_);
    connect(tray_, &QSystemTrayIcon::activated, this, [this](QSystemTrayIcon::ActivationReason reason) {
        if (reason == QSystemTrayIcon::DoubleClick)
            bringForward();
    });
    if (questions_->hasSystemTray())
        tray_->show();
}

void CMainDialog::bringForward()
{
    showNormal();
    raise();
    activateWindow();
}

void CMainDialog::restorePlacement()
{
    const WindowPlacement placement = ReadWindowPlacement();
    const QSize size = placement.size.value_or(kFirstSize).expandedTo(minimumSize());
    // The screen the window was left on, if it is still there.
    QScreen* screen = placement.position ? QGuiApplication::screenAt(*placement.position) : nullptr;
    if (screen == nullptr)
        screen = QGuiApplication::primaryScreen();
    const QRect workArea = screen != nullptr ? screen->availableGeometry() : QRect(QPoint(0, 0), size);
    const QPoint wanted = placement.position.value_or(workArea.center() - QPoint(size.width(), size.height()) / 2);
    setGeometry(QRect(KeptOnScreen(wanted, size, workArea), size));
}

void CMainDialog::loadHistory()
{
    runInBackground(
        [] {
            HistoryRead read;
            read.result = LoadHistory(read.entries);
            return read;
        },
        [this](HistoryRead read) {
            const AddResult added = list_->append(GameFiles{std::move(read.entries), 0, read.result.exceedsCapacity});
            for (int column = 0; column < kListColumnCount; ++column)
                if (const int width = read.result.widths[static_cast<std::size_t>(column)]; width > 0)
                    view_->setColumnWidth(column, width);
            historyLoaded_ = true;
            // The stored list opens where it was; only a warning is left to show.
            showChange(ListChange{added.message, -1});
            if (!waitingFiles_.isEmpty())
                addFiles(std::exchange(waitingFiles_, {}));
        });
}

void CMainDialog::announceCrashReport()
{
    const QString report = TakeNewCrashReport();
    if (!report.isEmpty())
        tell(FormatText(text(text::CrashReportLeft), {QDir::toNativeSeparators(report)}), text::TitleTips);
}

template <typename Work, typename Done>
void CMainDialog::runInBackground(Work work, Done done)
{
    ++running_;
    workers_.start([this, work = std::move(work), done = std::move(done)]() mutable {
        auto result = work();
        QMetaObject::invokeMethod(
            this,
            [this, done = std::move(done), result = std::move(result)]() mutable {
                --running_;
                done(std::move(result));
                Q_EMIT workFinished();
            },
            Qt::QueuedConnection);
    });
}

void CMainDialog::addFiles(const QStringList& names)
{
    if (!historyLoaded_) {
        waitingFiles_ += names;
        return;
    }
    if (names.isEmpty() || refusedWhileBusy())
        return;
    const int room = list_->room();
    runInBackground([names, room] { return ReadGameFiles(names, room); },
                    [this](GameFiles files) {
                        const AddResult added = list_->append(std::move(files));
                        skippedFiles_ = added.skipped;
                        updateStatus();
                        showChange(added);
                    });
}

void CMainDialog::runCommand(int id, MainCommandState::Origin origin)
{
    state_.run(id, origin);
    if (origin == MainCommandState::Origin::User) {
        showMarks();
        updateStatus(); // the planned ROM follows the board and the menu size
    }
    switch (id) {
    case command::Open: openGames(); break;
    case command::Load: loadList(); break;
    case command::Save: saveList(); break;
    case command::Exit: closeWithMarker(CloseMarker::ExitCommand); break;
    case command::BuildCoolboy: build(state_.options().boardType); break;
    case command::BuildCoolgirl: build(BoardType::Coolgirl); break;
    case command::ExportInfo: exportInformation(); break;
    case command::RomInfo: tell(kRomInfoText, text::TitleTips); break;
    case command::FindReplace: openFindReplace(); break;
    case command::Design: openDesigner(); break;
    case command::ExternMenuSettings: editExternMenu(); break;
    case command::ExportSettings:
        if (CExportSettingsDialog(language(), this).exec() == QDialog::Accepted)
            Q_EMIT updateCheckAsked(true);
        break;
    case command::Update: Q_EMIT updateCheckAsked(false); break;
    case command::About: CAboutDialog(language(), this).exec(); break;
    case command::Topmost: {
        // A new flag hides the window; one hidden in the tray stays there.
        const bool shown = isVisible();
        setWindowFlag(Qt::WindowStaysOnTopHint, state_.topmost());
        if (shown)
            show();
        break;
    }
    case command::LanguageChinese:
    case command::LanguageEnglish:
        if (origin == MainCommandState::Origin::User)
            applyTexts();
        break;
    default:
        break;
    }
}

void CMainDialog::openFindReplace()
{
    if (!renameDialog_) {
        renameDialog_ = new CRenameDialog(*list_, search_, view_, language(), this);
        renameDialog_->show();
    }
    renameDialog_->raise();
    renameDialog_->activateWindow();
}

void CMainDialog::openDesigner()
{
    if (!designDialog_) {
        // The designer previews the checked games as the menu will list them.
        QStringList names;
        for (const GameEntry& entry : list_->entries())
            if (entry.checked)
                names.push_back(entry.name);
        const BuildOptions& options = state_.options();
        auto* designer = new CDesignDialog(DesignDocument::process(), language(), this);
        designer->setAttribute(Qt::WA_DeleteOnClose);
        designer->editor().SetCaption(DefaultCaption(names.size()));
        designer->editor().SetList(displayNames(names, options), options.pageSize, options.nameInsertRow);
        if (!designer->openDesign()) {
            delete designer;
            tell(text::OperationFailed, text::TitleError);
            return;
        }
        designDialog_ = designer;
        designer->show();
    }
    designDialog_->raise();
    designDialog_->activateWindow();
}

void CMainDialog::editExternMenu()
{
    const int result = CExtrenMenuDialog(language(), this).exec();
    state_.reloadExternMenuPath();
    if (result == CExtrenMenuDialog::kConfirmed)
        Q_EMIT updateCheckAsked(true);
}

void CMainDialog::runListButton(int id)
{
    if (id != listButton::Clear && refusedWhileBusy())
        return;
    switch (id) {
    case listButton::MoveUp: showChange(list_->moveChecked(ListMove::Up)); break;
    case listButton::MoveDown: showChange(list_->moveChecked(ListMove::Down)); break;
    case listButton::MoveTop: showChange(list_->moveChecked(ListMove::Top)); break;
    case listButton::MoveBottom: showChange(list_->moveChecked(ListMove::Bottom)); break;
    case listButton::SelectAll: list_->checkAll(); break;
    case listButton::SelectInverse: list_->invertAll(); break;
    case listButton::Remove: list_->removeChecked(); break;
    case listButton::Clear:
        if (const std::optional<ListMessage> question = list_->clearQuestion();
            question && tell(*question, MessageStyle::YesNo) == MessageAnswer::Yes)
            list_->clear();
        break;
    default: break;
    }
}

void CMainDialog::openGames()
{
    if (refusedForAdding())
        return;
    const QStringList names =
        questions_->chooseGames(this, text(text::OpenGamesTitle), text(text::NesImagesFilter), lastFolder("LastOpenDir"));
    if (names.isEmpty())
        return;
    keepFolder("LastOpenDir", FolderOf(names.front()));
    addFiles(names);
}

void CMainDialog::loadList()
{
    if (refusedForAdding())
        return;
    const QString chosen = questions_->chooseListToLoad(this, text(text::LoadListTitle), text(text::ListFilesFilter),
                                                        lastFolder("LastLoadDir"));
    if (chosen.isEmpty())
        return;
    keepFolder("LastLoadDir", FolderOf(chosen));
    addFiles({chosen});
}

void CMainDialog::saveList()
{
    if (refusedWhileBusy())
        return;
    const QString chosen = questions_->chooseListToSave(this, text(text::SaveListTitle), text(text::ListFilesFilter),
                                                        lastFolder("LastLoadDir"));
    if (chosen.isEmpty())
        return;
    keepFolder("LastLoadDir", FolderOf(chosen));
    runInBackground([chosen, entries = list_->entries()] { return SaveListFile(chosen, entries); },
                    [this, chosen](const std::optional<QString>& written) {
                        if (!written)
                            tell(FormatText(text(text::ListNotWritten), {ListFilePath(chosen)}), text::TitleError);
                    });
}

void CMainDialog::build(BoardType board)
{
    if (refusedWhileBusy())
        return;
    // The build works on a copy: the list and the settings may change while it runs without reaching it.
    BuildRequest request;
    request.entries = list_->entries();
    request.options = state_.options();
    request.options.boardType = board;
    request.language = language();
    request.workFolder = DefaultWorkFolder();
    runInBackground(
        [this, request = std::move(request)] {
            WindowBuildUser user(*this);
            return runBuild(request, user, buildBusy_);
        },
        [this](const BuildResult&) { updateStatus(); });
}

void CMainDialog::exportInformation()
{
    if (refusedWhileBusy())
        return;
    // The folder is asked first, so that nothing is written anywhere the user did not choose.
    const QString folder = questions_->chooseFolder(this, text(text::ExportFolderTitle), lastFolder("LastExportDir"));
    if (folder.isEmpty())
        return;
    runInBackground(
        [entries = list_->entries(), options = state_.options(), language = language(), folder] {
            DesignDocument design;
            const ExportSettings settings = ReadExportSettings();
            return zunbrix::exportInformation({entries, options, design, language}, settings.romType,
                                              settings.menuBanks, folder, {});
        },
        [this](const ExportInformationResult& result) {
            if (!result.ok) {
                if (result.message.isEmpty())
                    tell(text::OperationFailed, text::TitleError);
                else
                    tell(withFileProblems(result.message, result.problems, language()), text::TitleError);
                return;
            }
            keepFolder("LastExportDir", result.folder);
            offerToShow(result.folder);
        });
}

std::optional<OutputChoice> CMainDialog::chooseOutput(const QString& startFolder, OutputType startType)
{
    const QStringList filters{text(text::NesRomFilter), text(text::UnifRomFilter), text(text::BinRomFilter)};
    return questions_->chooseOutput(this, text(text::SaveRomTitle), filters, startFolder, startType);
}

void CMainDialog::offerToShow(const QString& folder)
{
    if (tell(kOfferToShowText, text::TitleTips, MessageStyle::YesNo) == MessageAnswer::Yes)
        questions_->openWithSystem(folder);
}

bool CMainDialog::refusedWhileBusy()
{
    if (!busy())
        return false;
    tell(text::Busy, text::TitleWarn);
    return true;
}

bool CMainDialog::refusedForAdding()
{
    if (refusedWhileBusy())
        return true;
    const std::optional<ListMessage> full = list_->fullRefusal();
    if (full)
        tell(*full);
    return full.has_value();
}

MessageAnswer CMainDialog::tell(const ListMessage& message, MessageStyle style)
{
    return tell(message.text(language()), message.titleId, style);
}

MessageAnswer CMainDialog::tell(int textId, int titleId, MessageStyle style)
{
    return tell(text(textId), titleId, style);
}

MessageAnswer CMainDialog::tell(const QString& shown, int titleId, MessageStyle style)
{
    return questions_->showMessage(this, shown, text(titleId), style);
}

void CMainDialog::showChange(const ListChange& change)
{
    if (change.rowToShow >= 0)
        view_->scrollTo(list_->index(change.rowToShow, kNumberColumn));
    if (change.message)
        tell(*change.message);
}

void CMainDialog::closeEvent(QCloseEvent* event)
{
    // The close box, or the close that an exit makes.
    if (!exiting_)
        closeWithMarker(CloseMarker::CloseBox);
    event->setAccepted(exiting_);
}

bool CMainDialog::closeWithMarker(CloseMarker marker)
{
    if (exiting_)
        return true;
    const bool hasTray = questions_->hasSystemTray();
    if (AsksBeforeClosing(marker, ReadCloseSettings(), hasTray) && !questions_->askHowToClose(this, language()))
        return false;
    if (ClosingHides(marker, ReadCloseSettings(), hasTray)) {
        hide();
        return false;
    }
    // A worker still posts to the window, a build even waits for its answers: it has to end first.
    if (refusedWhileBusy())
        return false;
    exitWindow(marker);
    return true;
}

void CMainDialog::exitWindow(CloseMarker marker)
{
    exiting_ = true;
    // Stored values that fail to be written are lost with this run only: the exit goes on.
    RemoveWorkFolder(DefaultWorkFolder());
    if (renameDialog_)
        renameDialog_->close();
    if (designDialog_)
        designDialog_->close();
    ColumnWidths widths;
    for (int column = 0; column < kListColumnCount; ++column)
        widths[static_cast<std::size_t>(column)] = view_->columnWidth(column);
    SaveHistory(list_->entries(), widths);
    tray_->hide();
    StoreWindowPlacement(normalGeometry());
    if (marker == CloseMarker::Update && beforeUpdateExit_)
        beforeUpdateExit_();
    close();
    Q_EMIT exited();
}

void CMainDialog::showTitle(const QString& title)
{
    setWindowTitle(title.isEmpty() ? text(kWindowTitleText) : title);
}

void CMainDialog::contextMenuEvent(QContextMenuEvent* event)
{
    shortMenu_->exec(event->globalPos());
}

void CMainDialog::dragEnterEvent(QDragEnterEvent* event)
{
    if (event->mimeData()->hasUrls())
        event->acceptProposedAction();
}

void CMainDialog::dropEvent(QDropEvent* event)
{
    QStringList names;
    for (const QUrl& url : event->mimeData()->urls())
        if (url.isLocalFile())
            names.push_back(url.toLocalFile());
    event->acceptProposedAction();
    addFiles(names);
}

void CMainDialog::showMarks()
{
    for (auto it = actions_.cbegin(); it != actions_.cend(); ++it) {
        it.value()->setChecked(state_.checked(it.key()));
        it.value()->setEnabled(state_.enabled(it.key()));
    }
}

void CMainDialog::applyTexts()
{
    for (const MainCommand& row : MainCommands())
        actions_.value(row.id)->setText(row.textId != 0 ? text(row.textId) : QString::fromLatin1(row.label));
    for (const auto& [menu, textId] : menus_)
        menu->setTitle(text(textId));
    for (const ListButton& entry : ListButtons())
        buttons_.value(entry.id)->setText(text(entry.textId));
    list_->setLanguage(language());
    if (renameDialog_)
        renameDialog_->setLanguage(language());
    if (designDialog_)
        designDialog_->setLanguage(language());
    view_->setAccessibleName(text(text::GameListName));
    setWindowTitle(text(kWindowTitleText));
    tray_->setToolTip(text(kWindowTitleText).left(kTrayTipLength));
    updateStatus();
}

void CMainDialog::updateStatus()
{
    const QString gap = QStringLiteral("    ");
    QString line = list_->summaryLine();
    if (skippedFiles_ > 0)
        line += gap + FormatText(text(text::FilesSkipped), {skippedFiles_});
    // For the board of the COOLBOY type and for COOLGIRL: what a build of the checked games would write.
    BuildOptions options = state_.options();
    for (const BoardType board : {options.boardType, BoardType::Coolgirl}) {
        options.boardType = board;
        const FlashUse use = plannedFlashUse(list_->entries(), options);
        if (use.games > 0 && !use.tooManyGames && use.boardTakesAll)
            line += gap + FormatText(text(text::PlannedFlashUse),
                                     {boardName(board), megabytes(use.romBytes), megabytes(use.uniqueBytes)});
    }
    status_->setText(line);
}

QString CMainDialog::statusText() const
{
    return status_->text();
}

QString CMainDialog::text(int id) const
{
    return StringTable::Get(id, state_.language());
}

} // namespace zunbrix
