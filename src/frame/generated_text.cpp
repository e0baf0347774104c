#include "frame/generated_text.h"

#include <QDebug>
#include <QFile>

#include <cstdarg>
#include <cstdio>

namespace zunbrix {

void appendFormat(std::string& text, const char* format, ...)
{
    char buffer[512];
    std::va_list arguments;
    va_start(arguments, format);
    const int length = std::vsnprintf(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    if (length < 0)
        return;
    if (static_cast<std::size_t>(length) < sizeof buffer) {
        text.append(buffer, static_cast<std::size_t>(length));
        return;
    }
    // Long names: format again straight into the string.
    const std::size_t start = text.size();
    text.resize(start + static_cast<std::size_t>(length) + 1);
    va_start(arguments, format);
    std::vsnprintf(text.data() + start, static_cast<std::size_t>(length) + 1, format, arguments);
    va_end(arguments);
    text.resize(start + static_cast<std::size_t>(length));
}

std::string quotedString(std::string_view bytes)
{
    std::string quoted = "\"";
    for (const char c : bytes) {
        if (c == '"' || c == '\\')
            quoted += '\\';
        if (static_cast<unsigned char>(c) < 0x20)
            appendFormat(quoted, "\\x%02X", static_cast<unsigned>(static_cast<unsigned char>(c)));
        else
            quoted += c;
    }
    return quoted + '"';
}

std::string binaryDigits(std::uint32_t value, int width)
{
    std::string digits;
    do {
        digits.insert(digits.begin(), static_cast<char>('0' + (value & 1u)));
        value >>= 1;
    } while (value != 0);
    if (static_cast<int>(digits.size()) > width)
        digits.resize(static_cast<std::size_t>(width));
    else
        digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    return digits;
}

QString filePathIn(const QString& folder, std::string_view name)
{
    return folder + QLatin1Char('/') + QString::fromLatin1(name.data(), static_cast<qsizetype>(name.size()));
}

bool writeWholeFile(const QString& path, std::string_view bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        qDebug("open file failed!");
        return false;
    }
    file.write(bytes.data(), static_cast<qint64>(bytes.size()));
    return true;
}

} // namespace zunbrix
