#pragma once

#include "app/small_dialog.h"

class QCheckBox;
class QPushButton;

namespace zunbrix {

// What closing the main window means: Minimize (to the tray) or Exit, and whether to ask again. The check box
// stores Remember on each change; either button stores CloseState and exec() gives 1. The close box gives 0 and
// the main window then keeps running. The main window opens it with exec() when Remember is 0 and reads
// CloseState afterwards; it emits no signals of its own.
class CCloseDialog : public CSmallDialog {
public:
    explicit CCloseDialog(Language language, QWidget* parent = nullptr);

    QCheckBox* rememberBox() const { return remember_; }
    QPushButton* minimizeButton() const { return minimize_; }
    QPushButton* exitButton() const { return exit_; }

private:
    void applyTexts() override;

    QCheckBox* remember_ = nullptr;
    QPushButton* minimize_ = nullptr;
    QPushButton* exit_ = nullptr;
};

} // namespace zunbrix
