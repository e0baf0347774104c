#pragma once

#include "tools/nesasm/diagnostics.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zunbrix::nesasm {

class SymbolTable;

struct ExpressionContext {
    const SymbolTable& symbols;
    std::string_view scope;       // last global label, for names with a leading point
    std::int64_t locationCounter; // the value of '*' as a term
};

// The value of an expression. A symbol not (yet) defined counts as 0 and sets `undefined`; checks of the
// value's range are the caller's business and wait until nothing is undefined.
struct ExpressionResult {
    std::int64_t value = 0;
    bool undefined = false;
    Diagnostic error = Diagnostic::None;
    std::size_t end = 0; // where parsing stopped: the end, or a character that cannot continue the expression
};

// Evaluates from `start` as far as the text forms an expression. Numbers: $hex, %binary, decimal (leading zeros
// stay decimal), 'c'. Operators in C precedence, with '%' as modulo where an operator is expected and as the
// binary prefix where a term is expected; '=' and '<>' compare too. LOW() and HIGH() are terms. Arithmetic is
// signed 64-bit and wraps rather than overflowing.
ExpressionResult evaluateExpression(std::string_view text, std::size_t start, const ExpressionContext& context);

} // namespace zunbrix::nesasm
