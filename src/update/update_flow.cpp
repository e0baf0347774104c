#include "update/update_flow.h"

#include "frame/command_line.h"
#include "frame/run_program.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"
#include "update/program_replacement.h"
#include "update/release_records.h"

#include <QPointer>

#include <initializer_list>

#include <utility>

namespace zunbrix {

namespace {

// One check at a time on each worker: the last one has already handed its result back when the next starts.
template <typename Work>
void runOn(std::thread& worker, Work work)
{
    if (worker.joinable())
        worker.join();
    worker = std::thread(std::move(work));
}

void joinAll(std::initializer_list<std::thread*> workers)
{
    for (std::thread* worker : workers) {
        if (worker->joinable())
            worker->join();
    }
}

} // namespace

UpdateFlow::UpdateFlow(UpdateQuestions& questions, UpdateFlowSetup setup)
    : questions_(questions), setup_(std::move(setup)), recordClient_(setup_.http), programDownload_(setup_.http)
{
    updateTimer_.setInterval(setup_.updateIntervalMs);
    noticeTimer_.setInterval(setup_.noticeIntervalMs);
    connect(&updateTimer_, &QTimer::timeout, this, [this] { CheckUpdate(false, true); });
    connect(&noticeTimer_, &QTimer::timeout, this, [this] { CheckNotice(); });
}

UpdateFlow::~UpdateFlow()
{
    cancel();
    joinAll({&updateWorker_, &noticeWorker_, &downloadWorker_});
}

void UpdateFlow::start()
{
    CheckUpdate(true, false);
    updateTimer_.start();
}

void UpdateFlow::cancel()
{
    cancelled_ = true;
    updateTimer_.stop();
    noticeTimer_.stop();
    recordClient_.Cancel();
    programDownload_.Cancel();
}

QString UpdateFlow::text(int id) const
{
    return StringTable::Get(id, questions_.language());
}

void UpdateFlow::CheckUpdate(bool automatic, bool silent)
{
    if (updateRunning_ || cancelled_)
        return;
    updateRunning_ = true;
    const UpdateCheck check = silent ? UpdateCheck::Timer : automatic ? UpdateCheck::Startup : UpdateCheck::User;
    runOn(updateWorker_, [this, check, location = ReleaseLocation()] {
        std::optional<UpdateRecord> record = FetchUpdateRecord(recordClient_, location);
        QMetaObject::invokeMethod(
            this, [this, check, location, record = std::move(record)] { updateFetched(check, location, record); },
            Qt::QueuedConnection);
    });
}

void UpdateFlow::updateFetched(UpdateCheck check, const QString& location, const std::optional<UpdateRecord>& record)
{
    updateRunning_ = false;
    // A fetch that was already done when the window closed is not acted on.
    if (cancelled_)
        return;
    if (!record) {
        if (check == UpdateCheck::User)
            questions_.showMessage(FormatText(text(text::UpdateRecordUnreadable), {location}));
        return;
    }
    if (!recordFetchedOnce_) {
        recordFetchedOnce_ = true;
        CheckNotice();
        noticeTimer_.start();
    }
    switch (DecideUpdate(check, setup_.currentVersion, *record)) {
    case UpdateAction::Nothing:
        return;
    case UpdateAction::Offer:
        offer(*record);
        return;
    case UpdateAction::Download:
        startDownload(*record, false);
        return;
    }
}

void UpdateFlow::offer(const UpdateRecord& record)
{
    if (offerOpen_)
        return;
    offerOpen_ = true;
    const QPointer<UpdateFlow> alive(this);
    const bool confirmed = questions_.offerUpdate(record, setup_.currentVersion);
    if (alive.isNull())
        return;
    offerOpen_ = false;
    if (confirmed)
        startDownload(record, true);
}

void UpdateFlow::startDownload(const UpdateRecord& record, bool userAsked)
{
    // Never an older or equal version, whoever asks, and one download at a time.
    if (downloadRunning_ || cancelled_ || !CanInstallUpdate(setup_.currentVersion, record))
        return;
    downloadRunning_ = true;
    downloaded_ = false;
    updateFilePath_ = UpdateFilePath(record, FolderOf(setup_.programPath));
    runOn(downloadWorker_, [this, userAsked, url = ProgramFileUrl(record), path = updateFilePath_, sha = record.sha256] {
        const bool complete = programDownload_.Download(url, path, sha, [this](qint64 done, qint64 total, qint64) {
            QMetaObject::invokeMethod(this, [this, done, total] { downloadProgressed(done, total); },
                                      Qt::QueuedConnection);
        });
        QMetaObject::invokeMethod(this, [this, complete, userAsked, url] { downloadEnded(complete, userAsked, url); },
                                  Qt::QueuedConnection);
    });
}

void UpdateFlow::downloadProgressed(qint64 done, qint64 total)
{
    if (!downloadRunning_ || total == 0)
        return;
    questions_.showDownloadTitle(FormatText(text(text::UpdateProgressTitle), {done * 100.0 / total}));
}

void UpdateFlow::downloadEnded(bool complete, bool userAsked, const QString& url)
{
    downloadRunning_ = false;
    questions_.showDownloadTitle(QString());
    if (complete && !cancelled_) {
        downloaded_ = true;
        questions_.closeForUpdate();
    } else if (userAsked && !cancelled_) {
        questions_.showMessage(FormatText(text(text::UpdateDownloadFailed), {url}));
    }
}

bool UpdateFlow::installAtClose()
{
    if (!downloaded_ || downloadRunning_ || !ReplaceRunningProgram(setup_.programPath, updateFilePath_))
        return false;
    downloaded_ = false;
    return RunProgram(CommandLineOf(setup_.programPath, QString()), FolderOf(setup_.programPath), true, false);
}

void UpdateFlow::CheckNotice()
{
    if (noticeRunning_ || cancelled_)
        return;
    noticeRunning_ = true;
    runOn(noticeWorker_, [this, location = ReleaseLocation()] {
        std::optional<NotifyRecord> record = FetchNotifyRecord(recordClient_, location);
        QMetaObject::invokeMethod(this, [this, record = std::move(record)] { noticeFetched(record); },
                                  Qt::QueuedConnection);
    });
}

void UpdateFlow::noticeFetched(const std::optional<NotifyRecord>& record)
{
    if (record && !cancelled_) {
        if (NoticeDue(*record, ReadLastNotifyId(), noticeShown_)) {
            const QPointer<UpdateFlow> alive(this);
            showNotice(*record);
            if (alive.isNull())
                return;
        }
    }
    noticeRunning_ = false;
}

void UpdateFlow::showNotice(const NotifyRecord& notice)
{
    // Not stored while a modal dialog is open, so the next round tries again.
    if (questions_.modalDialogOpen())
        return;
    // Counted as shown before the dialog waits, so that a close meanwhile does not bring it back.
    noticeShown_ = true;
    StoreNoticeShown(notice);
    questions_.showNotice(TextFor(notice.notifyMessage, questions_.language()));
}

} // namespace zunbrix
