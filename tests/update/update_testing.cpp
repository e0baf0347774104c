#include "update_testing.h"

namespace zunbrix::testing {

TestAuthority& TrustedAuthority()
{
    static TestAuthority authority(QStringLiteral("Zunbrix Test Authority"));
    return authority;
}

HttpOptions TrustingOptions()
{
    HttpOptions options;
    options.connectTimeoutMs = 10000;
    options.stallTimeoutMs = 10000;
    options.authorities = {TrustedAuthority().certificate()};
    return options;
}

std::unique_ptr<TestHttpServer> TrustedHttpsServer()
{
    static const ServerIdentity identity = TrustedAuthority().issue(QStringLiteral("IP:127.0.0.1"));
    return std::make_unique<TestHttpServer>(identity);
}

QByteArray PatternedBytes(qint64 size)
{
    QByteArray bytes(size, Qt::Uninitialized);
    for (qint64 i = 0; i < size; ++i)
        bytes[i] = static_cast<char>(i * 131 + i / 251);
    return bytes;
}

} // namespace zunbrix::testing
