#include "tools/nesasm/line_scanner.h"

namespace zunbrix::nesasm {

namespace {

constexpr bool isWordChar(char c)
{
    return isSymbolChar(c) || c == '.';
}

std::size_t skipBlanks(std::string_view line, std::size_t i)
{
    while (i < line.size() && isBlank(line[i]))
        ++i;
    return i;
}

// The operand runs to the first ';' that is not inside a string or a character constant.
std::string_view operandBeforeComment(std::string_view text)
{
    std::size_t i = 0;
    while (i < text.size()) {
        const char c = text[i];
        if (c == ';')
            break;
        if (c == '"') {
            ++i;
            while (i < text.size() && text[i] != '"')
                i += text[i] == '\\' ? 2 : 1;
            ++i;
        } else if (c == '\'' && i + 2 < text.size() && text[i + 2] == '\'') {
            i += 3;
        } else {
            ++i;
        }
    }
    return trimBlanks(text.substr(0, i < text.size() ? i : text.size()));
}

} // namespace

bool isSymbolName(std::string_view text)
{
    if (text.empty() || !isSymbolStart(text[0]))
        return false;
    for (std::size_t i = 1; i < text.size(); ++i) {
        if (!isSymbolChar(text[i]))
            return false;
    }
    return true;
}

std::string_view trimBlanks(std::string_view text)
{
    std::size_t first = 0;
    while (first < text.size() && isBlank(text[first]))
        ++first;
    std::size_t last = text.size();
    while (last > first && isBlank(text[last - 1]))
        --last;
    return text.substr(first, last - first);
}

ScannedLine scanLine(std::string_view line)
{
    ScannedLine scanned;
    std::size_t i = 0;
    if (!line.empty() && !isBlank(line[0]) && line[0] != ';') {
        if (isSymbolStart(line[0])) {
            i = 1;
            while (i < line.size() && isSymbolChar(line[i]))
                ++i;
        }
        scanned.label = line.substr(0, i);
        const bool colon = i < line.size() && line[i] == ':';
        if (colon)
            ++i;
        const bool cleanEnd = colon || i == line.size() || isBlank(line[i]) || line[i] == ';' || line[i] == '=';
        if (!isSymbolName(scanned.label) || !cleanEnd) {
            scanned.labelMalformed = true;
            while (i < line.size() && !isBlank(line[i]))
                ++i;
        }
    }

    for (;;) {
        i = skipBlanks(line, i);
        if (i == line.size() || line[i] == ';')
            return scanned;
        if (line[i] == '=') {
            scanned.mnemonic = line.substr(i, 1);
            scanned.operand = operandBeforeComment(line.substr(i + 1));
            return scanned;
        }
        const std::size_t wordStart = i;
        while (i < line.size() && isWordChar(line[i]))
            ++i;
        if (i == wordStart) {
            scanned.statementMalformed = true;
            return scanned;
        }
        const std::string_view word = line.substr(wordStart, i - wordStart);
        const std::size_t next = skipBlanks(line, i);
        const bool labelFollows = next < line.size() && (line[i] == ':' || line[next] == '=');
        if (scanned.label.empty() && !scanned.labelMalformed && labelFollows && isSymbolName(word)) {
            scanned.label = word;
            if (line[i] == ':')
                ++i;
            continue;
        }
        scanned.mnemonic = word;
        scanned.operand = operandBeforeComment(line.substr(i));
        return scanned;
    }
}

} // namespace zunbrix::nesasm
