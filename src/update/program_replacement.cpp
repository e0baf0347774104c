#include "update/program_replacement.h"

#include "frame/paths.h"
#include "frame/registry_store.h"
#include "update/update_settings.h"

#include <QFile>
#include <QThread>

#include <filesystem>
#include <system_error>

namespace zunbrix {

namespace {

constexpr int kDeleteTries = 5;
constexpr int kDeleteRetryMs = 200;

QString settingsKey()
{
    return QString::fromLatin1(kUpdateSettingsKey);
}

QString deleteValue()
{
    return QString::fromLatin1(kDeleteValue);
}

// A rename and nothing else: never the copy that some file layers fall back to, which could leave two programs.
bool moveFile(const QString& from, const QString& to)
{
    std::error_code error;
    std::filesystem::rename(std::filesystem::path(from.toStdU16String()), std::filesystem::path(to.toStdU16String()),
                            error);
    return !error;
}

} // namespace

bool ReplaceRunningProgram(const QString& runningPath, const QString& newProgramPath)
{
    const QString running = WithForwardSlashes(runningPath);
    const QString backup = running + QStringLiteral(".bak");
    const QString newProgram = WithForwardSlashes(newProgramPath);
    if (!FileExists(newProgram) || !DeleteFileQuiet(backup))
        return false;
    const QFile::Permissions permissions = QFile::permissions(running);
    if (!moveFile(running, backup))
        return false;
    if (!moveFile(newProgram, running)) {
        moveFile(backup, running);
        return false;
    }
    QFile::setPermissions(running, permissions);
    RegistryStore::SetString(settingsKey(), deleteValue(), backup);
    return true;
}

bool DeleteReplacedProgram(const std::function<void(int failedTries)>& waitBeforeRetry)
{
    QString leftOver;
    if (!RegistryStore::GetString(settingsKey(), deleteValue(), leftOver) || leftOver.isEmpty())
        return true;
    for (int tries = 1;; ++tries) {
        if (DeleteFileQuiet(leftOver))
            return RegistryStore::SetString(settingsKey(), deleteValue(), QString());
        if (tries == kDeleteTries)
            return false;
        waitBeforeRetry(tries);
    }
}

void WaitBeforeDeleteRetry(int)
{
    QThread::msleep(kDeleteRetryMs);
}

} // namespace zunbrix
