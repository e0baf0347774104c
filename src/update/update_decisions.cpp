#include "update/update_decisions.h"

#include "frame/paths.h"
#include "frame/registry_store.h"
#include "update/update_settings.h"

#include <algorithm>

namespace zunbrix {

QString ProgramFileUrl(const UpdateRecord& record)
{
#if defined(Q_OS_WIN)
    return record.urlX86;
#elif defined(Q_OS_LINUX) && defined(Q_PROCESSOR_X86_64)
    return record.urlLinuxX64;
#else
    Q_UNUSED(record);
    return {};
#endif
}

bool CanInstallUpdate(const VersionNumber& current, const UpdateRecord& record)
{
    return VersionNumber::fromText(record.version) > current && !ProgramFileUrl(record).isEmpty();
}

UpdateAction DecideUpdate(UpdateCheck check, const VersionNumber& current, const UpdateRecord& record)
{
    if (check == UpdateCheck::User)
        return UpdateAction::Offer;
    if (!CanInstallUpdate(current, record))
        return UpdateAction::Nothing;
    if (record.forceUpdate)
        return UpdateAction::Download;
    return check == UpdateCheck::Startup ? UpdateAction::Offer : UpdateAction::Nothing;
}

QString UpdateFilePath(const UpdateRecord& record, const QString& programFolder)
{
    QString path = WithForwardSlashes(programFolder) + QStringLiteral("/Zunbrix_") + VersionNumber::fromText(record.version).toText();
#ifdef Q_OS_WIN
    path += QStringLiteral(".exe");
#endif
    return path;
}

bool NoticeDue(const NotifyRecord& record, quint32 lastNotifyId, bool shownThisRun)
{
    return (record.restartShow && !shownThisRun) || qint64{lastNotifyId} < qint64{record.notifyId};
}

quint32 ReadLastNotifyId()
{
    quint32 id = 0;
    RegistryStore::GetDword(QString::fromLatin1(kUpdateSettingsKey), QString::fromLatin1(kLastNotifyIdValue), id);
    return id;
}

bool StoreNoticeShown(const NotifyRecord& record)
{
    // A negative id stored as a number without sign would hide every later notice.
    return RegistryStore::SetDword(QString::fromLatin1(kUpdateSettingsKey), QString::fromLatin1(kLastNotifyIdValue),
                                   static_cast<quint32>(std::max(record.notifyId, 0)));
}

} // namespace zunbrix
