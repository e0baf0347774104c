#pragma once

#include "test_authority.h"
#include "test_http_server.h"
#include "update/http_options.h"

#include <QByteArray>

#include <memory>

namespace zunbrix::testing {

// The authority that the tests' clients trust, made once per program.
TestAuthority& TrustedAuthority();

// Client options that trust only that authority, with time-outs that end a failing test within seconds.
HttpOptions TrustingOptions();

// An HTTPS server on 127.0.0.1 with a certificate of the trusted authority.
std::unique_ptr<TestHttpServer> TrustedHttpsServer();

// Bytes that differ with their position, so that a range put in the wrong place shows.
QByteArray PatternedBytes(qint64 size);

} // namespace zunbrix::testing
