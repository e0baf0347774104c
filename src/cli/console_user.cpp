#include "cli/console_user.h"

#include "frame/paths.h"


#include <cstdio>

#ifdef Q_OS_WIN
#include <io.h>
#define isatty _isatty
#define fileno _fileno
#else
#include <unistd.h>
#endif

namespace zunbrix::cli {

namespace {

void print(std::FILE* stream, QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    if (!text.endsWith(QLatin1Char('\n')))
        text += QLatin1Char('\n');
    std::fputs(text.toLocal8Bit().constData(), stream);
    std::fflush(stream);
}

const char* stageName(BuildStage stage)
{
    switch (stage) {
    case BuildStage::ReadingGames:
        return "reading games";
    case BuildStage::Assembling:
        return "assembling the menu";
    case BuildStage::WritingRom:
        return "writing the ROM";
    }
    return "";
}

} // namespace

void PrintError(const QString& text)
{
    print(stderr, text);
}

void PrintOutput(const QString& text)
{
    print(stdout, text);
}

void PrintMessage(int titleId, const QString& text, const std::vector<FileProblem>& problems, Language language)
{
    PrintError(StringTable::Get(titleId, language) + QStringLiteral(": ") + withFileProblems(text, problems, language));
}

OutputType OutputTypeOf(const QString& path)
{
    const QString extension = ExtensionOf(path, false).toLower();
    if (extension == QLatin1String("unf"))
        return OutputType::Unif;
    if (extension == QLatin1String("bin"))
        return OutputType::Bin;
    return OutputType::Nes;
}

ConsoleUser::ConsoleUser(OutputChoice output, Language language)
    : output_(std::move(output)), language_(language), terminal_(isatty(fileno(stderr)) != 0)
{
}

MessageAnswer ConsoleUser::ShowMessage(const BuildMessage& message)
{
    clearProgress();
    PrintMessage(message.titleId, message.text, message.problems, language_);
    return message.style == MessageStyle::YesNo ? MessageAnswer::No : MessageAnswer::Ok;
}

std::optional<OutputChoice> ConsoleUser::ChooseOutput(const QString&, OutputType)
{
    return output_;
}

void ConsoleUser::OfferToShowResult(const QString&)
{
    clearProgress();
}

void ConsoleUser::Progress(BuildStage stage, int done, int total)
{
    // A line per percent is plenty, and keeps a long list from flooding a slow terminal.
    if (!terminal_ || (total > 100 && done != total && done % (total / 100) != 0))
        return;
    QString line = QString::fromLatin1(stageName(stage));
    if (total > 1)
        line += QStringLiteral(" %1/%2").arg(done).arg(total);
    std::fputs(("\r\033[K" + line).toLocal8Bit().constData(), stderr);
    std::fflush(stderr);
    progressShown_ = true;
}

void ConsoleUser::clearProgress()
{
    if (!progressShown_)
        return;
    std::fputs("\r\033[K", stderr);
    progressShown_ = false;
}

} // namespace zunbrix::cli
