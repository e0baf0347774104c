#pragma once

#include "gamelist/find_replace.h"

#include <QDialog>

class QAbstractItemView;
class QCheckBox;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace zunbrix {

// Find and replace over the names of the game list: a modeless dialog beside the main window that holds the
// four inputs and hands each press to the engine (gamelist/find_replace.h).
//
// The main window opens it on command 40037 with its list, its SearchState and its list view, keeps it in a
// QPointer and raises that one while it is open; the dialog deletes itself when closed. It emits no signals:
// it marks and shows the found row in the view itself. The main window also calls installUndo once on its
// list view, so that Ctrl+Z there takes back the last "Replace all items", with the dialog open or not.
class CRenameDialog : public QDialog {
    Q_OBJECT
public:
    // Reads the four settings into the controls. `listView` shows `list` and may be null (no marks then).
    CRenameDialog(GameList& list, SearchState& state, QAbstractItemView* listView, Language language,
                  QWidget* parent = nullptr);

    void setLanguage(Language language);
    // Writes the four settings before the dialog ends, whichever way it is closed.
    void done(int result) override;

    static void installUndo(QAbstractItemView& listView, GameList& list, SearchState& state);

private:
    SearchRequest request() const;
    void findNext();
    void replaceCurrent();
    void replaceAll();
    // Moves the selected mark in the view, or shows the refusal.
    void showStep(const SearchStep& step);

    GameList& list_;
    SearchState& state_;
    QAbstractItemView* listView_;
    Language language_;

    QLabel* searchLabel_;
    QLabel* replaceLabel_;
    QLineEdit* searchEdit_;
    QLineEdit* replaceEdit_;
    QGroupBox* modeGroup_;
    QRadioButton* plainRadio_;
    QRadioButton* regexRadio_;
    QCheckBox* onlyCheckedBox_;
    QPushButton* findNextButton_;
    QPushButton* replaceButton_;
    QPushButton* replaceAllButton_;
};

} // namespace zunbrix
