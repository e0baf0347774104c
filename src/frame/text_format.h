#pragma once

#include <QString>

#include <initializer_list>
#include <variant>

namespace zunbrix {

using TextArg = std::variant<long long, double, QString>;

// printf-style formatting of a numbered text as it stands in the table: flags, width, precision and
// length modifiers as in C (%d, %04d, %0.3f, %0.3lf, %s, %x, %c, %%). An argument of another kind than its
// conversion is converted (a number for %s gives its decimal text; text for %d gives 0); a missing one counts as 0
// or "". Widths and precisions above 4096 are capped so that a bad pattern cannot exhaust memory.
QString FormatText(const QString& pattern, std::initializer_list<TextArg> args);

} // namespace zunbrix
