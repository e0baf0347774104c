#include "test_authority.h"

#include <QFile>
#include <QProcess>

#include <stdexcept>

namespace zunbrix::testing {

namespace {

// Enough of a configuration for `openssl req` and `openssl ca`, so that the system's does not matter.
constexpr char kConfiguration[] = R"([req]
distinguished_name = name
[name]
[ca]
default_ca = authority
[authority]
database = index.txt
new_certs_dir = .
serial = serial
default_md = sha256
unique_subject = no
policy = any
[any]
commonName = supplied
)";

QByteArray readFile(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error("cannot read " + path.toStdString());
    return file.readAll();
}

void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        throw std::runtime_error("cannot write " + path.toStdString());
}

const QStringList kNewKey{QStringLiteral("-newkey"), QStringLiteral("ec"), QStringLiteral("-pkeyopt"),
                          QStringLiteral("ec_paramgen_curve:prime256v1"), QStringLiteral("-nodes")};

} // namespace

TestAuthority::TestAuthority(const QString& name)
{
    writeFile(file(QStringLiteral("openssl.cnf")), kConfiguration);
    writeFile(file(QStringLiteral("index.txt")), {});
    writeFile(file(QStringLiteral("serial")), "01\n");
    openssl(QStringList{QStringLiteral("req"), QStringLiteral("-x509")} + kNewKey +
            QStringList{QStringLiteral("-keyout"), QStringLiteral("authority.key"), QStringLiteral("-out"),
                        QStringLiteral("authority.crt"), QStringLiteral("-days"), QStringLiteral("30"),
                        QStringLiteral("-subj"), QStringLiteral("/CN=") + name, QStringLiteral("-addext"),
                        QStringLiteral("basicConstraints=critical,CA:TRUE"), QStringLiteral("-addext"),
                        QStringLiteral("keyUsage=critical,keyCertSign,cRLSign")});
    certificate_ = QSslCertificate(readFile(file(QStringLiteral("authority.crt"))), QSsl::Pem);
}

ServerIdentity TestAuthority::issue(const QString& subjectAltName, Validity validity)
{
    const QString stem = QStringLiteral("server%1").arg(++issued_);
    writeFile(file(stem + QStringLiteral(".ext")),
              QStringLiteral("[server]\nsubjectAltName = %1\nbasicConstraints = CA:FALSE\n"
                             "extendedKeyUsage = serverAuth\n")
                  .arg(subjectAltName)
                  .toUtf8());
    openssl(QStringList{QStringLiteral("req"), QStringLiteral("-new")} + kNewKey +
            QStringList{QStringLiteral("-keyout"), stem + QStringLiteral(".key"), QStringLiteral("-out"),
                        stem + QStringLiteral(".csr"), QStringLiteral("-subj"), QStringLiteral("/CN=zunbrix-test")});
    QStringList signing{QStringLiteral("ca"), QStringLiteral("-batch"), QStringLiteral("-notext"),
                        QStringLiteral("-cert"), QStringLiteral("authority.crt"), QStringLiteral("-keyfile"),
                        QStringLiteral("authority.key"), QStringLiteral("-in"), stem + QStringLiteral(".csr"),
                        QStringLiteral("-out"), stem + QStringLiteral(".crt"), QStringLiteral("-extfile"),
                        stem + QStringLiteral(".ext"), QStringLiteral("-extensions"), QStringLiteral("server")};
    if (validity == Validity::Expired)
        signing << QStringLiteral("-startdate") << QStringLiteral("20200101000000Z") << QStringLiteral("-enddate")
                << QStringLiteral("20200201000000Z");
    else
        signing << QStringLiteral("-days") << QStringLiteral("30");
    openssl(signing);
    return {QSslCertificate(readFile(file(stem + QStringLiteral(".crt"))), QSsl::Pem),
            QSslKey(readFile(file(stem + QStringLiteral(".key"))), QSsl::Ec, QSsl::Pem)};
}

void TestAuthority::openssl(const QStringList& arguments) const
{
    QProcess process;
    process.setWorkingDirectory(folder_.path());
    process.setProcessChannelMode(QProcess::MergedChannels);
    QStringList withConfiguration = arguments;
    withConfiguration.insert(1, QStringLiteral("-config"));
    withConfiguration.insert(2, QStringLiteral("openssl.cnf"));
    process.start(QStringLiteral("openssl"), withConfiguration);
    if (!process.waitForFinished(60000) || process.exitStatus() != QProcess::NormalExit || process.exitCode() != 0)
        throw std::runtime_error("openssl " + arguments.join(QLatin1Char(' ')).toStdString() + " failed: " +
                                 process.readAll().toStdString());
}

} // namespace zunbrix::testing
