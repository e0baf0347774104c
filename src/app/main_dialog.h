#pragma once

#include "app/window_questions.h"
#include "gamelist/find_replace.h"
#include "gamelist/main_command_state.h"
#include "gamelist/window_close.h"

#include <QHash>
#include <QMainWindow>
#include <QPointer>
#include <QStringList>
#include <QThreadPool>
#include <QVector>

#include <atomic>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QSystemTrayIcon;

namespace zunbrix {

class GameList;
class CDesignDialog;
class CRenameDialog;
class GameListView;
struct ListChange;
struct ListMessage;

// The main window: the game list, its eight buttons, the menus built from the command table, the status line
// and the tray icon. It reads its controls, calls the engine and shows what comes back; long work runs on its
// workers and comes back to the window's thread when done, while `busy` keeps other work out. The window lives
// from start to exit, shown or hidden in the tray; its owner ends the program on `exited`.
class CMainDialog : public QMainWindow {
    Q_OBJECT
public:
    explicit CMainDialog(std::unique_ptr<WindowQuestions> questions, QWidget* parent = nullptr);
    ~CMainDialog() override;

    Language language() const { return state_.language(); }
    const MainCommandState& settings() const { return state_; }
    // Long work runs: commands that would touch the list or start more are refused meanwhile.
    bool busy() const { return running_ > 0; }

    // The controls, for the window's own tests and tools that drive it as a user would.
    QAction* action(int commandId) const { return actions_.value(commandId); }
    QPushButton* button(int controlId) const { return buttons_.value(controlId); }
    GameList& list() const { return *list_; }
    GameListView* view() const { return view_; }
    QString statusText() const;

    QSystemTrayIcon* trayIcon() const { return tray_; }
    // A title that tells how long work goes on; "" gives the window its own, in its language now.
    void showTitle(const QString& title);

    // Adds games, folders and list files, as a drop of them does: read off the window's thread, appended when
    // read. Names given before the stored list has loaded wait for it.
    void addFiles(const QStringList& names);

    // Closes the window as `marker` asks, by the stored answer of the close question: hides it in the tray, or
    // exits (the work folder removed, the history, size and place stored, the tray icon gone, `exited`
    // emitted). True when it exited. While long work runs an exit is refused with a message.
    bool closeWithMarker(CloseMarker marker);
    // Runs at an exit for an update, after everything is stored and before `exited`: the place where the new
    // program takes the running one's.
    void setBeforeUpdateExit(std::function<void()> install) { beforeUpdateExit_ = std::move(install); }

Q_SIGNALS:
    // A piece of long work has ended and its result is in the window.
    void workFinished();
    // The window has exited; the program ends here.
    void exited();
    // Check Update was chosen (`silent` false), or a settings dialog was confirmed (`silent` true).
    void updateCheckAsked(bool silent);

protected:
    void closeEvent(QCloseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    friend class WindowBuildUser;

    void createActions();
    void createMenus();
    void createControls();
    void createTrayIcon();
    void restorePlacement();
    void loadHistory();
    void announceCrashReport();
    void bringForward();
    void exitWindow(CloseMarker marker);

    void runCommand(int id, MainCommandState::Origin origin);
    void runListButton(int id);
    void openGames();
    void loadList();
    void saveList();
    void build(BoardType board);
    void exportInformation();
    void openFindReplace();
    void openDesigner();
    void editExternMenu();
    // The build's questions, asked for its worker by WindowBuildUser.
    std::optional<OutputChoice> chooseOutput(const QString& startFolder, OutputType startType);
    void offerToShow(const QString& folder);

    // True, after telling the user, while long work runs; for Open and Load also while the list is full.
    bool refusedWhileBusy();
    bool refusedForAdding();
    MessageAnswer tell(int textId, int titleId, MessageStyle style = MessageStyle::Ok);
    MessageAnswer tell(const QString& shown, int titleId, MessageStyle style = MessageStyle::Ok);
    MessageAnswer tell(const ListMessage& message, MessageStyle style = MessageStyle::Ok);
    void showChange(const ListChange& change);
    // Runs `work` on a worker; `done` gets its result on the window's thread.
    template <typename Work, typename Done>
    void runInBackground(Work work, Done done);

    void showMarks();
    void applyTexts();
    void updateStatus();
    QString text(int id) const;

    std::unique_ptr<WindowQuestions> questions_;
    MainCommandState state_;
    GameList* list_ = nullptr;
    GameListView* view_ = nullptr;
    QHash<int, QAction*> actions_;
    QVector<QPair<QMenu*, int>> menus_; // each submenu with its numbered title
    QMenu* shortMenu_ = nullptr;
    QHash<int, QPushButton*> buttons_;
    QLabel* status_ = nullptr;
    QSystemTrayIcon* tray_ = nullptr;
    bool exiting_ = false;
    std::function<void()> beforeUpdateExit_;
    SearchState search_;
    QPointer<CRenameDialog> renameDialog_;
    QPointer<CDesignDialog> designDialog_;
    int skippedFiles_ = 0;   // files of the last addition that were no NES images
    bool historyLoaded_ = false;
    QStringList waitingFiles_; // given before the history was in
    int running_ = 0;                    // workers whose result has not come back yet
    std::atomic<bool> buildBusy_ = false; // the build's own flag, set by its worker
    // Last, so that it is the first to go: its end waits for the workers, which still post to the window.
    QThreadPool workers_;
};

} // namespace zunbrix
