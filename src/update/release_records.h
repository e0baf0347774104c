#pragma once

#include "update/range_client.h"
#include "update/update_records.h"

#include <QString>

#include <optional>

namespace zunbrix {

// Where the records lie when the settings name no other place.
inline constexpr char kDefaultReleaseLocation[] = "https://gitee.com/zunbrix/zunbrix";

// The stored release location (an http or https address), else the default.
QString ReleaseLocation();

// The address of a record ("notify.json", "update.json") at the release location, with the time in milliseconds
// since 1970 as its query, so that each call asks for a new address and no cache answers.
QString ReleaseRecordUrl(const QString& location, const QString& fileName, qint64 nowMs);

// The records as the release location has them now; nothing when the fetch fails.
std::optional<UpdateRecord> FetchUpdateRecord(RangeClient& client, const QString& location);
std::optional<NotifyRecord> FetchNotifyRecord(RangeClient& client, const QString& location);

} // namespace zunbrix
