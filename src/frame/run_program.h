#pragma once

#include <QString>

namespace zunbrix {

// Starts a program from a command line in Windows form (see CommandLineOf), in workFolder when one is given,
// sharing our standard handles. `show` shows its window (Windows). With `wait`, waits until it ends, without
// limit. True if the program started.
bool RunProgram(const QString& commandLine, const QString& workFolder, bool show, bool wait);

} // namespace zunbrix
