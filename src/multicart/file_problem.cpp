#include "multicart/file_problem.h"

#include "frame/text_format.h"
#include "frame/text_ids.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace zunbrix {

FileProblem regularFileProblem(const QString& path)
{
    const QFileInfo info(path);
    if (!info.exists())
        return {.kind = FileProblemKind::Missing, .path = path};
    if (!info.isFile())
        return {.kind = FileProblemKind::NotRegularFile, .path = path};
    return {};
}

FileProblem openForReading(QFile& file, const QString& path)
{
    if (FileProblem problem = regularFileProblem(path))
        return problem;
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return {.kind = FileProblemKind::ReadFailed, .path = path, .systemReason = file.errorString()};
    return {};
}

QString describeFileProblem(const FileProblem& problem, Language language)
{
    const auto words = [&](int textId, std::initializer_list<TextArg> args) {
        return FormatText(StringTable::Get(textId, language), args);
    };
    switch (problem.kind) {
    case FileProblemKind::None:
        return {};
    case FileProblemKind::Missing:
        return words(text::FileMissing, {problem.path});
    case FileProblemKind::NotRegularFile:
        return words(text::FileNotRegular, {problem.path});
    case FileProblemKind::ReadFailed:
        return words(text::FileReadFailed, {problem.path, problem.systemReason});
    case FileProblemKind::NoInesMark:
        return words(text::FileNoInesMark, {problem.path});
    case FileProblemKind::Truncated:
        return words(text::FileTruncated,
                     {problem.path, (long long)problem.claimedBytes, (long long)problem.fileBytes});
    case FileProblemKind::ChangedSinceRead:
        return words(text::FileChangedSinceRead, {problem.path});
    case FileProblemKind::WriteFailed:
        return words(text::FileWriteFailed, {problem.path, problem.systemReason});
    }
    return {};
}

QString withFileProblems(const QString& text, const std::vector<FileProblem>& problems, Language language)
{
    const QStringList lines = text.trimmed().split(QRegularExpression(QStringLiteral("\r?\n")));
    QStringList shown;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        shown.push_back(lines[i]);
        if (std::size_t(i) < problems.size() && problems[std::size_t(i)])
            shown.push_back(describeFileProblem(problems[std::size_t(i)], language));
    }
    return shown.join(QStringLiteral("\r\n"));
}

} // namespace zunbrix
