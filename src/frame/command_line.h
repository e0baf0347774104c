#pragma once

#include <QString>

class QProcess;

namespace zunbrix {

// Programs are started from one command line in Windows form, as the system has always passed them: the program
// first (quoted when it holds blanks), then its arguments. Lines are cut to 259 characters, without error.
inline constexpr qsizetype kMaxCommandLine = 259;

// `"exePath" arguments`, `"exePath"` when there are no arguments, `arguments` alone when there is no exePath;
// cut to kMaxCommandLine.
QString CommandLineOf(const QString& exePath, const QString& arguments);

// Gives `process` the program and arguments of the command line (cut to kMaxCommandLine), and on Windows shows
// or hides the child's window.
void PrepareProcess(QProcess& process, const QString& commandLine, bool show);

} // namespace zunbrix
