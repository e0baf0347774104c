#include "update/range_client.h"

#include "update_testing.h"

#include <QThread>

#include <gtest/gtest.h>

#include <optional>
#include <thread>
#include <vector>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

// What a fetch put in a buffer of `capacity` bytes, when it succeeded.
std::optional<QByteArray> fetch(RangeClient& client, const QString& url, qint64 capacity, int parts,
                                const ProgressCallback& progress = nullptr)
{
    QByteArray buffer(capacity, '\0');
    const std::optional<qint64> size = client.GetToBuffer(url, buffer.data(), capacity, progress, parts);
    if (!size)
        return std::nullopt;
    buffer.truncate(*size);
    return buffer;
}

QStringList rangeRequests(const TestHttpServer& server, const QString& path)
{
    QStringList ranges = server.rangesAsked(path);
    ranges.removeAll(QString());
    ranges.sort();
    return ranges;
}

// Waits, running nothing else, until the server has seen `count` requests for `path`.
void waitForRequests(const TestHttpServer& server, const QString& path, int count)
{
    while (server.rangesAsked(path).size() < count)
        QThread::msleep(5);
}

} // namespace

TEST(RangeClient, FetchesEveryPartAtOnceIntoItsPlace)
{
    const std::unique_ptr<TestHttpServer> server = TrustedHttpsServer();
    const QByteArray file = PatternedBytes(100000);
    // No range is answered before all eight have been asked for: parts fetched one after another would stall.
    server->serve(QStringLiteral("/file"), {.body = file, .holdRangesUntil = 8});
    RangeClient client(TrustingOptions());

    EXPECT_EQ(fetch(client, server->url(QStringLiteral("/file")), 200000, 8), file);
    EXPECT_EQ(server->rangesAsked(QStringLiteral("/file")).count(QString()), 1) << "one length query";
    EXPECT_EQ(rangeRequests(*server, QStringLiteral("/file")),
              (QStringList{"bytes=0-12499", "bytes=12500-24999", "bytes=25000-37499", "bytes=37500-49999",
                           "bytes=50000-62499", "bytes=62500-74999", "bytes=75000-87499", "bytes=87500-99999"}));
}

TEST(RangeClient, SmallFileOrSmallRoomGoesInOnePart)
{
    TestHttpServer server;
    const QByteArray record = PatternedBytes(100);
    const QByteArray large = PatternedBytes(100000);
    server.serve(QStringLiteral("/record"), {.body = record});
    server.serve(QStringLiteral("/large"), {.body = large});
    RangeClient client(TrustingOptions());

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/record")), 0x100000, 3), record);
    EXPECT_EQ(rangeRequests(server, QStringLiteral("/record")), QStringList{"bytes=0-99"});

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/large")), 4095, 8), large.left(4095));
    EXPECT_EQ(rangeRequests(server, QStringLiteral("/large")), QStringList{"bytes=0-4094"});
}

TEST(RangeClient, BodyLargerThanTheRoomIsCutThere)
{
    TestHttpServer server;
    const QByteArray file = PatternedBytes(100000);
    server.serve(QStringLiteral("/file"), {.body = file});
    RangeClient client(TrustingOptions());

    QByteArray buffer(60000, '\x5A');
    EXPECT_EQ(client.GetToBuffer(server.url(QStringLiteral("/file")), buffer.data(), 50000, nullptr, 4), 50000);
    EXPECT_EQ(buffer.left(50000), file.left(50000));
    EXPECT_EQ(buffer.mid(50000), QByteArray(10000, '\x5A')) << "nothing is written past the room given";
    EXPECT_EQ(rangeRequests(server, QStringLiteral("/file")),
              (QStringList{"bytes=0-12499", "bytes=12500-24999", "bytes=25000-37499", "bytes=37500-49999"}));
}

TEST(RangeClient, FileWithoutLengthIsNotFetched)
{
    TestHttpServer server;
    server.serve(QStringLiteral("/file"), {.body = PatternedBytes(10000), .announceLength = false});
    RangeClient client(TrustingOptions());

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/file")), 0x100000, 4), std::nullopt);
    EXPECT_EQ(rangeRequests(server, QStringLiteral("/file")), QStringList());
}

TEST(RangeClient, AnswerThatIsNotTheRangeAskedFails)
{
    TestHttpServer server;
    const QByteArray file = PatternedBytes(10000);
    server.serve(QStringLiteral("/whole"), {.body = file, .honourRanges = false});
    server.serve(QStringLiteral("/shifted"), {.body = file, .contentRange = "bytes 0-2499/10000"});
    server.serve(QStringLiteral("/changed"), {.body = file, .contentRange = "bytes 0-9999/20000"});
    server.serve(QStringLiteral("/choices"), {.body = file, .rangeStatus = "300 Multiple Choices"});
    RangeClient client(TrustingOptions());

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/whole")), 0x100000, 1), std::nullopt)
        << "200 with the whole file, even where it would have fitted";
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/shifted")), 0x100000, 4), std::nullopt);
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/changed")), 0x100000, 1), std::nullopt)
        << "the file changed length since it was measured";
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/choices")), 0x100000, 4), std::nullopt)
        << "a redirect that goes nowhere is no answer, whatever its body";
}

TEST(RangeClient, TruncatedOrStalledBodyFails)
{
    TestHttpServer server;
    const QByteArray file = PatternedBytes(100000);
    server.serve(QStringLiteral("/truncated"), {.body = file, .closeAfterBytes = 1000});
    server.serve(QStringLiteral("/stalled"), {.body = file, .stallAfterBytes = 1000});
    HttpOptions options = TrustingOptions();
    options.stallTimeoutMs = 300;
    RangeClient client(options);

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/truncated")), 0x100000, 4), std::nullopt);
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/stalled")), 0x100000, 4), std::nullopt);
}

TEST(RangeClient, HostThatNeverAnswersTimesOut)
{
    TestHttpServer server;
    server.serve(QStringLiteral("/file"), {.body = PatternedBytes(100), .neverAnswer = true});
    HttpOptions options = TrustingOptions();
    options.connectTimeoutMs = 300;
    RangeClient client(options);

    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/file")), 0x100000, 1), std::nullopt);
}

TEST(RangeClient, CancelFromAnotherThreadEndsEveryFetchUnderWayAndEveryLaterOne)
{
    TestHttpServer server;
    // The parts are never answered; only the cancel can end the fetches before the test's own time limit.
    server.serve(QStringLiteral("/update.json"), {.body = PatternedBytes(100000), .holdRangesUntil = 1000});
    server.serve(QStringLiteral("/notify.json"), {.body = PatternedBytes(100000), .holdRangesUntil = 1000});
    HttpOptions options = TrustingOptions();
    options.connectTimeoutMs = 3600 * 1000;
    RangeClient client(options);

    // The update check and the notice check share the client, each on a thread of its own.
    std::optional<QByteArray> update = QByteArray("not yet");
    std::optional<QByteArray> notice = QByteArray("not yet");
    std::thread updateCheck([&] { update = fetch(client, server.url(QStringLiteral("/update.json")), 0x100000, 4); });
    std::thread noticeCheck([&] { notice = fetch(client, server.url(QStringLiteral("/notify.json")), 0x100000, 2); });
    waitForRequests(server, QStringLiteral("/update.json"), 1 + 4);
    waitForRequests(server, QStringLiteral("/notify.json"), 1 + 2);
    client.Cancel();
    updateCheck.join();
    noticeCheck.join();
    EXPECT_EQ(update, std::nullopt);
    EXPECT_EQ(notice, std::nullopt);

    server.serve(QStringLiteral("/record"), {.body = PatternedBytes(100)});
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/record")), 0x100000, 1), std::nullopt);
    EXPECT_EQ(server.rangesAsked(QStringLiteral("/record")), QStringList()) << "a cancelled client asks nothing";
}

TEST(RangeClient, ProgressTellsDoneTotalAndSpeed)
{
    TestHttpServer server;
    // Each part sends its first 1000 bytes and falls silent; the fetch is cancelled once all four have come.
    server.serve(QStringLiteral("/file"), {.body = PatternedBytes(1000000), .stallAfterBytes = 1000});
    HttpOptions options = TrustingOptions();
    options.stallTimeoutMs = 3600 * 1000;
    RangeClient client(options);

    qint64 done = 0;
    qint64 bytesBySpeed = 0;
    const auto progress = [&](qint64 doneNow, qint64 total, qint64 bytesPerSecond) {
        EXPECT_EQ(total, 600000) << "the amount fetched, cut at the room given";
        done = doneNow;
        bytesBySpeed += bytesPerSecond / 2;
        if (done == 4000)
            client.Cancel();
    };
    EXPECT_EQ(fetch(client, server.url(QStringLiteral("/file")), 600000, 4, progress), std::nullopt);
    EXPECT_EQ(done, 4000);
    EXPECT_EQ(bytesBySpeed, done) << "each speed is the bytes of its 500 ms, per second";
}

TEST(RangeClient, RefusesServersItCannotTrust)
{
    TestAuthority stranger(QStringLiteral("Unknown Authority"));
    TestHttpServer untrusted(stranger.issue(QStringLiteral("IP:127.0.0.1")));
    TestHttpServer otherName(TrustedAuthority().issue(QStringLiteral("DNS:elsewhere.example")));
    TestHttpServer expired(
        TrustedAuthority().issue(QStringLiteral("IP:127.0.0.1"), TestAuthority::Validity::Expired));
    const std::unique_ptr<TestHttpServer> trusted = TrustedHttpsServer();
    const QByteArray record = PatternedBytes(100);
    for (TestHttpServer* server : {&untrusted, &otherName, &expired, trusted.get()})
        server->serve(QStringLiteral("/record"), {.body = record});
    RangeClient client(TrustingOptions());
    RangeClient systemTrust;

    EXPECT_EQ(fetch(client, untrusted.url(QStringLiteral("/record")), 0x100000, 1), std::nullopt);
    EXPECT_EQ(fetch(client, otherName.url(QStringLiteral("/record")), 0x100000, 1), std::nullopt);
    EXPECT_EQ(fetch(client, expired.url(QStringLiteral("/record")), 0x100000, 1), std::nullopt);
    EXPECT_EQ(fetch(client, trusted->url(QStringLiteral("/record")), 0x100000, 1), record);
    EXPECT_EQ(fetch(systemTrust, trusted->url(QStringLiteral("/record")), 0x100000, 1), std::nullopt)
        << "the test's authority is trusted by the test's client only";
}

TEST(RangeClient, FollowsRedirectsButNeverFromHttpsToHttp)
{
    const std::unique_ptr<TestHttpServer> secure = TrustedHttpsServer();
    TestHttpServer plain;
    const QByteArray file = PatternedBytes(10000);
    secure->serve(QStringLiteral("/file"), {.body = file});
    plain.serve(QStringLiteral("/file"), {.body = file});
    secure->serve(QStringLiteral("/moved"), {.redirectTo = secure->url(QStringLiteral("/file"))});
    secure->serve(QStringLiteral("/downgraded"), {.redirectTo = plain.url(QStringLiteral("/file"))});
    RangeClient client(TrustingOptions());

    EXPECT_EQ(fetch(client, secure->url(QStringLiteral("/moved")), 0x100000, 2), file);
    EXPECT_EQ(fetch(client, secure->url(QStringLiteral("/downgraded")), 0x100000, 2), std::nullopt);
    EXPECT_EQ(plain.rangesAsked(QStringLiteral("/file")), QStringList());
}

TEST(RangeClient, FiftyMegabytesArriveByteExactInOneEightAndSixtyFourParts)
{
    const std::unique_ptr<TestHttpServer> server = TrustedHttpsServer();
    const QByteArray file = PatternedBytes(50 * 1000 * 1000);
    RangeClient client(TrustingOptions());

    for (const int parts : {1, 8, 64}) {
        // All parts are asked for before any is answered: they run at once, each on its own connection.
        const QString path = QStringLiteral("/program%1").arg(parts);
        server->serve(path, {.body = file, .holdRangesUntil = parts});
        EXPECT_EQ(fetch(client, server->url(path), file.size(), parts), file) << parts << " parts";
        EXPECT_EQ(rangeRequests(*server, path).size(), parts);
    }
}
