#include "update/range_client.h"

#include <QNetworkReply>
#include <QRegularExpression>

#include <algorithm>
#include <cstring>
#include <memory>
#include <vector>

namespace zunbrix {

namespace {

constexpr int kMaxParts = 64;
// Below this, in the file or in the room for it, splitting costs more than it gains.
constexpr qint64 kSmallestSplit = 4096;

int partCount(qint64 length, qint64 capacity, int parts)
{
    if (length < kSmallestSplit || capacity < kSmallestSplit)
        return 1;
    return std::clamp(parts, 1, kMaxParts);
}

// Asks for the file's length: the headers of a plain GET, without its body.
class LengthQuery : public HttpTransfer {
public:
    using HttpTransfer::HttpTransfer;

    qint64 length() const { return length_; }

protected:
    void judgeAnswer(const QNetworkReply& reply) override
    {
        const std::optional<qint64> length = wholeFileLength(reply);
        if (!length)
            return;
        if (*length < 0) {
            fail("QueryContentLength", 0);
            return;
        }
        length_ = *length;
        finish();
    }
    void takeBody(QByteArrayView) override {}
    void bodyEnded() override {}

private:
    qint64 length_ = -1;
};

// One range of the file, written straight into its place in the buffer.
class RangePart : public HttpTransfer {
public:
    RangePart(const QUrl& url, const HttpOptions& options, qint64 fileLength, qint64 offset, qint64 length,
              char* target)
        : HttpTransfer(url, options), fileLength_(fileLength), offset_(offset), length_(length), target_(target)
    {
        setHeader("Range", QStringLiteral("bytes=%1-%2").arg(offset).arg(offset + length - 1).toLatin1());
    }

    qint64 done() const { return done_; }

protected:
    void judgeAnswer(const QNetworkReply& reply) override
    {
        // "bytes first-last/length", naming exactly the range asked for in the file that was measured.
        static const QRegularExpression form(QStringLiteral("^bytes (\\d+)-(\\d+)/(\\d+|\\*)$"));
        const QRegularExpressionMatch range = form.match(QString::fromLatin1(reply.rawHeader("Content-Range")));
        const bool asAsked = HttpStatus(reply) == 206 && range.hasMatch() &&
                             range.captured(1).toLongLong() == offset_ &&
                             range.captured(2).toLongLong() == offset_ + length_ - 1 &&
                             (range.captured(3) == QLatin1String("*") || range.captured(3).toLongLong() == fileLength_);
        if (!asAsked)
            fail("SetContentRange", HttpStatus(reply));
    }

    void takeBody(QByteArrayView block) override
    {
        if (block.size() > length_ - done_) {
            fail("SaveToBuffer", 0);
            return;
        }
        std::memcpy(target_ + done_, block.data(), static_cast<std::size_t>(block.size()));
        done_ += block.size();
    }

    void bodyEnded() override
    {
        if (done_ != length_)
            fail("InternetReadFile", 0);
        else
            finish();
    }

private:
    qint64 fileLength_;
    qint64 offset_;
    qint64 length_;
    char* target_;
    qint64 done_ = 0;
};

} // namespace

std::optional<qint64> RangeClient::GetToBuffer(const QString& url, char* buffer, qint64 capacity,
                                               const ProgressCallback& callback, int parts)
{
    if (url.isEmpty() || buffer == nullptr || capacity <= 0)
        return std::nullopt;
    const std::optional<QUrl> address = FetchAddress(url);
    if (!address)
        return std::nullopt;

    LengthQuery query(*address, options_);
    runner_.run({&query}, nullptr, nullptr);
    if (query.state() != TransferState::Done) {
        LogFailedStep("GetContentLength", 0);
        return std::nullopt;
    }

    const qint64 amount = std::min(query.length(), capacity);
    if (amount == 0)
        return 0;
    const int count = partCount(query.length(), capacity, parts);
    const qint64 partSize = amount / count;
    std::vector<std::unique_ptr<RangePart>> rangeParts;
    std::vector<HttpTransfer*> transfers;
    for (int i = 0; i < count; ++i) {
        const qint64 offset = i * partSize;
        const qint64 length = i + 1 < count ? partSize : amount - offset;
        rangeParts.push_back(
            std::make_unique<RangePart>(*address, options_, query.length(), offset, length, buffer + offset));
        transfers.push_back(rangeParts.back().get());
    }
    const auto measure = [&rangeParts, amount] {
        TransferRunner::Amount sum{0, amount};
        for (const auto& part : rangeParts)
            sum.done += part->done();
        return sum;
    };
    runner_.run(transfers, callback, measure);

    const bool whole = std::all_of(rangeParts.begin(), rangeParts.end(),
                                   [](const auto& part) { return part->state() == TransferState::Done; });
    if (!whole) {
        LogFailedStep("PartialDownload", 0);
        return std::nullopt;
    }
    return amount;
}

} // namespace zunbrix
