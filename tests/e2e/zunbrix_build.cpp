#include "e2e/zunbrix_build.h"

#include <QProcess>

namespace zunbrix::e2e {

QString zunbrixBuild(const QStringList& arguments, const QString& dataHome)
{
    constexpr int kTimeoutMs = 120000;
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_DATA_HOME"), dataHome);
    process.setProcessEnvironment(environment);
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(QStringLiteral(ZUNBRIX_PROGRAM), QStringList{QStringLiteral("build")} + arguments);
    if (!process.waitForFinished(kTimeoutMs))
        return QStringLiteral("zunbrix did not finish");
    const QString output = QString::fromLocal8Bit(process.readAll());
    return process.exitCode() == 0 ? QString() : output;
}

} // namespace zunbrix::e2e
