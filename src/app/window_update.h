#pragma once

#include "update/update_flow.h"

namespace zunbrix {

class CMainDialog;

// The main window's side of the update service: it answers the flow's questions with the window's dialogs
// and title, checks when the window asks (Check Update, or silently after a settings dialog), cancels the
// fetches when the window exits, and installs the downloaded program at the exit for an update.
class WindowUpdate : public UpdateQuestions {
public:
    explicit WindowUpdate(CMainDialog& window, UpdateFlowSetup setup = {});

    // The check of the start, and the timers from then on.
    void start() { flow_.start(); }
    UpdateFlow& flow() { return flow_; }

    Language language() const override;
    bool modalDialogOpen() const override;
    bool offerUpdate(const UpdateRecord& record, const VersionNumber& current) override;
    void showNotice(const QString& message) override;
    void showMessage(const QString& message) override;
    void showDownloadTitle(const QString& title) override;
    void closeForUpdate() override;

private:
    CMainDialog& window_;
    UpdateFlow flow_;
};

} // namespace zunbrix
