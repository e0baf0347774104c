#include "frame/string_table.h"

#include <QHash>
#include <QStringList>

#include <cstddef>
#include <utility>

namespace zunbrix::embedded {
extern const unsigned char textsTsv[];
extern const std::size_t textsTsvSize;
} // namespace zunbrix::embedded

namespace zunbrix {

namespace {

struct TextForms {
    QString english;
    QString chinese;
};

// The data file writes a line break inside a text as the two characters \r\n, a tab as \t and a backslash as \\.
QString unescape(const QString& field)
{
    QString text;
    text.reserve(field.size());
    for (qsizetype i = 0; i < field.size(); ++i) {
        const QChar c = field[i];
        if (c != QLatin1Char('\\') || i + 1 == field.size()) {
            text += c;
            continue;
        }
        switch (field[++i].unicode()) {
        case 'r': text += QLatin1Char('\r'); break;
        case 'n': text += QLatin1Char('\n'); break;
        case 't': text += QLatin1Char('\t'); break;
        default: text += field[i]; break;
        }
    }
    return text;
}

// Lines are "id<TAB>English<TAB>Chinese"; a line that does not start with a number (the heading) is skipped.
QHash<int, TextForms> parseTexts()
{
    const QString data = QString::fromUtf8(reinterpret_cast<const char*>(embedded::textsTsv),
                                           static_cast<qsizetype>(embedded::textsTsvSize));
    QHash<int, TextForms> texts;
    for (const QString& line : data.split(QLatin1Char('\n'), Qt::SkipEmptyParts)) {
        const QStringList fields = line.split(QLatin1Char('\t'));
        bool isNumber = false;
        const int id = fields[0].toInt(&isNumber);
        if (!isNumber || fields.size() != 3)
            continue;
        QString chinese = fields[2];
        if (chinese.endsWith(QLatin1Char('\r')))
            chinese.chop(1);
        texts.insert(id, {unescape(fields[1]), unescape(chinese)});
    }
    return texts;
}

const QHash<int, TextForms>& allTexts()
{
    static const QHash<int, TextForms> texts = parseTexts();
    return texts;
}

} // namespace

QString StringTable::Get(int id, Language language)
{
    const auto found = allTexts().constFind(id);
    if (found == allTexts().constEnd())
        return {};
    return language == Language::Chinese ? found->chinese : found->english;
}

QString StringTable::LanguageName(Language language)
{
    return language == Language::Chinese ? QStringLiteral("zh-cn") : QStringLiteral("en-us");
}

} // namespace zunbrix
