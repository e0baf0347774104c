#pragma once

#include "app/message_dialog.h"

namespace zunbrix {

// A notice from the release location: its text with Confirm, under the title "Notify message" in the window's
// language. The text stays as given on a language change.
class CNoticeDialog : public CMessageDialog {
public:
    CNoticeDialog(const QString& message, Language language, QWidget* parent = nullptr);

private:
    void applyTexts() override;
};

} // namespace zunbrix
