#include "frame/text_format.h"

#include <algorithm>
#include <cstdio>
#include <string>

namespace zunbrix {

namespace {

constexpr int kMaxField = 4096;

struct Conversion {
    std::string flags;
    int width = -1;
    int precision = -1;
    char type = 0;
};

class ArgReader {
public:
    ArgReader(const TextArg* begin, const TextArg* end) : next_(begin), end_(end) {}

    long long integer()
    {
        const TextArg* arg = take();
        if (!arg)
            return 0;
        if (const auto* i = std::get_if<long long>(arg))
            return *i;
        if (const auto* d = std::get_if<double>(arg))
            return static_cast<long long>(*d);
        return 0;
    }

    double real()
    {
        const TextArg* arg = take();
        if (!arg)
            return 0.0;
        if (const auto* d = std::get_if<double>(arg))
            return *d;
        if (const auto* i = std::get_if<long long>(arg))
            return static_cast<double>(*i);
        return 0.0;
    }

    QString text()
    {
        const TextArg* arg = take();
        if (!arg)
            return {};
        if (const auto* s = std::get_if<QString>(arg))
            return *s;
        if (const auto* i = std::get_if<long long>(arg))
            return QString::number(*i);
        return QString::number(std::get<double>(*arg));
    }

private:
    const TextArg* take() { return next_ == end_ ? nullptr : next_++; }

    const TextArg* next_;
    const TextArg* end_;
};

int readNumber(const QString& pattern, qsizetype& pos)
{
    int value = 0;
    while (pos < pattern.size() && pattern[pos].isDigit()) {
        value = std::min(value * 10 + pattern[pos].digitValue(), kMaxField);
        ++pos;
    }
    return value;
}

// Reads flags, width, precision, length and type after a '%'; type stays 0 when the pattern ends first.
Conversion readConversion(const QString& pattern, qsizetype& pos)
{
    Conversion conversion;
    while (pos < pattern.size() && QStringLiteral("-+ #0").contains(pattern[pos]))
        conversion.flags += static_cast<char>(pattern[pos++].unicode());
    if (pos < pattern.size() && pattern[pos].isDigit())
        conversion.width = readNumber(pattern, pos);
    if (pos < pattern.size() && pattern[pos] == QLatin1Char('.')) {
        ++pos;
        conversion.precision = readNumber(pattern, pos);
    }
    while (pos < pattern.size() && QStringLiteral("hlLqjzt").contains(pattern[pos]))
        ++pos;
    if (pos < pattern.size() && pattern[pos].unicode() < 128)
        conversion.type = static_cast<char>(pattern[pos++].unicode());
    return conversion;
}

std::string cFormat(const Conversion& conversion, const char* length)
{
    std::string format = "%" + conversion.flags;
    if (conversion.width >= 0)
        format += std::to_string(conversion.width);
    if (conversion.precision >= 0)
        format += "." + std::to_string(conversion.precision);
    return format + length + conversion.type;
}

template <typename Number>
QString formatNumber(const Conversion& conversion, const char* length, Number value)
{
    const std::string format = cFormat(conversion, length);
    const int size = std::snprintf(nullptr, 0, format.c_str(), value);
    if (size <= 0)
        return {};
    std::string out(static_cast<std::size_t>(size) + 1, '\0');
    std::snprintf(out.data(), out.size(), format.c_str(), value);
    out.resize(static_cast<std::size_t>(size));
    return QString::fromLatin1(out);
}

QString padded(QString text, const Conversion& conversion)
{
    const qsizetype width = conversion.width;
    if (text.size() >= width)
        return text;
    const QString fill(width - text.size(), QLatin1Char(' '));
    return conversion.flags.find('-') != std::string::npos ? text + fill : fill + text;
}

QString formatOne(const Conversion& conversion, ArgReader& args)
{
    switch (conversion.type) {
    case 'd':
    case 'i':
        return formatNumber(conversion, "ll", args.integer());
    case 'u':
    case 'x':
    case 'X':
    case 'o':
        return formatNumber(conversion, "ll", static_cast<unsigned long long>(args.integer()));
    case 'f':
    case 'F':
    case 'e':
    case 'E':
    case 'g':
    case 'G':
        return formatNumber(conversion, "", args.real());
    case 'c':
        return padded(QString(QChar(static_cast<char16_t>(args.integer()))), conversion);
    case 's':
    case 'S': {
        QString text = args.text();
        if (conversion.precision >= 0)
            text.truncate(conversion.precision);
        return padded(text, conversion);
    }
    default:
        return {};
    }
}

} // namespace

QString FormatText(const QString& pattern, std::initializer_list<TextArg> args)
{
    ArgReader reader(args.begin(), args.end());
    QString out;
    out.reserve(pattern.size() + 16);
    qsizetype pos = 0;
    while (pos < pattern.size()) {
        const QChar c = pattern[pos++];
        if (c != QLatin1Char('%')) {
            out += c;
            continue;
        }
        if (pos < pattern.size() && pattern[pos] == QLatin1Char('%')) {
            out += QLatin1Char('%');
            ++pos;
            continue;
        }
        const qsizetype start = pos - 1;
        const Conversion conversion = readConversion(pattern, pos);
        if (QStringLiteral("diuxXofFeEgGcsS").contains(QLatin1Char(conversion.type)))
            out += formatOne(conversion, reader);
        else
            out += pattern.mid(start, pos - start); // not a conversion: keep it as written
    }
    return out;
}

} // namespace zunbrix
