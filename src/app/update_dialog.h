#pragma once

#include "app/small_dialog.h"
#include "frame/version_number.h"
#include "update/update_records.h"

class QPlainTextEdit;
class QPushButton;

namespace zunbrix {

// The offer of a new version: the running and the latest version in the title, what is new in the window's
// language, and Confirm (exec() gives 1, the download starts) or Cancel (2); the close box gives 0. Confirm is
// enabled only for a version above the running one that this platform can fetch. It holds its own copy of the
// record and emits no signals of its own.
class CUpdateDialog : public CSmallDialog {
public:
    static constexpr int kConfirmed = 1;
    static constexpr int kCancelled = 2;

    CUpdateDialog(UpdateRecord record, const VersionNumber& current, Language language, QWidget* parent = nullptr);

    QPlainTextEdit* describeBox() const { return describe_; }
    QPushButton* confirmButton() const { return confirm_; }
    QPushButton* cancelButton() const { return cancel_; }

private:
    void applyTexts() override;

    UpdateRecord record_;
    VersionNumber current_;
    QPlainTextEdit* describe_ = nullptr;
    QPushButton* confirm_ = nullptr;
    QPushButton* cancel_ = nullptr;
};

} // namespace zunbrix
