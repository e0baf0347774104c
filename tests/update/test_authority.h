#pragma once

#include <QSslCertificate>
#include <QSslKey>
#include <QString>
#include <QTemporaryDir>

namespace zunbrix::testing {

// What an HTTPS test server presents.
struct ServerIdentity {
    QSslCertificate certificate;
    QSslKey key;
};

// A certificate authority made with openssl for one test run, and the server certificates it signs. Only a client
// that is told to trust it does; the system never learns of it. Throws when openssl fails.
class TestAuthority {
public:
    explicit TestAuthority(const QString& name);

    const QSslCertificate& certificate() const { return certificate_; }

    enum class Validity { Current, Expired };
    // A server certificate for the names of `subjectAltName` in openssl's form ("IP:127.0.0.1").
    ServerIdentity issue(const QString& subjectAltName, Validity validity = Validity::Current);

private:
    void openssl(const QStringList& arguments) const;
    QString file(const QString& name) const { return folder_.filePath(name); }

    QTemporaryDir folder_;
    QSslCertificate certificate_;
    int issued_ = 0;
};

} // namespace zunbrix::testing
