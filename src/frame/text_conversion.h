#pragma once

#include <QByteArray>
#include <QString>

namespace zunbrix {

// 8-bit text of the tools and files the program exchanges with. "ANSI" here is 7-bit ASCII on every platform,
// whatever the system code page: other bytes and characters become '?', so the same bytes give the same text on
// Windows and Linux alike.
QString AnsiToWide(const QByteArray& text);
QByteArray WideToAnsi(const QString& text);

QString Utf8ToWide(const QByteArray& text);
QByteArray WideToUtf8(const QString& text);

} // namespace zunbrix
