#pragma once

#include "app/small_dialog.h"

class QPlainTextEdit;
class QPushButton;

namespace zunbrix {

// A long text in a read-only box, under the caller's title, with Confirm (exec() gives 1) or with Yes and No
// (exec() gives 6 or 7). The close box gives 0. The caller's message and title stay as given on a language
// change; the buttons' words follow it. It emits no signals of its own.
class CMessageDialog : public CSmallDialog {
public:
    enum class Buttons { Confirm, YesNo };
    static constexpr int kConfirmed = 1;
    static constexpr int kYes = 6;
    static constexpr int kNo = 7;

    CMessageDialog(const QString& message, const QString& title, Buttons buttons, Language language,
                   QWidget* parent = nullptr);

    QPlainTextEdit* messageBox() const { return message_; }
    // Confirm, or Yes; No is nullptr on the one-button form.
    QPushButton* firstButton() const { return first_; }
    QPushButton* noButton() const { return no_; }

protected:
    void applyTexts() override;

private:
    QPlainTextEdit* message_ = nullptr;
    QPushButton* first_ = nullptr;
    QPushButton* no_ = nullptr;
};

} // namespace zunbrix
