#pragma once

#include "frame/paths.h"
#include "frame/string_table.h"
#include "frame/version_number.h"
#include "update/download_file.h"
#include "update/range_client.h"
#include "update/update_decisions.h"
#include "update/update_records.h"

#include <QObject>
#include <QTimer>

#include <optional>
#include <thread>

namespace zunbrix {

// What the update flow needs of the main window. The flow decides; the window only shows. Every call comes on
// the window's thread.
class UpdateQuestions {
public:
    virtual ~UpdateQuestions() = default;

    virtual Language language() const = 0;
    // A modal dialog is open over the window: a notice then waits for a later round.
    virtual bool modalDialogOpen() const = 0;
    // Shows the offer of `record` and waits for the answer: true when the user confirms the download.
    virtual bool offerUpdate(const UpdateRecord& record, const VersionNumber& current) = 0;
    // Shows a notice's text under its title and waits until it is closed.
    virtual void showNotice(const QString& message) = 0;
    // Tells the user why something they asked for did not happen.
    virtual void showMessage(const QString& message) = 0;
    // The window's title while the new program downloads; "" gives the window its own title back.
    virtual void showDownloadTitle(const QString& title) = 0;
    // The new program lies whole and verified beside the running one: close the window to install it.
    virtual void closeForUpdate() = 0;
};

// Where and how often the flow looks. The defaults are the program's own; tests choose other places and times.
struct UpdateFlowSetup {
    VersionNumber currentVersion = VersionNumber::fromText(ExeVersion());
    QString programPath = ExePath();
    HttpOptions http{};
    int updateIntervalMs = 60000;
    int noticeIntervalMs = 30000;
};

// The update and notice checks of the main window. Each fetch runs on a thread of its own and hands its result
// back to the window's thread; a check asked for while the same one runs is dropped. The first update record
// fetched starts the notice check and its timer. A newer version is offered, or fetched without asking when it
// is forced; once it is whole and verified beside the program, the window closes and installAtClose() puts it
// in place. Network and record errors stay silent unless the user asked.
class UpdateFlow : public QObject {
public:
    explicit UpdateFlow(UpdateQuestions& questions, UpdateFlowSetup setup = {});
    // Cancels any fetch and waits for the threads to end.
    ~UpdateFlow() override;
    UpdateFlow(const UpdateFlow&) = delete;
    UpdateFlow& operator=(const UpdateFlow&) = delete;

    // At the window's start: the check of the start and the timer of the silent checks.
    void start();
    // `automatic`: from the start; `silent`: only a forced newer version is acted on, without a word.
    void CheckUpdate(bool automatic, bool silent);
    void CheckNotice();
    // At close: ends every fetch under way, and all later ones.
    void cancel();
    // At the close for an update: the downloaded program takes the running one's place (which is kept as .bak
    // for the next start to delete) and is started in its folder. False, with the program as it was, when no
    // download is ready or a move fails.
    bool installAtClose();

    bool updateRunning() const { return updateRunning_; }
    bool noticeRunning() const { return noticeRunning_; }
    bool downloadRunning() const { return downloadRunning_; }

private:
    void updateFetched(UpdateCheck check, const QString& location, const std::optional<UpdateRecord>& record);
    void offer(const UpdateRecord& record);
    void startDownload(const UpdateRecord& record, bool userAsked);
    void downloadProgressed(qint64 done, qint64 total);
    void downloadEnded(bool complete, bool userAsked, const QString& url);
    void noticeFetched(const std::optional<NotifyRecord>& record);
    void showNotice(const NotifyRecord& notice);
    QString text(int id) const;

    UpdateQuestions& questions_;
    UpdateFlowSetup setup_;
    RangeClient recordClient_;
    DownloadFile programDownload_;
    QTimer updateTimer_;
    QTimer noticeTimer_;
    std::thread updateWorker_;
    std::thread noticeWorker_;
    std::thread downloadWorker_;

    // Where the new program is fetched to, and whether it is there, whole and verified.
    QString updateFilePath_;
    bool downloaded_ = false;
    bool updateRunning_ = false;
    bool noticeRunning_ = false;
    bool downloadRunning_ = false;
    bool offerOpen_ = false;
    bool recordFetchedOnce_ = false;
    bool noticeShown_ = false;
    bool cancelled_ = false;
};

} // namespace zunbrix
