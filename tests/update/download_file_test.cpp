#include "update/download_file.h"

#include "support/generated_file.h"
#include "update_testing.h"

#include <QCryptographicHash>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

QString sha256Of(const QByteArray& bytes)
{
    return QString::fromLatin1(QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex());
}

QStringList filesIn(const QString& folder)
{
    return QDir(folder).entryList(QDir::Files | QDir::Hidden);
}

} // namespace

TEST(DownloadFile, NewProgramTakesItsNameOnlyWhenWholeAndMatching)
{
    const std::unique_ptr<TestHttpServer> server = TrustedHttpsServer();
    const QByteArray program = PatternedBytes(3 * 1000 * 1000);
    server->serve(QStringLiteral("/Zunbrix"), {.body = program});
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("Zunbrix_1.0.0.10"));
    DownloadFile download(TrustingOptions());

    ASSERT_TRUE(download.Download(server->url(QStringLiteral("/Zunbrix")), target, sha256Of(program).toUpper(), nullptr));
    EXPECT_EQ(fileText(target), program.toStdString());
    EXPECT_EQ(filesIn(folder.path()), QStringList{"Zunbrix_1.0.0.10"}) << "no temporary file is left";
}

TEST(DownloadFile, WrongHashOrShortBodyLeavesNothingNew)
{
    TestHttpServer server;
    const QByteArray program = PatternedBytes(300000);
    server.serve(QStringLiteral("/Zunbrix"), {.body = program});
    server.serve(QStringLiteral("/short"), {.body = program, .closeAfterBytes = 200000});
    const QTemporaryDir folder;
    const QString target = folder.filePath(QStringLiteral("Zunbrix_1.0.0.10"));
    DownloadFile download(TrustingOptions());

    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/Zunbrix")), target, sha256Of("another program"), nullptr));
    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/short")), target, QString(), nullptr));
    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/short")), target, sha256Of(program.left(200000)), nullptr))
        << "the length the server announced counts, even when the hash fits what came";
    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/nowhere")), target, QString(), nullptr)) << "404";
    EXPECT_EQ(filesIn(folder.path()), QStringList());

    // A file of that name from before stays as it was.
    ASSERT_TRUE(download.Download(server.url(QStringLiteral("/Zunbrix")), target, sha256Of(program), nullptr));
    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/short")), target, QString(), nullptr));
    EXPECT_EQ(fileText(target), program.toStdString());
    EXPECT_EQ(filesIn(folder.path()), QStringList{"Zunbrix_1.0.0.10"});
}

TEST(DownloadFile, CancelAtCloseLeavesNothing)
{
    TestHttpServer server;
    server.serve(QStringLiteral("/Zunbrix"), {.body = PatternedBytes(300000), .stallAfterBytes = 100000});
    HttpOptions options = TrustingOptions();
    options.stallTimeoutMs = 3600 * 1000;
    DownloadFile download(options);
    const QTemporaryDir folder;

    // The close comes once the first 100,000 bytes are written.
    const auto progress = [&](qint64 done, qint64 total, qint64) {
        EXPECT_EQ(total, 300000);
        if (done == 100000)
            download.Cancel();
    };
    EXPECT_FALSE(download.Download(server.url(QStringLiteral("/Zunbrix")),
                                   folder.filePath(QStringLiteral("Zunbrix_2.0.0.0")), QString(), progress));
    EXPECT_EQ(filesIn(folder.path()), QStringList());
}
