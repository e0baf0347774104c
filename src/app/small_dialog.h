#pragma once

#include "frame/string_table.h"

#include <QDialog>

namespace zunbrix {

// What the small dialogs of the main window share: modal over their parent (Qt centres them on it and gives
// them the application's icon), and words from the string table in the window's language, all re-read at once
// when the language changes while the dialog is open.
class CSmallDialog : public QDialog {
public:
    CSmallDialog(Language language, QWidget* parent)
        : QDialog(parent), language_(language)
    {
        setModal(true);
    }

    void setLanguage(Language language)
    {
        language_ = language;
        applyTexts();
    }

protected:
    // Sets every word of the dialog; a derived constructor calls it once its controls exist.
    virtual void applyTexts() = 0;
    QString text(int id) const { return StringTable::Get(id, language_); }
    Language language() const { return language_; }

private:
    Language language_;
};

} // namespace zunbrix
