#pragma once

#include "gamelist/game_files.h"
#include "gamelist/list_columns.h"
#include "multicart/nes_image.h"
#include "frame/string_table.h"
#include "frame/text_ids.h"

#include <QAbstractTableModel>
#include <QStringList>

#include <cstddef>
#include <optional>
#include <vector>

namespace zunbrix {

// The most checked entries one move takes.
inline constexpr int kMoveLimit = 100;
// The longest name or remark an in-place edit keeps; longer text is cut.
inline constexpr int kEditTextLimit = 260;

// Words for the user as a numbered text with its one number, under a numbered title. The list never shows
// them: its caller does, in the language of its windows.
struct ListMessage {
    int textId = 0;
    long long number = 0;
    int titleId = text::TitleWarn;

    QString text(Language language) const;
};

// Where an operation leaves something for the window to do.
struct ListChange {
    std::optional<ListMessage> message; // a refusal or a warning to show
    int rowToShow = -1;                 // scroll here; -1 leaves the view where it is
};

struct AddResult : ListChange {
    int added = 0;
    int skipped = 0; // files that are not NES images; text::FilesSkipped says so
};

// The moves of the checked entries: up and down move each by one row past the unchecked entry beside it;
// top and bottom gather them at that end, in their order, the others keeping theirs.
enum class ListMove { Up, Down, Top, Bottom };

// What a double click leaves to the window once the list has done its part.
enum class DoubleClickAction { None, EditCell, OpenFile, ShowFileInFolder };

// A row's new name, for changing many names in one go.
struct RowName {
    int row = 0;
    QString name;
};

// The keys that end an in-place edit of a name or remark. Each keeps the text typed, Escape too.
bool EndsInPlaceEdit(int key);

// The game list as the main window shows it: the list of GameEntry in the order shown and built, and every
// operation on it. The view owns no rows; it asks for the cells it draws.
//
// Roles: the display text, the alignment and, in the number column, the check box of each cell; the edit text
// of the name and remark columns; for a COOLBOY or COOLGIRL cell that reads "NO", a tool tip with the board's
// reason. The engine has no colour types, so the row colours come as QRgb values in the roles below, which
// the window turns into brushes.
//
// The list lives on the window's thread. Work off that thread takes a copy of entries() before it starts, and
// games read there with ReadGameFiles come back to append().
class GameList : public QAbstractTableModel {
public:
    enum Role {
        RowFillRole = Qt::UserRole + 1, // QRgb: the fill of a row that is not selected, by check mark and odd row
        SelectedRowFillRole,            // QRgb: the fill of a selected row, by check mark
        TextColourRole,                 // QRgb: the text of a row that is not checked; nothing for a checked row
    };

    explicit GameList(QObject* parent = nullptr);

    const std::vector<GameEntry>& entries() const { return entries_; }
    Language language() const { return language_; }
    // Every text of the list, headers among them, in this language from now on.
    void setLanguage(Language language);

    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
    // The number column is checkable, for the keyboard and for accessibility; mouse clicks come through
    // clicked(), so a view must keep its delegate from toggling the box on a click as well.
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    // Sets the check mark, or the name or remark cut to kEditTextLimit; an edit of a row that has gone is lost.
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

    // Sets the names of many rows at once, uncut, and tells views once. Rows that have gone are left out.
    void setNames(const std::vector<RowName>& names);

    int checkedCount() const;
    // The status line: "Selected: %d item(s) All: %d item(s)".
    QString summaryLine() const;

    void checkAll();
    void invertAll();
    // Removes the checked entries and keeps the order of the others. Views are reset.
    void removeChecked();
    // The question to ask before emptying the list; nothing when it is empty. On Yes, clear().
    std::optional<ListMessage> clearQuestion() const;
    void clear();

    // Moves the checked entries, from the first checked to the last. Nothing happens when none is checked or
    // they can't go further; more than kMoveLimit are refused with a message, the order untouched.
    ListChange moveChecked(ListMove move);

    // A click on the header of `column` sorts the list itself by that column's key, ascending; a repeat click
    // on the same column reverses that. Columns without a key only reverse; the number column does nothing.
    void sortByHeaderClick(int column);

    // The row to select for text typed into the list, looking from `startRow` to the end and then from the
    // top: first a name that begins with the text, else one that holds it, case counting; -1 when none does.
    int findByTypedText(const QString& typed, int startRow) const;

    // A click on `row`: with Ctrl (no Shift) the row is checked; with Shift every row from the last click
    // without Shift through this one is checked; a plain click on the check box toggles it.
    void clicked(int row, Qt::KeyboardModifiers modifiers, bool onCheckBox);
    // A double click: the name and remark are edited, the path opens its file (with Ctrl: shows it in its
    // folder; Ctrl leaves the other columns alone), a double click on the check box toggles it.
    DoubleClickAction doubleClicked(const QModelIndex& index, Qt::KeyboardModifiers modifiers, bool onCheckBox);
    // A row's file as the system opens it: a relative path starts at the program's folder.
    QString absoluteFilePath(int row) const;

    // Room for more entries, and the refusal of Open and Load when there is none.
    int room() const;
    std::optional<ListMessage> fullRefusal() const;
    // Appends games read by ReadGameFiles, up to the list's capacity, and says what was left out.
    AddResult append(GameFiles files);
    // Open and drop on the window's thread: ReadGameFiles with the list's room, then append.
    AddResult addFiles(const QStringList& names);

private:
    // Puts the entries in a new order: order[new row] is the old row. Persistent indexes follow their entries.
    void reorder(const std::vector<std::size_t>& order);
    // Whether the index is a cell of this list; views and testers ask with others too.
    bool holds(const QModelIndex& index) const;
    void rowsChanged(int first, int last);
    void allRowsChanged();

    std::vector<GameEntry> entries_;
    Language language_ = Language::English;
    int lastClickedRow_ = 0;
    int sortedColumn_ = 0;
    bool sortDescending_ = false;
};

} // namespace zunbrix
