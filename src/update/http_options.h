#pragma once

#include <QList>
#include <QSslCertificate>
#include <QtGlobal>

#include <functional>

namespace zunbrix {

// Told every 500 ms while a fetch runs: bytes done, total bytes, speed in bytes per second.
using ProgressCallback = std::function<void(qint64 done, qint64 total, qint64 bytesPerSecond)>;

// How patient the update service's HTTP is, and whom it trusts. Certificates are always verified: there is no
// switch that ignores an error, so a file reaches the user only from the host that its address names.
struct HttpOptions {
    // From sending a request until the answer's headers arrive: a host that never answers.
    int connectTimeoutMs = 20000;
    // The longest silence while a body arrives: a transfer that stalls.
    int stallTimeoutMs = 30000;
    // The certificate authorities trusted for HTTPS; empty means the system's.
    QList<QSslCertificate> authorities;
};

} // namespace zunbrix
