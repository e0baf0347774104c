#pragma once

#include <string_view>

namespace zunbrix::nesasm {

// The parts of one source line. A label stands in the first column (a colon after it is optional), or
// anywhere when a colon or an equals sign follows it; the statement word comes next, then its operand up to
// a comment. The mnemonic is "=" for the NAME = value form.
struct ScannedLine {
    std::string_view label;
    std::string_view mnemonic;
    std::string_view operand;
    bool labelMalformed = false;
    bool statementMalformed = false;
};

ScannedLine scanLine(std::string_view line);

// Symbols: a letter, '_' or a leading point (local to the last global label), then letters, digits and '_'.
constexpr bool isSymbolStart(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '.';
}

constexpr bool isSymbolChar(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '_';
}

// The value of a hexadecimal (or lower base) digit, -1 for any other character.
constexpr int digitValue(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

constexpr bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isSymbolName(std::string_view text);

std::string_view trimBlanks(std::string_view text);

} // namespace zunbrix::nesasm
