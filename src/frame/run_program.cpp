#include "frame/run_program.h"

#include "frame/command_line.h"
#include "frame/paths.h"

#include <QProcess>

namespace zunbrix {

bool RunProgram(const QString& commandLine, const QString& workFolder, bool show, bool wait)
{
    QProcess process;
    PrepareProcess(process, commandLine, show);
    process.setProcessChannelMode(QProcess::ForwardedChannels);
    process.setInputChannelMode(QProcess::ForwardedInputChannel);
    if (!workFolder.isEmpty())
        process.setWorkingDirectory(WithForwardSlashes(workFolder));
    if (!wait)
        return process.startDetached();
    process.start();
    if (!process.waitForStarted(-1))
        return false;
    process.waitForFinished(-1);
    return true;
}

} // namespace zunbrix
