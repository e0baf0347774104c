#pragma once

namespace zunbrix {

// The update service's values in the settings store, beside the main window's.
inline constexpr char kUpdateSettingsKey[] = "Software\\Zunbrix";
// Text: the release location, the address under which the records lie (see ReleaseLocation).
inline constexpr char kReleaseLocationValue[] = "ReleaseLocation";
// Number: the id of the last notice shown.
inline constexpr char kLastNotifyIdValue[] = "LastNotifyId";
// Text: the old program left by an update, to delete at the next start.
inline constexpr char kDeleteValue[] = "Delete";

} // namespace zunbrix
