#include "e2e/fceux_runner.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QThread>

#include <csignal>
#include <unistd.h>

namespace zunbrix::e2e {
namespace {

// Debian installs fceux under /usr/games, which a test's PATH often lacks.
QString findTool(const QString& name)
{
    QString path = QStandardPaths::findExecutable(name);
    if (path.isEmpty())
        path = QStandardPaths::findExecutable(name, {QStringLiteral("/usr/games"), QStringLiteral("/usr/local/games")});
    return path;
}

const char* const kPrelude = R"lua(
local report = io.open(REPORT, "w")
function put(key, value) report:write(key, "=", tostring(value), "\n") end
function ram(address) return memory.readbyte(address) end
function ram_hex(address, count)
  local bytes = {}
  for i = 0, count - 1 do bytes[#bytes + 1] = string.format("%02X", memory.readbyte(address + i)) end
  return table.concat(bytes)
end
function vram(address) return ppu.readbyte(address) end
function vram_hex(address, count)
  local bytes = {}
  for i = 0, count - 1 do bytes[#bytes + 1] = string.format("%02X", ppu.readbyte(address + i)) end
  return table.concat(bytes)
end
function frames(count, pad)
  for i = 1, count do
    if pad then joypad.set(1, pad) end
    emu.frameadvance()
  end
end
function screenshot(path)
  -- at full speed FCEUX skips drawing frames, and a skipped frame saves no picture
  emu.speedmode("normal")
  gui.savescreenshotas(path)
  emu.frameadvance()
  emu.frameadvance()
  emu.speedmode("maximum")
end
emu.speedmode("maximum")
)lua";

// A Lua string literal that needs no escaping, whatever the path holds.
QByteArray luaLongString(const QString& text)
{
    return "[==[" + text.toUtf8() + "]==]";
}

bool groupAlive(pid_t group)
{
    return ::kill(-group, 0) == 0;
}

// Waits up to `ms` for every process of the group to be gone.
bool awaitGroupEnd(pid_t group, int ms)
{
    constexpr int kPollMs = 50;
    for (int waited = 0; groupAlive(group) && waited < ms; waited += kPollMs)
        QThread::msleep(kPollMs);
    return !groupAlive(group);
}

void stopProcessGroup(QProcess& process)
{
    // xvfb-run starts Xvfb and fceux beside itself: end the whole group that the child leads, politely first.
    const auto group = static_cast<pid_t>(process.processId());
    if (group <= 0)
        return;
    ::kill(-group, SIGTERM);
    process.waitForFinished(3000);
    if (!awaitGroupEnd(group, 3000)) {
        ::kill(-group, SIGKILL);
        process.waitForFinished(3000);
        awaitGroupEnd(group, 3000);
    }
}

QMap<QString, QString> readReport(const QString& path)
{
    QMap<QString, QString> values;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return values;
    for (const QByteArray& line : file.readAll().split('\n')) {
        const int sign = line.indexOf('=');
        if (sign > 0)
            values.insert(QString::fromUtf8(line.left(sign)), QString::fromUtf8(line.mid(sign + 1)));
    }
    return values;
}

// One start of xvfb-run; see runFceux.
FceuxRun runOnce(const FceuxJob& job)
{
    FceuxRun run;
    const QString scriptPath = job.folder + QStringLiteral("/script.lua");
    const QString reportPath = job.folder + QStringLiteral("/report.txt");
    QFile::remove(reportPath);
    QFile script(scriptPath);
    if (!script.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        run.log = QStringLiteral("cannot write ") + scriptPath;
        return run;
    }
    script.write("REPORT = " + luaLongString(reportPath) + "\n");
    script.write(kPrelude);
    script.write(job.script.toUtf8());
    script.write("\nreport:close()\nemu.exit()\n");
    script.close();

    QProcess emulator;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("HOME"), job.folder);
    emulator.setProcessEnvironment(environment);
    emulator.setProcessChannelMode(QProcess::MergedChannels);
    emulator.setChildProcessModifier([] { ::setsid(); });
    emulator.start(findTool(QStringLiteral("xvfb-run")),
                   {QStringLiteral("-a"), findTool(QStringLiteral("fceux")), QStringLiteral("--no-config"),
                    QStringLiteral("1"), QStringLiteral("--sound"), QStringLiteral("0"), QStringLiteral("--loadlua"),
                    scriptPath, job.romPath});
    run.finished = emulator.waitForFinished(job.timeoutMs);
    if (!run.finished)
        stopProcessGroup(emulator);
    run.log = QString::fromLocal8Bit(emulator.readAll());
    if (!run.finished)
        run.log += QStringLiteral("\n(stopped after %1 ms)").arg(job.timeoutMs);
    run.values = readReport(reportPath);
    return run;
}

} // namespace

QString missingFceuxTools()
{
    QStringList missing;
    for (const QString& tool : {QStringLiteral("fceux"), QStringLiteral("xvfb-run")}) {
        if (findTool(tool).isEmpty())
            missing << tool;
    }
    return missing.isEmpty() ? QString() : missing.join(QStringLiteral(", ")) + QStringLiteral(" not installed");
}

FceuxRun runFceux(const FceuxJob& job)
{
    // Two runs at once may pick the same display number, and then one Xvfb fails to start: try again.
    constexpr int kStarts = 3;
    FceuxRun run;
    for (int start = 0; start < kStarts; ++start) {
        run = runOnce(job);
        if (!run.values.isEmpty() || !run.log.contains(QStringLiteral("Xvfb failed to start")))
            break;
    }
    return run;
}

} // namespace zunbrix::e2e

