#pragma once

#include "gamelist/game_list.h"

#include <QString>

#include <optional>
#include <vector>

namespace zunbrix {

// What the find and replace dialog hands over for one press of its buttons.
struct SearchRequest {
    QString search = QStringLiteral("^\\d+\\."); // cuts the number prefix that file names bring along
    QString replace;
    bool regex = false;       // ECMAScript, case-sensitive; else a case-sensitive substring
    bool onlyChecked = false; // find and replace all look at checked rows only
};

// The dialog's four inputs as the store keeps them: read when it opens, written when it closes.
SearchRequest ReadSearchSettings();
void WriteSearchSettings(const SearchRequest& request);

// Words for a request that is refused before any row is touched: a pattern that does not compile or can't
// be applied, or a plain replacement that would never end. Each names what the user typed.
struct SearchRefusal {
    int textId = 0;
    QStringList args; // the %s of the text, in order

    QString text(Language language) const;
};

// A name that a "Replace all items" changed, kept to put it back by one undo while the row still holds it.
struct NameChange {
    int row = 0;
    QString path; // tells the row's entry from another that took its place
    QString before;
    QString after;
};

// The search state the main window keeps across requests and across openings of the dialog.
struct SearchState {
    int findRow = 0;  // the row the last find marked
    int findNext = 0; // where the next find starts
    std::vector<NameChange> lastReplaceAll; // empty: nothing to undo
};

// What a step leaves to the view: rows whose selected mark comes off or goes on (the marked row is also
// scrolled into view), or a refusal to show. -1 is no row.
struct SearchStep {
    int unmarkRow = -1;
    int markRow = -1;
    std::optional<SearchRefusal> refusal;
};

// Marks the next row whose name matches, from state.findNext to the end; when none is left there, the
// search starts over from the top at once. Nothing found only takes the old mark off.
SearchStep FindNextRow(const GameList& list, SearchState& state, const SearchRequest& request);
// Replaces within the name of the row the last find marked, when it matches (checked or not), then finds
// the next row as FindNextRow does.
SearchStep ReplaceCurrent(GameList& list, SearchState& state, const SearchRequest& request);
// Replaces within every name (of checked rows only, when asked), as one step that UndoReplaceAll takes back.
std::optional<SearchRefusal> ReplaceAll(GameList& list, SearchState& state, const SearchRequest& request);
// Puts back the names of the last ReplaceAll. Refused, with nothing changed, when the list no longer holds
// those names at those rows (an edit, move or removal came between). Nothing to undo is no error.
std::optional<SearchRefusal> UndoReplaceAll(GameList& list, SearchState& state);

} // namespace zunbrix
