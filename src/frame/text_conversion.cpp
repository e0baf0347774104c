#include "frame/text_conversion.h"

namespace zunbrix {

QString AnsiToWide(const QByteArray& text)
{
    QString wide(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        wide[i] = QChar(byte < 0x80 ? byte : '?');
    }
    return wide;
}

QByteArray WideToAnsi(const QString& text)
{
    QByteArray ansi;
    ansi.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        // A surrogate pair is one character and becomes one '?'.
        if (QChar::isHighSurrogate(unit) && i + 1 < text.size() && text[i + 1].isLowSurrogate())
            ++i;
        ansi += unit < 0x80 ? static_cast<char>(unit) : '?';
    }
    return ansi;
}

QString Utf8ToWide(const QByteArray& text)
{
    return QString::fromUtf8(text);
}

QByteArray WideToUtf8(const QString& text)
{
    return text.toUtf8();
}

} // namespace zunbrix
