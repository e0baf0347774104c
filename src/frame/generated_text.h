#pragma once

#include <QString>

#include <cstdint>
#include <string>
#include <string_view>

#if defined(__GNUC__)
#define ZUNBRIX_PRINTF_FORMAT(formatIndex, firstArgument) \
    __attribute__((format(printf, formatIndex, firstArgument)))
#else
#define ZUNBRIX_PRINTF_FORMAT(formatIndex, firstArgument)
#endif

namespace zunbrix {

// The generated sources are 8-bit text gathered in memory and written in one go; lines end in CR LF.
inline constexpr std::string_view kLineEnd = "\r\n";

// Appends printf-formatted text to `text`.
void appendFormat(std::string& text, const char* format, ...) ZUNBRIX_PRINTF_FORMAT(2, 3);

// The value in base 2, left-padded with zeros to `width` digits; a longer value keeps its first `width` digits.
std::string binaryDigits(std::uint32_t value, int width);

// `bytes` between double quotes, as the operand of a .STR that assembles back to exactly `bytes`: a quote and a
// backslash get a backslash in front, and control bytes, which could end the line, are written as \xHH.
std::string quotedString(std::string_view bytes);

// The path of a file named `name` in `folder`.
QString filePathIn(const QString& folder, std::string_view name);

// Creates or overwrites the file with exactly `bytes`. A file that does not open reports
// "open file failed!" on the debug channel and gives false.
bool writeWholeFile(const QString& path, std::string_view bytes);

} // namespace zunbrix
