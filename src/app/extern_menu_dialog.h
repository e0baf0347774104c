#pragma once

#include "app/small_dialog.h"

class QGroupBox;
class QLineEdit;
class QPushButton;

namespace zunbrix {

// The user's own menu source. The path is stored when a file is chosen, and again as the edit box holds it
// on Confirm (exec() gives 1) and on the close box (exec() gives 2), so neither way drops an edit. The main
// window opens it with exec() on command 40105 and then reads ExternMenuPath; it emits no signals of its own.
class CExtrenMenuDialog : public CSmallDialog {
public:
    // What exec() gives: Confirm, or the close box (Escape included).
    static constexpr int kConfirmed = 1;
    static constexpr int kClosed = 2;

    explicit CExtrenMenuDialog(Language language, QWidget* parent = nullptr);

    QLineEdit* pathEdit() const { return path_; }
    QPushButton* selectButton() const { return select_; }
    QPushButton* confirmButton() const { return confirm_; }

    void reject() override;

private:
    void applyTexts() override;
    void selectFile();
    void storeAndEnd(int code);

    QGroupBox* pathGroup_ = nullptr;
    QLineEdit* path_ = nullptr;
    QPushButton* select_ = nullptr;
    QPushButton* confirm_ = nullptr;
};

} // namespace zunbrix
