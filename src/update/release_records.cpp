#include "update/release_records.h"

#include "frame/registry_store.h"
#include "update/update_settings.h"

#include <QDateTime>
#include <QUrl>

namespace zunbrix {

namespace {

// Room for a record; a longer one is cut, and then does not parse.
constexpr qint64 kRecordCapacity = 0x100000;

std::optional<QByteArray> fetchRecord(RangeClient& client, const QString& location, const char* fileName)
{
    const QString url = ReleaseRecordUrl(location, QString::fromLatin1(fileName), QDateTime::currentMSecsSinceEpoch());
    QByteArray record(kRecordCapacity, '\0');
    const std::optional<qint64> size = client.GetToBuffer(url, record.data(), record.size(), nullptr, 1);
    if (!size)
        return std::nullopt;
    record.truncate(*size);
    return record;
}

} // namespace

QString ReleaseLocation()
{
    QString stored;
    if (RegistryStore::GetString(QString::fromLatin1(kUpdateSettingsKey), QString::fromLatin1(kReleaseLocationValue), stored)) {
        const QUrl address(stored.trimmed(), QUrl::StrictMode);
        if (address.isValid() && !address.host().isEmpty() &&
            (address.scheme() == QLatin1String("https") || address.scheme() == QLatin1String("http")))
            return address.toString(QUrl::StripTrailingSlash);
    }
    return QString::fromLatin1(kDefaultReleaseLocation);
}

QString ReleaseRecordUrl(const QString& location, const QString& fileName, qint64 nowMs)
{
    return QStringLiteral("%1/raw/master/Release/%2?%3").arg(location, fileName).arg(nowMs);
}

std::optional<UpdateRecord> FetchUpdateRecord(RangeClient& client, const QString& location)
{
    const std::optional<QByteArray> json = fetchRecord(client, location, "update.json");
    return json ? std::optional(ParseUpdateRecord(*json)) : std::nullopt;
}

std::optional<NotifyRecord> FetchNotifyRecord(RangeClient& client, const QString& location)
{
    const std::optional<QByteArray> json = fetchRecord(client, location, "notify.json");
    return json ? std::optional(ParseNotifyRecord(*json)) : std::nullopt;
}

} // namespace zunbrix
