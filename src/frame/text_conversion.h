#pragma once

#include <QByteArray>
#include <QString>

namespace zunbrix {

// 8-bit text of the tools and files the program exchanges with, and of the menu's screen. "ANSI" here is 7-bit
// ASCII on every platform, whatever the system code page, so the same text gives the same bytes on Windows and
// Linux alike.

// Keeps every 7-bit byte, line ends and tabs included, as a tool's output needs them; other bytes become '?'.
QString AnsiToWide(const QByteArray& text);

// Keeps printable ASCII; every other UTF-16 unit, a control character or half a surrogate pair alike, becomes one
// '?'. The result has one byte per unit, so its length is the one callers count on the text (where a name or
// caption is cut, what the designer draws), and nothing in it can break a line of the text it is written into.
QByteArray WideToAnsi(const QString& text);

QString Utf8ToWide(const QByteArray& text);
QByteArray WideToUtf8(const QString& text);

} // namespace zunbrix
