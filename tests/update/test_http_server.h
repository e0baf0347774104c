#pragma once

#include "test_authority.h"

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <memory>
#include <mutex>
#include <optional>

namespace zunbrix::testing {

// How the test server answers for one path. By default it is a well-behaved static file that honours ranges;
// each other field makes it misbehave in one way on purpose.
struct ServedFile {
    QByteArray body{};
    // No Content-Length: the body ends when the connection closes.
    bool announceLength = true;
    // A range request gets the whole file with 200.
    bool honourRanges = true;
    // Sent as Content-Range in place of the true one.
    QByteArray contentRange{};
    // Sent as the status of a range's answer in place of "206 Partial Content".
    QByteArray rangeStatus{};
    // The connection closes after this many bytes of the body.
    qint64 closeAfterBytes = -1;
    // The server falls silent, the connection open, after this many bytes of the body.
    qint64 stallAfterBytes = -1;
    // The request is read and never answered.
    bool neverAnswer = false;
    // Range requests wait, unanswered, until this many have come; then all are answered.
    int holdRangesUntil = 0;
    // Answered with 302 to this address.
    QString redirectTo{};
};

// An HTTP/1.1 server on 127.0.0.1 in a thread of its own, over TLS when given an identity. Each answer closes its
// connection.
class TestHttpServer {
public:
    explicit TestHttpServer(std::optional<ServerIdentity> identity = std::nullopt);
    ~TestHttpServer();
    TestHttpServer(const TestHttpServer&) = delete;
    TestHttpServer& operator=(const TestHttpServer&) = delete;

    void serve(const QString& path, const ServedFile& file);
    // "http://127.0.0.1:<port>" or "https://...".
    QString origin() const;
    QString url(const QString& path) const { return origin() + path; }
    // The Range header of each request for `path` ("" for none), in the order they came.
    QStringList rangesAsked(const QString& path) const;

    struct Shared {
        std::mutex mutex;
        QMap<QString, ServedFile> files;
        QMap<QString, QStringList> ranges;
    };

private:
    class Thread;
    std::shared_ptr<Shared> shared_;
    std::unique_ptr<Thread> thread_;
    bool tls_;
    quint16 port_ = 0;
};

} // namespace zunbrix::testing
