#include "update/download_file.h"

#include <QCryptographicHash>
#include <QNetworkReply>
#include <QSaveFile>

#include <algorithm>

namespace zunbrix {

namespace {

class FileTransfer : public HttpTransfer {
public:
    FileTransfer(const QUrl& url, const HttpOptions& options, QSaveFile& file, const QString& expectedSha256)
        : HttpTransfer(url, options), file_(file), expectedSha256_(expectedSha256.toLower().toLatin1())
    {
    }

    qint64 done() const { return done_; }
    qint64 total() const { return std::max<qint64>(announced_, 0); }

protected:
    void judgeAnswer(const QNetworkReply& reply) override
    {
        if (const std::optional<qint64> length = wholeFileLength(reply))
            announced_ = *length;
    }

    void takeBody(QByteArrayView block) override
    {
        if (file_.write(block.data(), block.size()) != block.size()) {
            fail("SaveToFile", file_.error());
            return;
        }
        hash_.addData(block);
        done_ += block.size();
    }

    void bodyEnded() override
    {
        if (announced_ >= 0 && done_ != announced_) {
            fail("InternetReadFile", 0);
            return;
        }
        if (!expectedSha256_.isEmpty() && hash_.result().toHex() != expectedSha256_) {
            fail("Sha256", 0);
            return;
        }
        if (!file_.commit()) {
            fail("SaveToFile", file_.error());
            return;
        }
        finish();
    }

private:
    QSaveFile& file_;
    QByteArray expectedSha256_;
    QCryptographicHash hash_{QCryptographicHash::Sha256};
    qint64 announced_ = -1;
    qint64 done_ = 0;
};

} // namespace

bool DownloadFile::Download(const QString& url, const QString& filePath, const QString& expectedSha256,
                            const ProgressCallback& callback)
{
    const std::optional<QUrl> address = FetchAddress(url);
    if (!address)
        return false;
    // Not committed, the temporary file goes when this object does.
    QSaveFile file(filePath);
    if (!file.open(QIODevice::WriteOnly)) {
        LogFailedStep("CreateFile", file.error());
        return false;
    }
    FileTransfer transfer(*address, options_, file, expectedSha256);
    runner_.run({&transfer}, callback, [&transfer] { return TransferRunner::Amount{transfer.done(), transfer.total()}; });
    return transfer.state() == TransferState::Done;
}

} // namespace zunbrix
