#pragma once

#include "gamelist/main_command_state.h"

#include <QHash>
#include <QMainWindow>
#include <QVector>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTableView;

namespace zunbrix {

// The main window: the game list, its eight buttons, the menus built from the command table and the status
// line. It reads its controls, calls the engine and shows what comes back.
class CMainDialog : public QMainWindow {
    Q_OBJECT
public:
    explicit CMainDialog(QWidget* parent = nullptr);

    Language language() const { return state_.language(); }
    // The action of a command of the table, for the menus and for tests that drive the window.
    QAction* action(int commandId) const { return actions_.value(commandId); }
    QPushButton* button(int controlId) const { return buttons_.value(controlId); }

private:
    void createActions();
    void createMenus();
    void createControls();
    void runCommand(int id, MainCommandState::Origin origin);
    void showMarks();
    void applyTexts();
    QString text(int id) const;

    MainCommandState state_;
    QHash<int, QAction*> actions_;
    QVector<QPair<QMenu*, int>> menus_; // each submenu with its numbered title
    QHash<int, QPushButton*> buttons_;
    QTableView* list_ = nullptr;
    QLabel* status_ = nullptr;
};

} // namespace zunbrix
