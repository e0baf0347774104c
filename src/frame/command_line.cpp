#include "frame/command_line.h"

#include "frame/paths.h"

#include <QProcess>
#include <QStringList>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace zunbrix {

namespace {

struct SplitLine {
    QString program;
    QString arguments;
};

// The first word of the line, quoted or up to the first blank, and the rest behind it.
SplitLine splitProgram(const QString& line)
{
    const QString trimmed = line.trimmed();
    qsizetype end = 0;
    QString program;
    if (trimmed.startsWith(QLatin1Char('"'))) {
        const qsizetype close = trimmed.indexOf(QLatin1Char('"'), 1);
        program = close < 0 ? trimmed.mid(1) : trimmed.mid(1, close - 1);
        end = close < 0 ? trimmed.size() : close + 1;
    } else {
        end = trimmed.indexOf(QLatin1Char(' '));
        end = end < 0 ? trimmed.size() : end;
        program = trimmed.left(end);
    }
    return {program, trimmed.mid(end).trimmed()};
}

#ifndef Q_OS_WIN
// The arguments as a Windows program's C runtime splits them, so a child sees the same words everywhere:
// blanks separate words outside quotes; 2n backslashes before a quote give n and the quote opens or closes;
// 2n+1 give n and a literal quote; other backslashes are literal; "" inside quotes is a literal quote.
QStringList splitArguments(const QString& text)
{
    QStringList words;
    QString word;
    bool inWord = false;
    bool quoted = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        if (!quoted && (c == QLatin1Char(' ') || c == QLatin1Char('\t'))) {
            if (inWord)
                words += word;
            word.clear();
            inWord = false;
            continue;
        }
        inWord = true;
        if (c == QLatin1Char('\\')) {
            qsizetype backslashes = 0;
            while (i < text.size() && text[i] == QLatin1Char('\\')) {
                ++backslashes;
                ++i;
            }
            const bool beforeQuote = i < text.size() && text[i] == QLatin1Char('"');
            word += QString(beforeQuote ? backslashes / 2 : backslashes, QLatin1Char('\\'));
            if (beforeQuote && backslashes % 2 == 1)
                word += QLatin1Char('"');
            else
                --i; // the quote, or the next character, is looked at on its own
            continue;
        }
        if (c == QLatin1Char('"')) {
            if (quoted && i + 1 < text.size() && text[i + 1] == QLatin1Char('"')) {
                word += QLatin1Char('"');
                ++i;
            } else {
                quoted = !quoted;
            }
            continue;
        }
        word += c;
    }
    if (inWord)
        words += word;
    return words;
}
#endif

} // namespace

QString CommandLineOf(const QString& exePath, const QString& arguments)
{
    QString line;
    if (exePath.isEmpty())
        line = arguments;
    else if (arguments.isEmpty())
        line = QLatin1Char('"') + exePath + QLatin1Char('"');
    else
        line = QLatin1Char('"') + exePath + QStringLiteral("\" ") + arguments;
    return line.left(kMaxCommandLine);
}

void PrepareProcess(QProcess& process, const QString& commandLine, bool show)
{
    const SplitLine split = splitProgram(commandLine.left(kMaxCommandLine));
#ifdef Q_OS_WIN
    process.setProgram(split.program);
    process.setNativeArguments(split.arguments);
    process.setCreateProcessArgumentsModifier([show](QProcess::CreateProcessArguments* args) {
        args->startupInfo->dwFlags |= STARTF_USESHOWWINDOW;
        args->startupInfo->wShowWindow = show ? SW_SHOW : SW_HIDE;
        if (!show)
            args->flags |= CREATE_NO_WINDOW;
    });
#else
    Q_UNUSED(show); // a console tool has no window of its own here
    process.setProgram(WithForwardSlashes(split.program));
    process.setArguments(splitArguments(split.arguments));
#endif
}

} // namespace zunbrix
