#pragma once

#include <QMap>
#include <QString>

namespace zunbrix::e2e {

// One run of FCEUX with no screen (under xvfb-run), driven by a Lua script. The script starts after a
// prelude that gives it:
//   put(key, value)        report a value; the run's `values` hold what was put
//   ram(address)           one byte of CPU memory; ram_hex(address, count): bytes as hex text
//   vram(address)          one byte of PPU memory; vram_hex(address, count) as for ram_hex
//   frames(count, pad)     advance `count` frames holding the buttons of `pad` (a joypad.set table, or nil)
//   screenshot(path)       save the picture as a PNG (it takes two frames)
// The emulator runs at full speed; the run ends when the script returns.
struct FceuxJob {
    QString romPath;
    QString script;
    QString folder;  // takes the script, its report and FCEUX's settings (as HOME); must exist
    int timeoutMs = 120000;
};

struct FceuxRun {
    bool finished = false;  // FCEUX ended by itself within the time limit
    QString log;            // what FCEUX printed, for failure messages
    QMap<QString, QString> values;
};

// Empty when fceux and xvfb-run are installed; otherwise says which is missing.
QString missingFceuxTools();

FceuxRun runFceux(const FceuxJob& job);

} // namespace zunbrix::e2e
