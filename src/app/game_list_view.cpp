#include "app/game_list_view.h"

#include "frame/paths.h"
#include "gamelist/game_list.h"

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QStyledItemDelegate>

namespace zunbrix {

namespace {

// Paints each row in the list's colours, selected or not, and ends an in-place edit on the keys the list
// names, keeping the text typed (Escape too).
class GameListDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        const bool selected = option->state.testFlag(QStyle::State_Selected);
        const QVariant fill = index.data(selected ? GameList::SelectedRowFillRole : GameList::RowFillRole);
        if (fill.isValid())
            option->backgroundBrush = QColor::fromRgb(fill.value<QRgb>());
        const QVariant text = index.data(GameList::TextColourRole);
        const QColor textColour = text.isValid() ? QColor::fromRgb(text.value<QRgb>()) : QColor(Qt::black);
        option->palette.setColor(QPalette::Text, textColour);
        option->palette.setColor(QPalette::HighlightedText, textColour);
        // The fill already shows the selection; the style's highlight would hide it.
        option->state.setFlag(QStyle::State_Selected, false);
    }

    bool editorEvent(QEvent* event, QAbstractItemModel* model, const QStyleOptionViewItem& option,
                     const QModelIndex& index) override
    {
        // Mouse clicks on the check box reach the list through the view; only the keyboard toggles it here.
        switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
            return false;
        default:
            return QStyledItemDelegate::editorEvent(event, model, option, index);
        }
    }

    bool eventFilter(QObject* object, QEvent* event) override
    {
        auto* editor = qobject_cast<QWidget*>(object);
        if (editor != nullptr && event->type() == QEvent::KeyPress &&
            EndsInPlaceEdit(static_cast<QKeyEvent*>(event)->key())) {
            Q_EMIT commitData(editor);
            Q_EMIT closeEditor(editor, QAbstractItemDelegate::NoHint);
            return true;
        }
        return QStyledItemDelegate::eventFilter(object, event);
    }
};

} // namespace

GameListView::GameListView(GameList& list, QWidget* parent)
    : QTableView(parent), list_(list)
{
    setModel(&list);
    setItemDelegate(new GameListDelegate(this));
    setSelectionBehavior(QAbstractItemView::SelectRows);
    setSelectionMode(QAbstractItemView::ExtendedSelection);
    // A double click or F2 opens the edit box; the double click goes through the list first.
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    // Tab leaves the list for the buttons; the arrow keys move within it.
    setTabKeyNavigation(false);
    setWordWrap(false);
    setShowGrid(true);
    verticalHeader()->hide();
    // Rows of one height let the view find the visible ones without asking the model about the others.
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsClickable(true);
    connect(horizontalHeader(), &QHeaderView::sectionClicked, this,
            [this](int column) { list_.sortByHeaderClick(column); });
}

bool GameListView::onCheckBox(const QModelIndex& index, const QPoint& position) const
{
    if (index.column() != kNumberColumn)
        return false;
    QStyleOptionViewItem option;
    initViewItemOption(&option);
    option.rect = visualRect(index);
    option.features |= QStyleOptionViewItem::HasCheckIndicator;
    return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this).contains(position);
}

void GameListView::mousePressEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (index.isValid() && event->button() == Qt::LeftButton)
        list_.clicked(index.row(), event->modifiers(), onCheckBox(index, event->position().toPoint()));
    QTableView::mousePressEvent(event);
}

void GameListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QModelIndex index = indexAt(event->position().toPoint());
    if (!index.isValid() || event->button() != Qt::LeftButton) {
        QTableView::mouseDoubleClickEvent(event);
        return;
    }
    switch (list_.doubleClicked(index, event->modifiers(), onCheckBox(index, event->position().toPoint()))) {
    case DoubleClickAction::EditCell:
        edit(index);
        break;
    case DoubleClickAction::OpenFile:
        Q_EMIT openRequested(list_.absoluteFilePath(index.row()));
        break;
    case DoubleClickAction::ShowFileInFolder:
        Q_EMIT openRequested(FolderOf(list_.absoluteFilePath(index.row())));
        break;
    case DoubleClickAction::None:
        break;
    }
}

void GameListView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Space || event->modifiers() != Qt::NoModifier || !currentIndex().isValid()) {
        QTableView::keyPressEvent(event);
        return;
    }
    const QModelIndex box = list_.index(currentIndex().row(), kNumberColumn);
    const bool checked = box.data(Qt::CheckStateRole).value<Qt::CheckState>() == Qt::Checked;
    list_.setData(box, checked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void GameListView::keyboardSearch(const QString& search)
{
    if (search.isEmpty())
        return;
    const bool goesOn = sinceTyped_.isValid() && sinceTyped_.elapsed() < QApplication::keyboardInputInterval();
    sinceTyped_.start();
    typed_ = goesOn ? typed_ + search : search;
    // More letters may still fit the current row; a new search looks past it first.
    const int current = currentIndex().isValid() ? currentIndex().row() : 0;
    const int start = goesOn ? current : (current + 1) % std::max(1, list_.rowCount());
    const int row = list_.findByTypedText(typed_, start);
    if (row < 0)
        return;
    const QModelIndex found = list_.index(row, kNameColumn);
    setCurrentIndex(found);
    scrollTo(found);
}

} // namespace zunbrix
