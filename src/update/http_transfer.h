#pragma once

#include "update/http_options.h"

#include <QByteArrayView>
#include <QNetworkRequest>
#include <QObject>
#include <QTimer>
#include <QUrl>

#include <atomic>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <utility>
#include <vector>

class QNetworkAccessManager;
class QNetworkReply;

namespace zunbrix {

// The failed step of a fetch, on standard output: "[Error] <step> LastError[<code>]\n". The code is the network
// error's number, or the HTTP status where the answer itself was wrong.
void LogFailedStep(const char* step, int code);

// The address of a fetch: http or https with a host. Anything else is logged and refused.
std::optional<QUrl> FetchAddress(const QString& url);

// The HTTP status of an answer; 0 before one has come.
int HttpStatus(const QNetworkReply& reply);

enum class TransferState { Running, Done, Failed, Cancelled };

// One GET on a network manager of its own, so that the parts of a download run on connections of their own.
// It follows redirects except from HTTPS to HTTP, asks for the body uncompressed (ranges count raw bytes), and
// gives up when no answer comes within the connect time-out or the body is silent for the stall time-out.
// A subclass judges the answer and takes its body. The transfer ends once, by finish(), fail() or cancel().
class HttpTransfer : public QObject {
public:
    HttpTransfer(const QUrl& url, const HttpOptions& options);

    void start();
    void cancel();
    TransferState state() const { return state_; }
    // Told once, when the state leaves Running.
    std::function<void()> onEnded;

protected:
    void setHeader(const char* name, const QByteArray& value);
    // The final answer's headers, after any redirect.
    virtual void judgeAnswer(const QNetworkReply& reply) = 0;
    virtual void takeBody(QByteArrayView block) = 0;
    // The answer ended without a network error.
    virtual void bodyEnded() = 0;

    void fail(const char* step, int code);
    void finish();
    // The Content-Length of an answer that is the whole file, -1 when it has none. Any status but 200 fails the
    // transfer and gives nothing.
    std::optional<qint64> wholeFileLength(const QNetworkReply& reply);

private:
    void answerArrived();
    void readBody();
    void replyFinished();
    void timedOut();
    void end(TransferState state);

    QNetworkRequest request_;
    int connectTimeoutMs_;
    int stallTimeoutMs_;
    QNetworkAccessManager* manager_ = nullptr;
    QNetworkReply* reply_ = nullptr;
    QTimer silence_;
    bool answered_ = false;
    TransferState state_ = TransferState::Running;
};

// Runs transfers on the calling thread, which may be any thread, until each has ended; several threads may run
// at once. A cancel from any thread ends what runs now, and everything run later: a client once cancelled stays
// cancelled.
class TransferRunner {
public:
    void cancel();
    bool cancelled() const { return cancelled_; }

    struct Amount {
        qint64 done = 0;
        qint64 total = 0;
    };
    // Starts the transfers and runs the thread's events until all have ended. Meanwhile, with a callback, tells
    // it every 500 ms what `measure` gives and the speed since the last time.
    void run(const std::vector<HttpTransfer*>& transfers, const ProgressCallback& progress,
             const std::function<Amount()>& measure);

private:
    std::atomic<bool> cancelled_{false};
    std::mutex mutex_;
    // Each running event loop, in its fetching thread, and what cancels its transfers there.
    std::map<QObject*, std::function<void()>> running_;
};

// What RangeClient and DownloadFile share: their options, and a cancel that reaches every fetch of theirs.
class HttpFetcher {
public:
    explicit HttpFetcher(HttpOptions options) : options_(std::move(options)) {}
    ~HttpFetcher() { Cancel(); }
    HttpFetcher(const HttpFetcher&) = delete;
    HttpFetcher& operator=(const HttpFetcher&) = delete;

    // From any thread: ends the fetch under way, and every later one.
    void Cancel() { runner_.cancel(); }

protected:
    HttpOptions options_;
    TransferRunner runner_;
};

} // namespace zunbrix
