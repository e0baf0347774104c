#include "gamelist/game_list.h"

#include "gamelist/list_file.h"
#include "gamelist/list_order.h"
#include "frame/paths.h"
#include "frame/text_format.h"

#include <algorithm>

namespace zunbrix {

namespace {

// Row fills in QRgb form (0xAARRGGBB), as the list has always drawn them.
struct RowFills {
    std::uint32_t selected;
    std::uint32_t odd; // rows counted from 0
    std::uint32_t even;
};
constexpr RowFills kCheckedFills{0xFF90ACFF, 0xFF96F0FF, 0xFF96E1FF};
constexpr RowFills kUncheckedFills{0xFFACACFF, 0xFFC8F0FF, 0xFFC8E1FF};
constexpr std::uint32_t kUncheckedText = 0xFF101217;

int alignmentOf(int column)
{
    switch (kListColumns[static_cast<std::size_t>(column)].alignment) {
    case ColumnAlignment::Left:
        return Qt::AlignLeft | Qt::AlignVCenter;
    case ColumnAlignment::Centre:
        return Qt::AlignCenter;
    case ColumnAlignment::Right:
        return Qt::AlignRight | Qt::AlignVCenter;
    }
    return Qt::AlignLeft | Qt::AlignVCenter;
}

bool isEditable(int column)
{
    return column == kNameColumn || column == kRemarkColumn;
}

} // namespace

QString ListMessage::text(Language language) const
{
    return FormatText(StringTable::Get(textId, language), {number});
}

bool EndsInPlaceEdit(int key)
{
    return key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Return || key == Qt::Key_Enter ||
           key == Qt::Key_Escape;
}

GameList::GameList(QObject* parent) : QAbstractTableModel(parent) {}

void GameList::setLanguage(Language language)
{
    language_ = language;
    Q_EMIT headerDataChanged(Qt::Horizontal, 0, kListColumnCount - 1);
    allRowsChanged();
}

int GameList::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(entries_.size());
}

int GameList::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kListColumnCount;
}

QVariant GameList::data(const QModelIndex& index, int role) const
{
    if (!holds(index))
        return {};
    const int row = index.row();
    const int column = index.column();
    const GameEntry& entry = entries_[static_cast<std::size_t>(row)];
    const RowFills& fills = entry.checked ? kCheckedFills : kUncheckedFills;
    switch (role) {
    case Qt::DisplayRole:
        return ListCellText(entry, row, column, language_);
    case Qt::EditRole:
        return isEditable(column) ? ListCellText(entry, row, column, language_) : QVariant();
    case Qt::TextAlignmentRole:
        return alignmentOf(column);
    case Qt::CheckStateRole:
        if (column != kNumberColumn)
            return {};
        return static_cast<int>(entry.checked ? Qt::Checked : Qt::Unchecked);
    case Qt::ToolTipRole: {
        const QString reason = ListCellToolTip(entry, row, column, language_);
        return reason.isEmpty() ? QVariant() : reason;
    }
    case RowFillRole:
        return row % 2 == 1 ? fills.odd : fills.even;
    case SelectedRowFillRole:
        return fills.selected;
    case TextColourRole:
        return entry.checked ? QVariant() : kUncheckedText;
    default:
        return {};
    }
}

QVariant GameList::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || section < 0 || section >= kListColumnCount)
        return QAbstractTableModel::headerData(section, orientation, role);
    if (role == Qt::DisplayRole)
        return StringTable::Get(kListColumns[static_cast<std::size_t>(section)].titleTextId, language_);
    if (role == Qt::TextAlignmentRole)
        return alignmentOf(section);
    return {};
}

Qt::ItemFlags GameList::flags(const QModelIndex& index) const
{
    if (!holds(index))
        return Qt::NoItemFlags;
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemNeverHasChildren;
    if (index.column() == kNumberColumn)
        flags |= Qt::ItemIsUserCheckable;
    if (isEditable(index.column()))
        flags |= Qt::ItemIsEditable;
    return flags;
}

bool GameList::setData(const QModelIndex& index, const QVariant& value, int role)
{
    if (!holds(index))
        return false;
    GameEntry& entry = entries_[static_cast<std::size_t>(index.row())];
    if (role == Qt::CheckStateRole && index.column() == kNumberColumn) {
        entry.checked = value.toInt() == Qt::Checked;
        rowsChanged(index.row(), index.row());
        return true;
    }
    if (role == Qt::EditRole && isEditable(index.column())) {
        (index.column() == kNameColumn ? entry.name : entry.remark) = value.toString().left(kEditTextLimit);
        Q_EMIT dataChanged(index, index);
        return true;
    }
    return false;
}

void GameList::setNames(const std::vector<RowName>& names)
{
    int first = rowCount();
    int last = -1;
    for (const RowName& change : names) {
        if (change.row < 0 || change.row >= rowCount())
            continue;
        entries_[static_cast<std::size_t>(change.row)].name = change.name;
        first = std::min(first, change.row);
        last = std::max(last, change.row);
    }
    if (first <= last)
        Q_EMIT dataChanged(index(first, kNameColumn), index(last, kNameColumn));
}

int GameList::checkedCount() const
{
    return static_cast<int>(
        std::count_if(entries_.begin(), entries_.end(), [](const GameEntry& entry) { return entry.checked; }));
}

QString GameList::summaryLine() const
{
    return FormatText(StringTable::Get(text::SelectedAndAll, language_),
                      {checkedCount(), static_cast<long long>(entries_.size())});
}

void GameList::checkAll()
{
    for (GameEntry& entry : entries_)
        entry.checked = true;
    allRowsChanged();
}

void GameList::invertAll()
{
    for (GameEntry& entry : entries_)
        entry.checked = !entry.checked;
    allRowsChanged();
}

void GameList::removeChecked()
{
    // One reset rather than a signal per removed run: a list of thousands may lose every other row.
    beginResetModel();
    std::erase_if(entries_, [](const GameEntry& entry) { return entry.checked; });
    endResetModel();
}

std::optional<ListMessage> GameList::clearQuestion() const
{
    if (entries_.empty())
        return std::nullopt;
    return ListMessage{text::ConfirmClear, 0, text::TitleTips};
}

void GameList::clear()
{
    beginResetModel();
    entries_.clear();
    endResetModel();
}

ListChange GameList::moveChecked(ListMove move)
{
    const std::optional<CheckedRows> checked = FindCheckedRows(entries_);
    const bool towardsTop = move == ListMove::Up || move == ListMove::Top;
    if (!checked || (towardsTop ? checked->first == 0 : checked->last + 1 == entries_.size()))
        return {};
    // Refused before anything moves, the bottom move too: the user's order is their work.
    if (checked->count > kMoveLimit)
        return {ListMessage{text::TooManyMoving, kMoveLimit, text::TitleWarn}};
    switch (move) {
    case ListMove::Up:
        reorder(CheckedMovedUp(entries_, *checked));
        return {std::nullopt, static_cast<int>(checked->first - 1)};
    case ListMove::Down:
        reorder(CheckedMovedDown(entries_, *checked));
        return {std::nullopt, static_cast<int>(checked->last + 1)};
    case ListMove::Top:
        reorder(CheckedGathered(entries_, true));
        return {std::nullopt, 0};
    case ListMove::Bottom:
        reorder(CheckedGathered(entries_, false));
        return {std::nullopt, rowCount() - 1};
    }
    return {};
}

void GameList::sortByHeaderClick(int column)
{
    if (column <= kNumberColumn || column >= kListColumnCount)
        return;
    sortDescending_ = column == sortedColumn_ && !sortDescending_;
    sortedColumn_ = column;
    const ListSortKey key = kListColumns[static_cast<std::size_t>(column)].sortKey;
    if (key != ListSortKey::None || sortDescending_)
        reorder(SortedBy(entries_, key, sortDescending_));
}

int GameList::findByTypedText(const QString& typed, int startRow) const
{
    const int rows = rowCount();
    const int start = std::clamp(startRow, 0, rows);
    const auto search = [&](auto matches) {
        for (int i = 0; i < rows; ++i) {
            const int row = (start + i) % rows;
            if (matches(entries_[static_cast<std::size_t>(row)].name))
                return row;
        }
        return -1;
    };
    const int row = search([&](const QString& name) { return name.startsWith(typed); });
    return row >= 0 ? row : search([&](const QString& name) { return name.contains(typed); });
}

void GameList::clicked(int row, Qt::KeyboardModifiers modifiers, bool onCheckBox)
{
    if (row < 0 || row >= rowCount())
        return;
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    if (shift) {
        const int anchor = std::min(lastClickedRow_, rowCount() - 1);
        const int first = std::min(anchor, row);
        const int last = std::max(anchor, row);
        for (int i = first; i <= last; ++i)
            entries_[static_cast<std::size_t>(i)].checked = true;
        rowsChanged(first, last);
        return;
    }
    lastClickedRow_ = row;
    GameEntry& entry = entries_[static_cast<std::size_t>(row)];
    if (modifiers.testFlag(Qt::ControlModifier))
        entry.checked = true;
    else if (onCheckBox)
        entry.checked = !entry.checked;
    else
        return;
    rowsChanged(row, row);
}

DoubleClickAction GameList::doubleClicked(const QModelIndex& index, Qt::KeyboardModifiers modifiers,
                                          bool onCheckBox)
{
    if (!holds(index))
        return DoubleClickAction::None;
    const int column = index.column();
    if (modifiers.testFlag(Qt::ControlModifier))
        return column == kPathColumn ? DoubleClickAction::ShowFileInFolder : DoubleClickAction::None;
    if (isEditable(column))
        return DoubleClickAction::EditCell;
    if (column == kPathColumn)
        return DoubleClickAction::OpenFile;
    if (onCheckBox) {
        GameEntry& entry = entries_[static_cast<std::size_t>(index.row())];
        entry.checked = !entry.checked;
        rowsChanged(index.row(), index.row());
    }
    return DoubleClickAction::None;
}

QString GameList::absoluteFilePath(int row) const
{
    if (row < 0 || row >= rowCount())
        return {};
    return AbsolutePath(entries_[static_cast<std::size_t>(row)].path);
}

int GameList::room() const
{
    return kListCapacity - rowCount();
}

std::optional<ListMessage> GameList::fullRefusal() const
{
    if (room() > 0)
        return std::nullopt;
    return ListMessage{text::ListFull, rowCount(), text::TitleWarn};
}

AddResult GameList::append(GameFiles files)
{
    AddResult result;
    result.skipped = files.skipped;
    const std::size_t fits = std::min(files.entries.size(), static_cast<std::size_t>(std::max(room(), 0)));
    if (files.exceedsCapacity || fits < files.entries.size())
        result.message = ListMessage{text::ListLimit, kListCapacity, text::TitleWarn};
    if (fits == 0)
        return result;
    const int first = rowCount();
    beginInsertRows({}, first, first + static_cast<int>(fits) - 1);
    entries_.insert(entries_.end(), std::make_move_iterator(files.entries.begin()),
                    std::make_move_iterator(files.entries.begin() + static_cast<std::ptrdiff_t>(fits)));
    endInsertRows();
    result.added = static_cast<int>(fits);
    result.rowToShow = rowCount() - 1;
    return result;
}

AddResult GameList::addFiles(const QStringList& names)
{
    return append(ReadGameFiles(names, room()));
}

void GameList::reorder(const std::vector<std::size_t>& order)
{
    Q_EMIT layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    std::vector<GameEntry> reordered;
    reordered.reserve(entries_.size());
    for (std::size_t oldRow : order)
        reordered.push_back(std::move(entries_[oldRow]));
    entries_.swap(reordered);

    const QModelIndexList before = persistentIndexList();
    if (!before.isEmpty()) {
        std::vector<int> newRowOf(order.size());
        for (std::size_t newRow = 0; newRow < order.size(); ++newRow)
            newRowOf[order[newRow]] = static_cast<int>(newRow);
        QModelIndexList after;
        after.reserve(before.size());
        for (const QModelIndex& index : before)
            after.push_back(this->index(newRowOf[static_cast<std::size_t>(index.row())], index.column()));
        changePersistentIndexList(before, after);
    }
    Q_EMIT layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

bool GameList::holds(const QModelIndex& index) const
{
    return index.isValid() && index.model() == this && index.row() < rowCount() && index.column() < kListColumnCount;
}

void GameList::rowsChanged(int first, int last)
{
    Q_EMIT dataChanged(index(first, 0), index(last, kListColumnCount - 1));
}

void GameList::allRowsChanged()
{
    if (!entries_.empty())
        rowsChanged(0, rowCount() - 1);
}

} // namespace zunbrix
