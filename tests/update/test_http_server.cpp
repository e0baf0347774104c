#include "test_http_server.h"

#include <QPointer>
#include <QRegularExpression>
#include <QSslSocket>
#include <QTcpServer>
#include <QThread>

#include <algorithm>
#include <future>
#include <stdexcept>
#include <vector>

namespace zunbrix::testing {

namespace {

constexpr qint64 kChunk = 256 * 1024;

struct Request {
    QString path;
    QByteArray range;
};

std::optional<Request> parseRequest(const QByteArray& head)
{
    const QList<QByteArray> lines = head.split('\n');
    const QList<QByteArray> requestLine = lines.value(0).trimmed().split(' ');
    if (requestLine.size() != 3 || requestLine[0] != "GET")
        return std::nullopt;
    Request request;
    request.path = QString::fromLatin1(requestLine[1].split('?').value(0));
    for (const QByteArray& line : lines) {
        const qsizetype colon = line.indexOf(':');
        if (colon > 0 && line.left(colon).trimmed().toLower() == "range")
            request.range = line.mid(colon + 1).trimmed();
    }
    return request;
}

// One connection: reads one request and answers it as its ServedFile says.
class Exchange : public QObject {
public:
    using Held = QMap<QString, std::vector<QPointer<Exchange>>>;

    Exchange(QTcpSocket* socket, TestHttpServer::Shared& shared, Held& held)
        : QObject(socket), socket_(socket), shared_(shared), held_(held)
    {
        connect(socket, &QTcpSocket::readyRead, this, &Exchange::read);
        connect(socket, &QTcpSocket::bytesWritten, this, &Exchange::pump);
        if (auto* tls = qobject_cast<QSslSocket*>(socket))
            connect(tls, &QSslSocket::encryptedBytesWritten, this, &Exchange::pump);
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::errorOccurred, socket, &QObject::deleteLater);
    }

    void answer()
    {
        if (!file_.redirectTo.isEmpty()) {
            writeHead("302 Found", {"Location: " + file_.redirectTo.toUtf8(), "Content-Length: 0"});
            socket_->disconnectFromHost();
            return;
        }
        const qint64 size = file_.body.size();
        QByteArray status = "200 OK";
        QList<QByteArray> headers;
        begin_ = 0;
        end_ = size;
        static const QRegularExpression form(QStringLiteral("^bytes=(\\d+)-(\\d*)$"));
        const QRegularExpressionMatch range = form.match(QString::fromLatin1(request_.range));
        if (range.hasMatch() && file_.honourRanges) {
            begin_ = range.captured(1).toLongLong();
            end_ = range.captured(2).isEmpty() ? size : std::min(size, range.captured(2).toLongLong() + 1);
            if (begin_ >= end_) {
                writeHead("416 Range Not Satisfiable", {"Content-Length: 0"});
                socket_->disconnectFromHost();
                return;
            }
            status = file_.rangeStatus.isEmpty() ? QByteArray("206 Partial Content") : file_.rangeStatus;
            headers.append("Content-Range: bytes " + QByteArray::number(begin_) + '-' + QByteArray::number(end_ - 1) +
                           '/' + QByteArray::number(size));
        }
        if (!file_.contentRange.isEmpty()) {
            headers.removeIf([](const QByteArray& header) { return header.startsWith("Content-Range"); });
            headers.append("Content-Range: " + file_.contentRange);
        }
        if (file_.announceLength)
            headers.append("Content-Length: " + QByteArray::number(end_ - begin_));
        writeHead(status, headers);
        const qint64 cut = file_.closeAfterBytes >= 0 ? file_.closeAfterBytes : file_.stallAfterBytes;
        if (cut >= 0)
            end_ = std::min(end_, begin_ + cut);
        stallAtEnd_ = file_.stallAfterBytes >= 0;
        sending_ = true;
        pump();
    }

private:
    void read()
    {
        head_ += socket_->readAll();
        if (request_.path.isEmpty() && head_.contains("\r\n\r\n")) {
            const std::optional<Request> request = parseRequest(head_.left(head_.indexOf("\r\n\r\n")));
            if (!request) {
                socket_->abort();
                return;
            }
            request_ = *request;
            dispatch();
        }
    }

    void dispatch()
    {
        bool found = false;
        {
            const std::lock_guard lock(shared_.mutex);
            shared_.ranges[request_.path].append(QString::fromLatin1(request_.range));
            found = shared_.files.contains(request_.path);
            file_ = shared_.files.value(request_.path);
        }
        if (!found) {
            writeHead("404 Not Found", {"Content-Length: 0"});
            socket_->disconnectFromHost();
            return;
        }
        if (file_.neverAnswer)
            return;
        if (file_.holdRangesUntil > 0 && !request_.range.isEmpty()) {
            std::vector<QPointer<Exchange>>& waiting = held_[request_.path];
            waiting.emplace_back(this);
            if (static_cast<int>(waiting.size()) < file_.holdRangesUntil)
                return;
            const std::vector<QPointer<Exchange>> released = std::exchange(waiting, {});
            for (const QPointer<Exchange>& exchange : released) {
                if (exchange)
                    exchange->answer();
            }
            return;
        }
        answer();
    }

    void writeHead(const QByteArray& status, const QList<QByteArray>& headers)
    {
        QByteArray head = "HTTP/1.1 " + status + "\r\n";
        for (const QByteArray& header : headers)
            head += header + "\r\n";
        head += "Connection: close\r\n\r\n";
        socket_->write(head);
    }

    // Feeds the body a chunk at a time, as the connection takes it, so that an answer that is dropped early
    // costs little.
    void pump()
    {
        if (!sending_)
            return;
        const auto* tls = qobject_cast<QSslSocket*>(socket_);
        while (begin_ < end_ && socket_->bytesToWrite() + (tls ? tls->encryptedBytesToWrite() : 0) < 2 * kChunk) {
            const qint64 chunk = std::min(kChunk, end_ - begin_);
            socket_->write(file_.body.constData() + begin_, chunk);
            begin_ += chunk;
        }
        if (begin_ == end_) {
            sending_ = false;
            if (!stallAtEnd_)
                socket_->disconnectFromHost();
        }
    }

    QTcpSocket* socket_;
    TestHttpServer::Shared& shared_;
    Held& held_;
    QByteArray head_;
    Request request_;
    ServedFile file_;
    qint64 begin_ = 0;
    qint64 end_ = 0;
    bool sending_ = false;
    bool stallAtEnd_ = false;
};

class Listener : public QTcpServer {
public:
    Listener(TestHttpServer::Shared& shared, const std::optional<ServerIdentity>& identity)
        : shared_(shared), identity_(identity)
    {
    }

protected:
    void incomingConnection(qintptr descriptor) override
    {
        QTcpSocket* socket = nullptr;
        if (identity_) {
            auto* tls = new QSslSocket(this);
            tls->setSocketDescriptor(descriptor);
            tls->setLocalCertificate(identity_->certificate);
            tls->setPrivateKey(identity_->key);
            tls->setPeerVerifyMode(QSslSocket::VerifyNone);
            tls->startServerEncryption();
            socket = tls;
        } else {
            socket = new QTcpSocket(this);
            socket->setSocketDescriptor(descriptor);
        }
        new Exchange(socket, shared_, held_);
    }

private:
    TestHttpServer::Shared& shared_;
    std::optional<ServerIdentity> identity_;
    Exchange::Held held_;
};

} // namespace

class TestHttpServer::Thread : public QThread {
public:
    Thread(Shared& shared, std::optional<ServerIdentity> identity) : shared_(shared), identity_(std::move(identity)) {}

    quint16 port() { return port_.get_future().get(); }

protected:
    void run() override
    {
        Listener listener(shared_, identity_);
        // Room for all 64 parts' connections at once, so that none waits for the system to repeat its call.
        listener.setListenBacklogSize(256);
        if (!listener.listen(QHostAddress::LocalHost, 0)) {
            port_.set_value(0);
            return;
        }
        port_.set_value(listener.serverPort());
        exec();
    }

private:
    Shared& shared_;
    std::optional<ServerIdentity> identity_;
    std::promise<quint16> port_;
};

TestHttpServer::TestHttpServer(std::optional<ServerIdentity> identity)
    : shared_(std::make_shared<Shared>()), tls_(identity.has_value())
{
    thread_ = std::make_unique<Thread>(*shared_, std::move(identity));
    thread_->start();
    port_ = thread_->port();
    if (port_ == 0)
        throw std::runtime_error("the test server cannot listen on 127.0.0.1");
}

TestHttpServer::~TestHttpServer()
{
    thread_->quit();
    thread_->wait();
}

void TestHttpServer::serve(const QString& path, const ServedFile& file)
{
    const std::lock_guard lock(shared_->mutex);
    shared_->files.insert(path, file);
}

QString TestHttpServer::origin() const
{
    return QStringLiteral("%1://127.0.0.1:%2").arg(tls_ ? QStringLiteral("https") : QStringLiteral("http")).arg(port_);
}

QStringList TestHttpServer::rangesAsked(const QString& path) const
{
    const std::lock_guard lock(shared_->mutex);
    return shared_->ranges.value(path);
}

} // namespace zunbrix::testing
