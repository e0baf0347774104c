// The real main window on a screen of its own (the offscreen platform), driven as a user drives it: events on
// its controls, drops of real files, its menus and buttons. Its questions are answered by a script.
#include "app/design_dialog.h"
#include "app/game_list_view.h"
#include "app/main_dialog.h"
#include "app/rename_dialog.h"
#include "app/scripted_questions.h"
#include "e2e/fceux_runner.h"
#include "e2e/sample_verdict.h"
#include "frame/registry_store.h"
#include "frame/string_table.h"
#include "frame/text_ids.h"
#include "gamelist/game_list.h"
#include "gamelist/main_commands.h"
#include "multicart/build_driver.h"
#include "samples/sample_games.h"
#include "support/generated_file.h"
#include "support/private_settings.h"

#include <QAccessible>
#include <QAction>
#include <QDir>
#include <QDropEvent>
#include <QHelpEvent>
#include <QFile>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QMimeData>
#include <QPushButton>
#include <QScreen>
#include <QSet>
#include <QStatusBar>
#include <QSignalSpy>
#include <QSystemTrayIcon>
#include <QTemporaryDir>
#include <QTest>
#include <QToolTip>
#include <QUrl>

#include <gtest/gtest.h>

namespace zunbrix {
namespace {

using testing::ScriptedQuestions;

constexpr int kWaitMs = 60000;
const QString kMainKey = QStringLiteral("Software\\Zunbrix");

QString sampleGame(std::string_view fileName)
{
    return QString::fromUtf8(samples::kSampleGameDir.data(), qsizetype(samples::kSampleGameDir.size())) + '/' +
           QString::fromUtf8(fileName.data(), qsizetype(fileName.size()));
}

// The sample games a COOLBOY takes (mappers 0 and 4), in the table's order.
std::vector<const samples::SampleGame*> coolboyGames()
{
    std::vector<const samples::SampleGame*> games;
    for (const samples::SampleGame& game : samples::kSampleGames)
        if (game.mapper == 0 || game.mapper == 4)
            games.push_back(&game);
    return games;
}

class MainWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        testing::windowApplication();
        ASSERT_TRUE(folder.isValid());
        // The user's data folder holds the work folder and crash reports: a private one for each test.
        ASSERT_TRUE(dataHome.isValid());
        qputenv("XDG_DATA_HOME", dataHome.path().toLocal8Bit());
        openWindow();
    }

    void TearDown() override
    {
        window.reset();
        qputenv("XDG_DATA_HOME", previousDataHome);
    }

    void openWindow()
    {
        auto scripted = std::make_unique<ScriptedQuestions>();
        scripted->trayAvailable = trayAvailable;
        questions = scripted.get();
        window = std::make_unique<CMainDialog>(std::move(scripted));
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
        waitIdle();
    }

    // Waits until the window's long work has ended and its result is shown.
    void waitIdle()
    {
        ASSERT_TRUE(QTest::qWaitFor([&] { return !window->busy(); }, kWaitMs)) << "the long work ends";
        QCoreApplication::processEvents();
    }

    void drop(const QStringList& paths)
    {
        auto* data = new QMimeData;
        QList<QUrl> urls;
        for (const QString& path : paths)
            urls.push_back(QUrl::fromLocalFile(path));
        data->setUrls(urls);
        const QPoint centre = window->rect().center();
        QDragEnterEvent enter(centre, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &enter);
        EXPECT_TRUE(enter.isAccepted());
        QDropEvent dropped(centre, Qt::CopyAction, data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(window.get(), &dropped);
        waitIdle();
        delete data;
    }

    QString copyGame(const samples::SampleGame& game, const QString& name)
    {
        const QString path = folder.filePath(name);
        EXPECT_TRUE(QFile::copy(sampleGame(game.fileName), path));
        return path;
    }

    GameList& list() const { return window->list(); }
    int rows() const { return list().rowCount(); }
    QString name(int row) const { return list().entries()[static_cast<std::size_t>(row)].name; }
    bool checked(int row) const { return list().entries()[static_cast<std::size_t>(row)].checked; }
    QString lastMessage() const { return questions->messages.empty() ? QString() : questions->messages.back().text; }

    // A click of the mouse on a cell as a user makes it; `onCheckBox` aims at the box of the number column.
    void clickCell(int row, int column, Qt::KeyboardModifiers modifiers = Qt::NoModifier, bool onCheckBox = false)
    {
        GameListView* view = window->view();
        const QRect cell = view->visualRect(list().index(row, column));
        const QPoint at = onCheckBox ? QPoint(cell.left() + 10, cell.center().y()) : cell.center();
        QTest::mouseClick(view->viewport(), Qt::LeftButton, modifiers, at);
    }

    void pressButton(int id) { QTest::mouseClick(window->button(id), Qt::LeftButton); }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    const QByteArray previousDataHome = qgetenv("XDG_DATA_HOME");
    QTemporaryDir dataHome;
    ScriptedQuestions* questions = nullptr;
    bool trayAvailable = true; // for the next window
    std::unique_ptr<CMainDialog> window;
};

TEST_F(MainWindow, DroppedFolderListsItsGamesAndTheStatusCountsWhatWasSkipped)
{
    const auto games = coolboyGames();
    ASSERT_GE(games.size(), 3u);
    QDir(folder.path()).mkpath(QStringLiteral("games"));
    for (int i = 0; i < 3; ++i)
        copyGame(*games[static_cast<std::size_t>(i)], QStringLiteral("games/%1.nes").arg(char('a' + i)));
    QFile notes(folder.filePath(QStringLiteral("games/notes.nes")));
    ASSERT_TRUE(notes.open(QIODevice::WriteOnly));
    notes.write("not a game at all");
    notes.close();

    drop({folder.filePath(QStringLiteral("games"))});
    ASSERT_EQ(rows(), 3);
    EXPECT_EQ(name(0), QStringLiteral("a"));
    EXPECT_EQ(name(2), QStringLiteral("c"));
    EXPECT_TRUE(window->statusText().startsWith(QStringLiteral("Selected: 0 item(s) All: 3 item(s)")))
        << window->statusText().toStdString();
    EXPECT_TRUE(window->statusText().contains(QStringLiteral("1 file(s) skipped")))
        << window->statusText().toStdString();
}

TEST_F(MainWindow, NoCellSaysWhyTheBoardCannotTakeTheGame)
{
    const auto mmc1 = std::find_if(samples::kSampleGames.begin(), samples::kSampleGames.end(),
                                   [](const samples::SampleGame& game) { return game.mapper == 1; });
    ASSERT_NE(mmc1, samples::kSampleGames.end());
    drop({copyGame(*mmc1, QStringLiteral("mmc1.nes"))});
    ASSERT_EQ(rows(), 1);
    GameListView* view = window->view();
    const QModelIndex cell = list().index(0, 8);
    EXPECT_EQ(cell.data().toString(), QStringLiteral("NO"));
    const QPoint at = view->visualRect(cell).center();
    QHelpEvent help(QEvent::ToolTip, at, view->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(view->viewport(), &help);
    ASSERT_TRUE(QTest::qWaitFor([] { return QToolTip::isVisible(); }));
    EXPECT_EQ(QToolTip::text(), QStringLiteral("1.mmc1 Mapper1 not supported!"));
}

TEST_F(MainWindow, OpenAndLoadAddBehindTheListAndRememberTheirFolders)
{
    const auto games = coolboyGames();
    questions->games = {copyGame(*games[0], QStringLiteral("one.nes")), copyGame(*games[1], QStringLiteral("two.nes"))};
    window->action(command::Open)->trigger();
    waitIdle();
    ASSERT_EQ(rows(), 2);
    QString stored;
    ASSERT_TRUE(RegistryStore::GetString(kMainKey, QStringLiteral("LastOpenDir"), stored));
    EXPECT_EQ(QDir(stored), QDir(folder.path()));

    // A list saved through the window and loaded again comes in behind what is there.
    questions->listToSave = folder.filePath(QStringLiteral("saved"));
    window->action(command::Save)->trigger();
    waitIdle();
    ASSERT_TRUE(QFile::exists(folder.filePath(QStringLiteral("saved.qvl"))));
    questions->listToLoad = folder.filePath(QStringLiteral("saved.qvl"));
    window->action(command::Load)->trigger();
    waitIdle();
    ASSERT_EQ(rows(), 4);
    EXPECT_EQ(name(2), QStringLiteral("one"));
    EXPECT_EQ(questions->startFolders.back(), stored) << "Load starts where Save left off";
    EXPECT_TRUE(questions->messages.empty()) << lastMessage().toStdString();

    // A list file dropped on the window is read as a list, its missing games listed all the same.
    QFile list(folder.filePath(QStringLiteral("dropped.QVL")));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write("\xEF\xBB\xBF[history]\r\ncount=1\r\n00000_path=/nowhere/gone.nes\r\n00000_name=Gone\r\n"
               "00000_check=1\r\n00000_remark=kept\r\n");
    list.close();
    drop({list.fileName()});
    ASSERT_EQ(rows(), 5);
    EXPECT_EQ(name(4), QStringLiteral("Gone"));
    EXPECT_TRUE(checked(4));
}

class FilledWindow : public MainWindow {
protected:
    void SetUp() override
    {
        MainWindow::SetUp();
        const auto games = coolboyGames();
        QStringList paths;
        for (int i = 0; i < 5; ++i)
            paths.push_back(copyGame(*games[static_cast<std::size_t>(i) % games.size()],
                                     QStringLiteral("%1.nes").arg(QChar(u'E' - i))));
        drop(paths); // E D C B A
        ASSERT_EQ(rows(), 5);
    }
};

TEST_F(FilledWindow, ClicksCheckRowsAndTheButtonsMoveThem)
{
    clickCell(1, 0, Qt::NoModifier, true); // the box of D
    EXPECT_TRUE(checked(1));
    clickCell(3, 2, Qt::ShiftModifier); // through B, from the last click
    EXPECT_TRUE(checked(2) && checked(3));
    EXPECT_FALSE(checked(0) || checked(4));
    EXPECT_TRUE(window->statusText().startsWith(QStringLiteral("Selected: 3 item(s) All: 5 item(s)")));

    pressButton(listButton::MoveUp);
    EXPECT_EQ(name(0), QStringLiteral("D"));
    EXPECT_EQ(name(3), QStringLiteral("E"));
    pressButton(listButton::MoveBottom);
    QStringList order;
    for (int row = 0; row < rows(); ++row)
        order.push_back(name(row));
    EXPECT_EQ(order, (QStringList{"E", "A", "D", "C", "B"}));

    pressButton(listButton::SelectInverse);
    pressButton(listButton::Remove);
    EXPECT_EQ(rows(), 3);

    questions->yesNoAnswer = MessageAnswer::No;
    pressButton(listButton::Clear);
    EXPECT_EQ(rows(), 3);
    EXPECT_EQ(lastMessage(), QStringLiteral("Confirm emptying the list?"));
    questions->yesNoAnswer = MessageAnswer::Yes;
    pressButton(listButton::Clear);
    EXPECT_EQ(rows(), 0);
    EXPECT_TRUE(window->statusText().startsWith(QStringLiteral("Selected: 0 item(s) All: 0 item(s)")));
}

TEST_F(FilledWindow, MoveOfMoreThanAHundredIsRefusedAndTheOrderStays)
{
    QStringList paths;
    for (int i = 0; i < 100; ++i)
        paths.push_back(list().entries()[0].path);
    drop(paths);
    ASSERT_EQ(rows(), 105);
    pressButton(listButton::SelectAll);
    clickCell(0, 0, Qt::NoModifier, true);
    ASSERT_FALSE(checked(0));
    const QString last = name(104);
    pressButton(listButton::MoveTop);
    EXPECT_EQ(lastMessage(), QStringLiteral("Too many moving entries selected, maximum 100 entries"));
    pressButton(listButton::MoveBottom);
    EXPECT_EQ(name(0), QStringLiteral("E"));
    EXPECT_EQ(name(104), last);
    EXPECT_FALSE(checked(0));
}

TEST_F(FilledWindow, HeaderClickSortsByNameAndASecondReverses)
{
    QHeaderView* header = window->view()->horizontalHeader();
    const auto clickHeader = [&](int column) {
        const int x = header->sectionViewportPosition(column) + header->sectionSize(column) / 2;
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(x, header->height() / 2));
    };
    clickHeader(1);
    EXPECT_EQ(name(0), QStringLiteral("A"));
    EXPECT_EQ(name(4), QStringLiteral("E"));
    clickHeader(1);
    EXPECT_EQ(name(0), QStringLiteral("E"));
    clickHeader(0);
    EXPECT_EQ(name(0), QStringLiteral("E")) << "the number column sorts nothing";
}

TEST_F(FilledWindow, NameIsEditedInPlaceAndEscapeKeepsTheText)
{
    GameListView* view = window->view();
    const QRect cell = view->visualRect(list().index(2, 1));
    QTest::mouseDClick(view->viewport(), Qt::LeftButton, Qt::NoModifier, cell.center());
    auto* editor = view->viewport()->findChild<QLineEdit*>();
    ASSERT_NE(editor, nullptr) << "the edit box opens over the name";
    ASSERT_TRUE(QTest::qWaitFor([&] { return editor->hasFocus(); }));
    editor->selectAll();
    QTest::keyClicks(editor, QStringLiteral("Contra Force"));
    QTest::keyClick(editor, Qt::Key_Escape);
    EXPECT_EQ(name(2), QStringLiteral("Contra Force"));

    // Typing in the list finds a name by its start, and Space ticks the row found.
    view->setFocus();
    QTest::keyClicks(view, QStringLiteral("Con"));
    EXPECT_EQ(view->currentIndex().row(), 2);
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_TRUE(checked(2));
    QTest::keyClick(view, Qt::Key_Space);
    EXPECT_FALSE(checked(2));
}

TEST_F(MainWindow, LanguageSwitchRewritesEveryTextAndIsStored)
{
    window->action(command::LanguageChinese)->trigger();
    EXPECT_EQ(window->language(), Language::Chinese);
    EXPECT_EQ(window->menuBar()->actions().front()->text(), QStringLiteral("文件(&F)"));
    EXPECT_EQ(window->action(command::Open)->text(), QStringLiteral("打开(&O)"));
    EXPECT_EQ(window->button(listButton::MoveUp)->text(), QStringLiteral("上移"));
    EXPECT_EQ(list().headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("文件名"));
    EXPECT_TRUE(window->statusText().startsWith(QStringLiteral("已选中: 0 项"))) << window->statusText().toStdString();
    EXPECT_EQ(window->view()->accessibleName(), QStringLiteral("游戏列表"));
    quint32 stored = 0;
    ASSERT_TRUE(RegistryStore::GetDword(kMainKey, QStringLiteral("Language"), stored));
    EXPECT_EQ(stored, quint32(command::LanguageChinese));

    // The stored choice wins at the next start.
    window->close();
    openWindow();
    EXPECT_EQ(window->language(), Language::Chinese);
    EXPECT_EQ(window->button(listButton::Clear)->text(), QStringLiteral("清空"));
    EXPECT_TRUE(window->action(command::LanguageChinese)->isChecked());
    window->action(command::LanguageEnglish)->trigger();
    EXPECT_EQ(window->button(listButton::Clear)->text(), QStringLiteral("Clear"));
}

TEST_F(FilledWindow, ClosingKeepsTheListColumnsSizeAndPlace)
{
    clickCell(3, 0, Qt::NoModifier, true);
    window->view()->setColumnWidth(1, 333);
    window->setGeometry(QRect(40, 50, 700, 500));
    window->close();
    openWindow();
    ASSERT_EQ(rows(), 5);
    EXPECT_EQ(name(0), QStringLiteral("E"));
    EXPECT_TRUE(checked(3));
    EXPECT_EQ(window->view()->columnWidth(1), 333);
    EXPECT_EQ(window->size(), QSize(700, 500));
    EXPECT_EQ(window->geometry().topLeft(), QPoint(40, 50));
}

std::optional<quint32> storedNumber(const char* name)
{
    quint32 value = 0;
    if (!RegistryStore::GetDword(kMainKey, QLatin1String(name), value))
        return std::nullopt;
    return value;
}

TEST_F(FilledWindow, CloseBoxAsksOnceThenHidesAndTheTrayBringsTheWindowBackAndExits)
{
    QSignalSpy exited(window.get(), &CMainDialog::exited);
    EXPECT_TRUE(window->trayIcon()->isVisible());
    EXPECT_EQ(window->trayIcon()->toolTip(), QStringLiteral("Zunbrix"));
    questions->closeAnswer = ScriptedQuestions::CloseAnswer{true, CloseChoice::Minimize};
    window->close();
    EXPECT_EQ(questions->closeQuestions, 1);
    EXPECT_TRUE(window->isHidden());
    EXPECT_EQ(storedNumber("Remember"), 1u);
    EXPECT_EQ(storedNumber("CloseState"), 0u);
    EXPECT_FALSE(storedNumber("PosX")) << "hiding stores nothing of an exit";

    Q_EMIT window->trayIcon()->activated(QSystemTrayIcon::Trigger);
    EXPECT_TRUE(window->isHidden()) << "only a double click brings the window back";
    Q_EMIT window->trayIcon()->activated(QSystemTrayIcon::DoubleClick);
    EXPECT_TRUE(window->isVisible());
    window->close();
    EXPECT_EQ(questions->closeQuestions, 1) << "the remembered answer is not asked again";
    EXPECT_TRUE(window->isHidden());

    // The tray's menu is the short menu; its Exit ends the program from the tray, unasked.
    const QList<QAction*> trayItems = window->trayIcon()->contextMenu()->actions();
    ASSERT_EQ(trayItems.size(), qsizetype(ShortMenu().size()));
    for (std::size_t i = 0; i < ShortMenu().size(); ++i)
        EXPECT_EQ(trayItems[qsizetype(i)], window->action(ShortMenu()[i]));
    window->action(command::Topmost)->trigger();
    EXPECT_TRUE(window->isHidden()) << "a setting from the tray leaves the window in it";
    EXPECT_TRUE(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    window->action(command::Exit)->trigger();
    EXPECT_EQ(exited.size(), 1);
    EXPECT_EQ(questions->closeQuestions, 1);
    EXPECT_FALSE(window->trayIcon()->isVisible());
    EXPECT_TRUE(storedNumber("PosX") && storedNumber("SizeY"));

    openWindow();
    EXPECT_EQ(rows(), 5) << "the history was saved at the exit";
}

TEST_F(FilledWindow, DismissedQuestionKeepsTheWindowAndExitIsAskedAgainUnlessRemembered)
{
    QSignalSpy exited(window.get(), &CMainDialog::exited);
    questions->closeAnswer.reset();
    window->close();
    EXPECT_TRUE(window->isVisible());
    EXPECT_EQ(exited.size(), 0);
    EXPECT_FALSE(storedNumber("Remember"));
    EXPECT_FALSE(storedNumber("CloseState"));

    list().removeChecked(); // nothing checked: the list stays whole
    questions->closeAnswer = ScriptedQuestions::CloseAnswer{false, CloseChoice::Exit};
    window->close();
    EXPECT_EQ(exited.size(), 1);
    EXPECT_EQ(storedNumber("Remember"), 0u);
    EXPECT_EQ(storedNumber("CloseState"), 1u);

    openWindow();
    EXPECT_EQ(rows(), 5);
    QSignalSpy exitedAgain(window.get(), &CMainDialog::exited);
    window->close();
    EXPECT_EQ(questions->closeQuestions, 1) << "without Remember the question comes at each close";
    EXPECT_EQ(exitedAgain.size(), 1);

    // Remembered, the answer Exit ends the program at once.
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("Remember"), 1));
    openWindow();
    QSignalSpy exitedUnasked(window.get(), &CMainDialog::exited);
    window->close();
    EXPECT_EQ(questions->closeQuestions, 0);
    EXPECT_EQ(exitedUnasked.size(), 1);
}

TEST_F(MainWindow, WithoutATrayEveryCloseExitsUnasked)
{
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("Remember"), 1));
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("CloseState"), 0)); // Minimize
    trayAvailable = false;
    openWindow();
    EXPECT_FALSE(window->trayIcon()->isVisible());
    QSignalSpy exited(window.get(), &CMainDialog::exited);
    window->close();
    EXPECT_EQ(exited.size(), 1);
    EXPECT_EQ(questions->closeQuestions, 0);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(MainWindow, ExitRemovesTheWorkFolderAndAnUpdateExitInstallsLast)
{
    const QString workFolder = DefaultWorkFolder();
    ASSERT_TRUE(workFolder.startsWith(dataHome.path())) << workFolder.toStdString();
    EXPECT_TRUE(workFolder.endsWith('/' + QString::number(QCoreApplication::applicationPid())))
        << "each running copy has a work folder of its own";
    ASSERT_TRUE(QDir().mkpath(workFolder + QStringLiteral("/menu")));
    int installs = 0;
    window->setBeforeUpdateExit([&] {
        ++installs;
        EXPECT_TRUE(storedNumber("SizeX")) << "the place is stored before the new program starts";
        EXPECT_FALSE(QDir(workFolder).exists());
    });
    // An update's close neither asks nor hides, whatever the stored answer says.
    QSignalSpy exited(window.get(), &CMainDialog::exited);
    EXPECT_TRUE(window->closeWithMarker(CloseMarker::Update));
    EXPECT_EQ(questions->closeQuestions, 0);
    EXPECT_EQ(installs, 1);
    EXPECT_EQ(exited.size(), 1);
    EXPECT_FALSE(QDir(workFolder).exists());

    // The Exit command does not install.
    openWindow();
    window->setBeforeUpdateExit([&] { ++installs; });
    EXPECT_TRUE(window->closeWithMarker(CloseMarker::ExitCommand));
    EXPECT_EQ(installs, 1);
}

TEST_F(MainWindow, PlaceStoredOnALargerScreenIsPulledOntoTheSmallerOne)
{
    const QRect workArea = window->screen()->availableGeometry();
    const QSize size(workArea.width() - 100, workArea.height() - 100);
    // Left at the lower right of a screen twice as large.
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("PosX"), quint32(workArea.width() * 2 - size.width())));
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("PosY"), quint32(workArea.height() * 2 - size.height())));
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("SizeX"), quint32(size.width())));
    ASSERT_TRUE(RegistryStore::SetDword(kMainKey, QStringLiteral("SizeY"), quint32(size.height())));
    openWindow();
    EXPECT_EQ(window->size(), size);
    EXPECT_EQ(window->geometry().topLeft(), workArea.bottomRight() + QPoint(1, 1) - QPoint(size.width(), size.height()))
        << "moved back to end at the work area's edges";
}

TEST_F(MainWindow, StartDeletesTheOldProgramAnUpdateLeftAndNamesANewCrashReportOnce)
{
    const QString oldProgram = folder.filePath(QStringLiteral("zunbrix-gui.bak"));
    QFile(oldProgram).open(QIODevice::WriteOnly);
    ASSERT_TRUE(RegistryStore::SetString(kMainKey, QStringLiteral("Delete"), oldProgram));
    const QString dumps = dataHome.path() + QStringLiteral("/Zunbrix/Dump");
    ASSERT_TRUE(QDir().mkpath(dumps));
    const QString report = dumps + QStringLiteral("/zunbrix-gui_2026-01-02 03_04_05.6.dmp");
    QFile(report).open(QIODevice::WriteOnly);
    openWindow();

    ASSERT_TRUE(QTest::qWaitFor([&] { return !QFile::exists(oldProgram); }, kWaitMs));
    QString left;
    ASSERT_TRUE(QTest::qWaitFor(
        [&] { return RegistryStore::GetString(kMainKey, QStringLiteral("Delete"), left) && left.isEmpty(); }, kWaitMs));
    ASSERT_EQ(questions->messages.size(), 1u);
    EXPECT_EQ(lastMessage(), QStringLiteral("Zunbrix crashed earlier; its crash report is ") + report);

    openWindow();
    EXPECT_TRUE(questions->messages.empty()) << "a report is named at one start only";
}

TEST_F(FilledWindow, TabReachesEveryButtonAndAccessibilityReadsEveryText)
{
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    window->view()->setFocus();
    QSet<QWidget*> reached;
    for (int i = 0; i < 12; ++i) {
        reached.insert(QApplication::focusWidget());
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    for (const ListButton& entry : ListButtons())
        EXPECT_TRUE(reached.contains(window->button(entry.id))) << entry.id;
    EXPECT_TRUE(reached.contains(window->view()));

    QAccessibleInterface* table = QAccessible::queryAccessibleInterface(window->view());
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->role(), QAccessible::Table);
    EXPECT_EQ(table->text(QAccessible::Name), QStringLiteral("Game list"));
    QAccessibleTableInterface* cells = table->tableInterface();
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->rowCount(), 5);
    EXPECT_EQ(cells->cellAt(0, 1)->text(QAccessible::Name), QStringLiteral("E"));
    EXPECT_EQ(cells->cellAt(0, 8)->text(QAccessible::Name), QStringLiteral("YES"));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(window->button(listButton::Remove))->text(QAccessible::Name),
              QStringLiteral("Remove"));
    auto* status = window->statusBar()->findChild<QLabel*>();
    ASSERT_NE(status, nullptr);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(status)->text(QAccessible::Name), window->statusText());
}

TEST_F(FilledWindow, WhatTheMenuCannotDrawIsGreyed)
{
    EXPECT_FALSE(window->action(command::NumberFill)->isEnabled());
    window->action(command::NumberOrder)->trigger();
    EXPECT_TRUE(window->action(command::NumberFill)->isEnabled());
    // A blank row between names leaves the built-in look room for 10 a page.
    EXPECT_TRUE(window->action(command::PageSize20)->isEnabled());
    window->action(command::NameInsertRow)->trigger();
    EXPECT_FALSE(window->action(command::PageSize20)->isEnabled());
    EXPECT_TRUE(window->action(command::PageSize10)->isEnabled());
    window->action(command::RomInfo)->trigger();
    EXPECT_TRUE(lastMessage().startsWith(QStringLiteral("Mapper that supports making COOLBOY ROM:")));
}

// The designer and find and replace open once each, beside the window, and follow its language.
TEST_F(FilledWindow, DesignerAndFindReplaceOpenOnceAndFollowTheLanguage)
{
    pressButton(listButton::SelectAll);
    window->action(command::Design)->trigger();
    window->action(command::Design)->trigger();
    window->action(command::FindReplace)->trigger();
    window->action(command::FindReplace)->trigger();
    const auto designers = window->findChildren<CDesignDialog*>();
    ASSERT_EQ(designers.size(), 1);
    EXPECT_TRUE(designers.front()->isVisible());
    const auto finders = window->findChildren<CRenameDialog*>();
    ASSERT_EQ(finders.size(), 1);
    EXPECT_TRUE(finders.front()->isVisible());

    window->action(command::LanguageChinese)->trigger();
    EXPECT_EQ(finders.front()->windowTitle(), StringTable::Get(text::FindReplaceTitle, Language::Chinese));
    EXPECT_EQ(designers.front()->windowTitle(), StringTable::Get(text::DesignerTitle, Language::Chinese));
    designers.front()->close();
    finders.front()->close();
}

TEST_F(FilledWindow, ExportWritesIntoTheChosenFolderAndAFailedSaveNamesItsFile)
{
    pressButton(listButton::SelectAll);
    QDir(folder.path()).mkpath(QStringLiteral("export"));
    questions->folder = folder.filePath(QStringLiteral("export"));
    questions->yesNoAnswer = MessageAnswer::No;
    window->action(command::ExportInfo)->trigger();
    waitIdle();
    EXPECT_EQ(lastMessage(), StringTable::Get(284, Language::English));
    EXPECT_EQ(fileText(folder.filePath(QStringLiteral("export/game_list.txt"))), "E\r\nD\r\nC\r\nB\r\nA\r\n");
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("export/game_config.asm"))));
    EXPECT_TRUE(questions->opened.isEmpty()) << "the folder is shown only on yes";
    QString stored;
    ASSERT_TRUE(RegistryStore::GetString(kMainKey, QStringLiteral("LastExportDir"), stored));
    EXPECT_EQ(stored, questions->folder);

    questions->listToSave = folder.filePath(QStringLiteral("no such folder/list"));
    window->action(command::Save)->trigger();
    waitIdle();
    EXPECT_EQ(lastMessage(), QStringLiteral("The list could not be written to ") + questions->listToSave +
                                 QStringLiteral(".qvl"));
    EXPECT_EQ(questions->messages.back().title, QStringLiteral("Error"));
}

TEST_F(MainWindow, BuildRefusalNamesTheFileAndWhy)
{
    QFile list(folder.filePath(QStringLiteral("gone.qvl")));
    ASSERT_TRUE(list.open(QIODevice::WriteOnly));
    list.write("[history]\r\ncount=1\r\n00000_path=/nowhere/gone.nes\r\n00000_name=Gone\r\n00000_check=1\r\n");
    list.close();
    drop({list.fileName()});
    window->action(command::BuildCoolgirl)->trigger();
    waitIdle();
    ASSERT_EQ(questions->messages.size(), 1u);
    EXPECT_EQ(questions->messages[0].title, QStringLiteral("Error"));
    EXPECT_EQ(questions->messages[0].text.toStdString(),
              "1.gone Not a valid NES file!\r\n/nowhere/gone.nes: no such file or folder");
}

// A multicart built through the window's menu, with the build's questions answered as a user would, starts
// its first game in FCEUX, which passes its own board checks.
TEST_F(MainWindow, BuildsACoolboyMulticartThatBootsInFceux)
{
    ASSERT_TRUE(e2e::missingFceuxTools().isEmpty()) << e2e::missingFceuxTools().toStdString();
    const auto games = coolboyGames();
    QStringList paths;
    for (const samples::SampleGame* game : games)
        paths.push_back(sampleGame(game->fileName));
    drop(paths);
    pressButton(listButton::SelectAll);
    // The status line tells what the build will write.
    EXPECT_TRUE(window->statusText().contains(QStringLiteral("COOLBOY ROM: "))) << window->statusText().toStdString();

    const QString rom = folder.filePath(QStringLiteral("out/cart"));
    QDir(folder.path()).mkpath(QStringLiteral("out"));
    questions->output = OutputChoice{rom, OutputType::Nes};
    // While the build waits for its output, the list refuses to change.
    questions->whileChoosingOutput = [this] {
        EXPECT_TRUE(window->busy());
        const QString first = name(0);
        window->button(listButton::MoveDown)->click();
        EXPECT_EQ(name(0), first);
    };
    window->action(command::BuildCoolboy)->trigger();
    waitIdle();
    ASSERT_TRUE(QTest::qWaitFor([&] { return !questions->opened.isEmpty(); }, kWaitMs));

    ASSERT_GE(questions->messages.size(), 2u);
    EXPECT_EQ(questions->messages[0].text, StringTable::Get(194, Language::English));
    EXPECT_EQ(questions->messages.back().style, MessageStyle::YesNo);
    EXPECT_EQ(questions->messages.back().text, StringTable::Get(284, Language::English));
    EXPECT_EQ(QDir(questions->opened.back()), QDir(folder.filePath(QStringLiteral("out"))));
    ASSERT_TRUE(QFile::exists(rom + QStringLiteral(".nes")));
    QString buildDir;
    ASSERT_TRUE(RegistryStore::GetString(kMainKey, QStringLiteral("LastBuildDir"), buildDir));

    const QString script = QStringLiteral("frames(120)\nframes(2, {start = true})\nframes(150)\n") +
                           e2e::sampleVerdictScript(900);
    const e2e::FceuxRun run = e2e::runFceux({rom + QStringLiteral(".nes"), script, folder.path(), 120000});
    ASSERT_TRUE(run.finished) << run.log.toStdString();
    const e2e::SampleVerdict verdict = e2e::sampleVerdict(run);
    EXPECT_EQ(verdict.gameId(), games.front()->id) << verdict.describe().toStdString();
    EXPECT_TRUE(verdict.passed()) << verdict.describe().toStdString();
}

} // namespace
} // namespace zunbrix
