#include "tools/nesasm/string_literal.h"
#include "tools/nesasm/line_scanner.h"

namespace zunbrix::nesasm {

StringLiteral readStringLiteral(std::string_view text, std::size_t openQuote)
{
    StringLiteral literal;
    std::size_t i = openQuote + 1;
    while (i < text.size() && text[i] != '"') {
        char c = text[i++];
        if (c == '\\') {
            if (i == text.size())
                break;
            c = text[i++];
            switch (c) {
            case 'r': c = '\r'; break;
            case 'n': c = '\n'; break;
            case 't': c = '\t'; break;
            case 'x':
            case '\'': {
                int value = 0;
                for (int digits = 0; digits < 2 && i < text.size() && digitValue(text[i]) >= 0; ++digits)
                    value = value * 16 + digitValue(text[i++]);
                c = static_cast<char>(value);
                break;
            }
            default: break; // the character stands for itself, '"' and '\\' included
            }
        }
        literal.bytes += c;
    }
    if (i >= text.size()) {
        literal.error = Diagnostic::UnterminatedString;
        literal.end = text.size();
    } else {
        literal.end = i + 1;
    }
    return literal;
}

QuotedName readQuotedName(std::string_view text)
{
    QuotedName quoted;
    if (text.empty() || text[0] != '"')
        return quoted;
    const std::size_t close = text.find('"', 1);
    if (close == std::string_view::npos)
        return quoted;
    quoted.name = text.substr(1, close - 1);
    quoted.found = !quoted.name.empty();
    quoted.end = close + 1;
    return quoted;
}

} // namespace zunbrix::nesasm
