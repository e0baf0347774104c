#include "update/http_transfer.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QSslConfiguration>
#include <QSslSocket>

#include <algorithm>
#include <cstdio>

namespace zunbrix {

namespace {

constexpr int kProgressIntervalMs = 500;

QNetworkRequest newRequest(const QUrl& url, const HttpOptions& options)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setRawHeader("User-Agent", "WinInetGet/0.1");
    // Set by hand, so that the network layer neither asks for compression nor unpacks: ranges count raw bytes.
    request.setRawHeader("Accept-Encoding", "identity");
    QSslConfiguration tls = QSslConfiguration::defaultConfiguration();
    tls.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (!options.authorities.isEmpty())
        tls.setCaCertificates(options.authorities);
    request.setSslConfiguration(tls);
    return request;
}

} // namespace

void LogFailedStep(const char* step, int code)
{
    std::printf("[Error] %s LastError[%d]\n", step, code);
    std::fflush(stdout);
}

std::optional<QUrl> FetchAddress(const QString& url)
{
    const QUrl address(url, QUrl::StrictMode);
    if (!address.isValid() || address.host().isEmpty()) {
        LogFailedStep("InternetCrackUrl", 0);
        return std::nullopt;
    }
    if (address.scheme() != QLatin1String("http") && address.scheme() != QLatin1String("https")) {
        LogFailedStep("Scheme", 0);
        return std::nullopt;
    }
    return address;
}

int HttpStatus(const QNetworkReply& reply)
{
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
}

HttpTransfer::HttpTransfer(const QUrl& url, const HttpOptions& options)
    : request_(newRequest(url, options)), connectTimeoutMs_(options.connectTimeoutMs),
      stallTimeoutMs_(options.stallTimeoutMs)
{
    silence_.setSingleShot(true);
    connect(&silence_, &QTimer::timeout, this, &HttpTransfer::timedOut);
}

void HttpTransfer::setHeader(const char* name, const QByteArray& value)
{
    request_.setRawHeader(name, value);
}

void HttpTransfer::start()
{
    if (state_ != TransferState::Running)
        return;
    manager_ = new QNetworkAccessManager(this);
    reply_ = manager_->get(request_);
    connect(reply_, &QNetworkReply::metaDataChanged, this, &HttpTransfer::answerArrived);
    connect(reply_, &QNetworkReply::readyRead, this, &HttpTransfer::readBody);
    connect(reply_, &QNetworkReply::finished, this, &HttpTransfer::replyFinished);
    silence_.start(connectTimeoutMs_);
}

void HttpTransfer::cancel()
{
    end(TransferState::Cancelled);
}

void HttpTransfer::fail(const char* step, int code)
{
    if (state_ != TransferState::Running)
        return;
    LogFailedStep(step, code);
    end(TransferState::Failed);
}

void HttpTransfer::finish()
{
    end(TransferState::Done);
}

std::optional<qint64> HttpTransfer::wholeFileLength(const QNetworkReply& reply)
{
    if (HttpStatus(reply) != 200) {
        fail("HttpQueryInfo", HttpStatus(reply));
        return std::nullopt;
    }
    const QVariant length = reply.header(QNetworkRequest::ContentLengthHeader);
    return length.isValid() ? std::max<qint64>(length.toLongLong(), -1) : -1;
}

void HttpTransfer::answerArrived()
{
    const int status = HttpStatus(*reply_);
    // The headers of a redirect that is being followed are not the answer.
    if (answered_ || state_ != TransferState::Running || (status >= 300 && status < 400))
        return;
    answered_ = true;
    silence_.start(stallTimeoutMs_);
    judgeAnswer(*reply_);
}

void HttpTransfer::readBody()
{
    answerArrived();
    if (state_ != TransferState::Running)
        return;
    // A body with no answer judged belongs to a redirect that was not followed.
    if (!answered_) {
        fail("HttpQueryInfo", HttpStatus(*reply_));
        return;
    }
    silence_.start(stallTimeoutMs_);
    const QByteArray block = reply_->readAll();
    takeBody(block);
}

void HttpTransfer::replyFinished()
{
    if (state_ != TransferState::Running)
        return;
    if (reply_->error() != QNetworkReply::NoError) {
        fail(answered_ ? "InternetReadFile" : "SendRequest", reply_->error());
        return;
    }
    readBody();
    if (state_ == TransferState::Running)
        bodyEnded();
    // A subclass that neither finished nor failed leaves nothing to wait for.
    if (state_ == TransferState::Running)
        fail("InternetReadFile", 0);
}

void HttpTransfer::timedOut()
{
    fail(answered_ ? "InternetReadFile" : "SendRequest", QNetworkReply::TimeoutError);
}

void HttpTransfer::end(TransferState state)
{
    if (state_ != TransferState::Running)
        return;
    state_ = state;
    silence_.stop();
    if (reply_) {
        reply_->disconnect(this);
        reply_->abort();
    }
    if (onEnded)
        onEnded();
}

void TransferRunner::cancel()
{
    cancelled_ = true;
    const std::lock_guard lock(mutex_);
    for (const auto& [loop, cancelRuns] : running_)
        QMetaObject::invokeMethod(loop, cancelRuns, Qt::QueuedConnection);
}

void TransferRunner::run(const std::vector<HttpTransfer*>& transfers, const ProgressCallback& progress,
                         const std::function<Amount()>& measure)
{
    QEventLoop loop;
    std::size_t running = transfers.size();
    for (HttpTransfer* transfer : transfers) {
        transfer->onEnded = [&running, &loop] {
            if (--running == 0)
                loop.quit();
        };
    }
    const auto cancelAll = [&transfers] {
        for (HttpTransfer* transfer : transfers)
            transfer->cancel();
    };
    {
        const std::lock_guard lock(mutex_);
        running_.emplace(&loop, cancelAll);
    }
    QTimer watcher;
    qint64 doneBefore = 0;
    if (progress) {
        QObject::connect(&watcher, &QTimer::timeout, [&] {
            const Amount amount = measure();
            progress(amount.done, amount.total, (amount.done - doneBefore) * 1000 / kProgressIntervalMs);
            doneBefore = amount.done;
        });
        watcher.start(kProgressIntervalMs);
    }
    if (cancelled_)
        cancelAll();
    for (HttpTransfer* transfer : transfers)
        transfer->start();
    if (running > 0)
        loop.exec();
    for (HttpTransfer* transfer : transfers)
        transfer->onEnded = nullptr;
    const std::lock_guard lock(mutex_);
    running_.erase(&loop);
}

} // namespace zunbrix
