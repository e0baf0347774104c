#pragma once

#include "frame/version_number.h"
#include "update/update_records.h"

#include <QString>

namespace zunbrix {

// Who asked for an update check: the start of the program, the minute timer, or the user.
enum class UpdateCheck { Startup, Timer, User };

// What the window does with a fetched update record.
enum class UpdateAction { Nothing, Offer, Download };

// The address of the program file for this platform: `url_x86` on Windows, `url_linux_x64` on Linux x86-64;
// "" on a platform the record has no file for.
QString ProgramFileUrl(const UpdateRecord& record);

// The record offers a program above the running one that this platform can fetch. The offer's Confirm is
// enabled only then.
bool CanInstallUpdate(const VersionNumber& current, const UpdateRecord& record);

// The timer only downloads a forced update; the start downloads a forced one and offers any other newer one;
// the user always sees the offer.
UpdateAction DecideUpdate(UpdateCheck check, const VersionNumber& current, const UpdateRecord& record);

// Where the new program is downloaded to: in the running one's folder, named Zunbrix_<version> (".exe" on
// Windows). The version is written as read by VersionNumber, so the record's text cannot lead elsewhere.
QString UpdateFilePath(const UpdateRecord& record, const QString& programFolder);

// A notice is shown when its id is above the last one shown, or, with `restart_show`, once in each run.
bool NoticeDue(const NotifyRecord& record, quint32 lastNotifyId, bool shownThisRun);

// The id of the last notice shown, 0 if none; and storing it once a notice has been shown.
quint32 ReadLastNotifyId();
bool StoreNoticeShown(const NotifyRecord& record);

} // namespace zunbrix
