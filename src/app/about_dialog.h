#pragma once

#include "app/small_dialog.h"

class QLabel;
class QPushButton;

namespace zunbrix {

// The program's name and version, and a link to the maker's page (the installation's AboutLink), opened in the
// browser on a click or on Enter. The main window opens it with exec() on the About command; it emits no
// signals of its own.
class CAboutDialog : public CSmallDialog {
public:
    explicit CAboutDialog(Language language, QWidget* parent = nullptr);

    QLabel* versionLabel() const { return version_; }
    QLabel* linkLabel() const { return link_; }
    QPushButton* confirmButton() const { return confirm_; }

private:
    void applyTexts() override;

    QLabel* version_ = nullptr;
    QLabel* link_ = nullptr;
    QPushButton* confirm_ = nullptr;
};

} // namespace zunbrix
