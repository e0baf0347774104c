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
    QByteArray ansi(text.size(), Qt::Uninitialized);
    for (qsizetype i = 0; i < text.size(); ++i) {
        const char16_t unit = text[i].unicode();
        ansi[i] = unit >= ' ' && unit < 0x7F ? static_cast<char>(unit) : '?';
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
