#include "app/main_dialog.h"

#include "gamelist/main_commands.h"

#include <QAction>
#include <QActionGroup>
#include <QBoxLayout>
#include <QHeaderView>
#include <QKeySequence>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>

namespace zunbrix {

namespace {

// Sizes in device-independent pixels; Qt scales them by the screen's DPI.
constexpr int kButtonWidth = 88;
constexpr int kButtonHeight = 24;
constexpr int kButtonGap = 8;
constexpr int kMargin = 4;

constexpr int kWindowTitleText = 123;
constexpr int kTipsTitleText = 146;
constexpr int kRomInfoText = 156;

} // namespace

CMainDialog::CMainDialog(QWidget* parent)
    : QMainWindow(parent)
{
    setMinimumSize(400, 360);
    createActions();
    createMenus();
    createControls();
    const bool chineseSystem = QLocale::system().language() == QLocale::Chinese;
    for (int id : MainCommandState::StartupReplay(chineseSystem))
        runCommand(id, MainCommandState::Origin::Replay);
    showMarks();
    applyTexts();
}

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
}

void CMainDialog::createControls()
{
    auto* central = new QWidget(this);
    auto* row = new QHBoxLayout(central);
    row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    list_ = new QTableView(central);
    list_->verticalHeader()->hide();
    row->addWidget(list_, 1);

    auto* column = new QVBoxLayout;
    column->setSpacing(kButtonGap);
    for (const ListButton& entry : ListButtons()) {
        auto* button = new QPushButton(central);
        button->setFixedSize(kButtonWidth, kButtonHeight);
        column->addWidget(button);
        buttons_.insert(entry.id, button);
    }
    column->addStretch(1);
    row->addLayout(column);
    setCentralWidget(central);

    status_ = new QLabel(this);
    statusBar()->addWidget(status_, 1);
}

void CMainDialog::runCommand(int id, MainCommandState::Origin origin)
{
    state_.run(id, origin);
    if (origin == MainCommandState::Origin::User)
        showMarks();
    switch (id) {
    case command::Topmost:
        setWindowFlag(Qt::WindowStaysOnTopHint, state_.topmost());
        if (origin == MainCommandState::Origin::User)
            show();
        break;
    case command::LanguageChinese:
    case command::LanguageEnglish:
        if (origin == MainCommandState::Origin::User)
            applyTexts();
        break;
    case command::Exit:
        close();
        break;
    case command::RomInfo:
        QMessageBox::information(this, text(kTipsTitleText), text(kRomInfoText));
        break;
    default:
        break;
    }
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
    setWindowTitle(text(kWindowTitleText));
}

QString CMainDialog::text(int id) const
{
    return StringTable::Get(id, state_.language());
}

} // namespace zunbrix
