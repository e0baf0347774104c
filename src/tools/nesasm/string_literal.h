#pragma once

#include "tools/nesasm/diagnostics.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace zunbrix::nesasm {

// A quoted string of a .STR or .DB operand, with its escapes resolved: \r \n \t \" give 13, 10, 9 and a quote,
// \x and \' take up to two hexadecimal digits for one byte, and any other character after a backslash stands
// for itself. Bytes above 127 pass unchanged.
struct StringLiteral {
    std::string bytes;
    Diagnostic error = Diagnostic::None;
    std::size_t end = 0; // just past the closing quote
};

// text[openQuote] must be the opening '"'.
StringLiteral readStringLiteral(std::string_view text, std::size_t openQuote);

// The text between the quotes of a file name operand, taken as it stands without escapes, so that
// Windows paths keep their backslashes. `found` is false when the operand does not start with a quoted name.
struct QuotedName {
    std::string_view name;
    bool found = false;
    std::size_t end = 0;
};

QuotedName readQuotedName(std::string_view text);

} // namespace zunbrix::nesasm
