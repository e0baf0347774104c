#include "tools/nesasm/expression.h"

#include "tools/nesasm/line_scanner.h"
#include "tools/nesasm/symbol_table.h"

#include <limits>

namespace zunbrix::nesasm {

namespace {

enum class BinaryOperator {
    LogicalOr,
    LogicalAnd,
    BitOr,
    BitXor,
    BitAnd,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    ShiftLeft,
    ShiftRight,
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo,
};

struct OperatorSpelling {
    std::string_view text;
    BinaryOperator op;
    int precedence;
};

// Longer spellings come first so that "<<" is not read as "<".
constexpr OperatorSpelling kOperators[] = {
    {"||", BinaryOperator::LogicalOr, 1},   {"&&", BinaryOperator::LogicalAnd, 2},
    {"<<", BinaryOperator::ShiftLeft, 8},   {">>", BinaryOperator::ShiftRight, 8},
    {"<=", BinaryOperator::LessEqual, 7},   {">=", BinaryOperator::GreaterEqual, 7},
    {"<>", BinaryOperator::NotEqual, 6},    {"!=", BinaryOperator::NotEqual, 6},
    {"==", BinaryOperator::Equal, 6},       {"|", BinaryOperator::BitOr, 3},
    {"^", BinaryOperator::BitXor, 4},       {"&", BinaryOperator::BitAnd, 5},
    {"=", BinaryOperator::Equal, 6},        {"<", BinaryOperator::Less, 7},
    {">", BinaryOperator::Greater, 7},      {"+", BinaryOperator::Add, 9},
    {"-", BinaryOperator::Subtract, 9},     {"*", BinaryOperator::Multiply, 10},
    {"/", BinaryOperator::Divide, 10},      {"%", BinaryOperator::Modulo, 10},
};

// Parentheses and unary operators nest this deep at most; deeper input is refused rather than exhausting the stack.
constexpr int kMaxNesting = 64;
constexpr std::uint64_t kMaxLiteral = 0xFFFFFFFFu;

std::int64_t wrapped(std::uint64_t value)
{
    return static_cast<std::int64_t>(value);
}

bool sameWord(std::string_view word, std::string_view upperName)
{
    if (word.size() != upperName.size())
        return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        const char c = word[i] >= 'a' && word[i] <= 'z' ? static_cast<char>(word[i] - 32) : word[i];
        if (c != upperName[i])
            return false;
    }
    return true;
}

class Parser {
public:
    Parser(std::string_view text, std::size_t start, const ExpressionContext& context)
        : text_(text), pos_(start), context_(context)
    {
    }

    ExpressionResult run()
    {
        ExpressionResult result;
        result.value = parseBinary(0);
        result.undefined = undefined_;
        result.error = error_;
        result.end = pos_;
        return result;
    }

private:
    void fail(Diagnostic error)
    {
        if (error_ == Diagnostic::None)
            error_ = error;
    }

    bool failed() const { return error_ != Diagnostic::None; }

    void skipBlanks()
    {
        while (pos_ < text_.size() && isBlank(text_[pos_]))
            ++pos_;
    }

    char peek() const { return pos_ < text_.size() ? text_[pos_] : '\0'; }

    const OperatorSpelling* peekOperator()
    {
        skipBlanks();
        const std::string_view rest = text_.substr(pos_);
        for (const OperatorSpelling& spelling : kOperators) {
            if (rest.substr(0, spelling.text.size()) == spelling.text)
                return &spelling;
        }
        return nullptr;
    }

    std::int64_t parseBinary(int minPrecedence)
    {
        std::int64_t left = parseUnary();
        while (!failed()) {
            const OperatorSpelling* spelling = peekOperator();
            if (spelling == nullptr || spelling->precedence < minPrecedence)
                break;
            pos_ += spelling->text.size();
            const std::int64_t right = parseBinary(spelling->precedence + 1);
            left = apply(spelling->op, left, right);
        }
        return left;
    }

    std::int64_t apply(BinaryOperator op, std::int64_t a, std::int64_t b)
    {
        const auto ua = static_cast<std::uint64_t>(a);
        const auto ub = static_cast<std::uint64_t>(b);
        switch (op) {
        case BinaryOperator::LogicalOr: return (a != 0 || b != 0) ? 1 : 0;
        case BinaryOperator::LogicalAnd: return (a != 0 && b != 0) ? 1 : 0;
        case BinaryOperator::BitOr: return a | b;
        case BinaryOperator::BitXor: return a ^ b;
        case BinaryOperator::BitAnd: return a & b;
        case BinaryOperator::Equal: return a == b ? 1 : 0;
        case BinaryOperator::NotEqual: return a != b ? 1 : 0;
        case BinaryOperator::Less: return a < b ? 1 : 0;
        case BinaryOperator::LessEqual: return a <= b ? 1 : 0;
        case BinaryOperator::Greater: return a > b ? 1 : 0;
        case BinaryOperator::GreaterEqual: return a >= b ? 1 : 0;
        case BinaryOperator::ShiftLeft: return (b < 0 || b >= 64) ? 0 : wrapped(ua << b);
        case BinaryOperator::ShiftRight: return (b < 0 || b >= 64) ? (a < 0 ? -1 : 0) : a >> b;
        case BinaryOperator::Add: return wrapped(ua + ub);
        case BinaryOperator::Subtract: return wrapped(ua - ub);
        case BinaryOperator::Multiply: return wrapped(ua * ub);
        case BinaryOperator::Divide:
        case BinaryOperator::Modulo:
            if (b == 0) {
                // A divisor that is only unknown yet is not a fault.
                if (!undefined_)
                    fail(Diagnostic::DivideByZero);
                return 0;
            }
            if (a == std::numeric_limits<std::int64_t>::min() && b == -1)
                return op == BinaryOperator::Divide ? a : 0;
            return op == BinaryOperator::Divide ? a / b : a % b;
        }
        return 0;
    }

    std::int64_t parseUnary()
    {
        skipBlanks();
        if (++nesting_ > kMaxNesting) {
            fail(Diagnostic::ExpressionTooComplex);
            return 0;
        }
        std::int64_t value = 0;
        const char c = peek();
        if (c == '-' || c == '+' || c == '~' || c == '!') {
            ++pos_;
            const std::int64_t operand = parseUnary();
            value = c == '-' ? wrapped(0 - static_cast<std::uint64_t>(operand))
                  : c == '~' ? ~operand
                  : c == '!' ? (operand == 0 ? 1 : 0)
                             : operand;
        } else if (c == '(') {
            ++pos_;
            value = parseParenthesized();
        } else {
            value = parsePrimary();
        }
        --nesting_;
        return value;
    }

    std::int64_t parseParenthesized()
    {
        const std::int64_t value = parseBinary(0);
        skipBlanks();
        if (peek() != ')')
            fail(Diagnostic::SyntaxError);
        else
            ++pos_;
        return value;
    }

    std::int64_t parseDigits(int base)
    {
        std::uint64_t value = 0;
        const std::size_t first = pos_;
        for (; pos_ < text_.size(); ++pos_) {
            const int digit = digitValue(text_[pos_]);
            if (digit < 0 || digit >= base)
                break;
            value = value * static_cast<std::uint64_t>(base) + static_cast<std::uint64_t>(digit);
            if (value > kMaxLiteral) {
                fail(Diagnostic::NumberTooLarge);
                return 0;
            }
        }
        if (pos_ == first || (pos_ < text_.size() && isSymbolChar(text_[pos_])))
            fail(Diagnostic::SyntaxError);
        return static_cast<std::int64_t>(value);
    }

    std::int64_t parsePrimary()
    {
        const char c = peek();
        if (c == '$') {
            ++pos_;
            return parseDigits(16);
        }
        if (c == '%') {
            ++pos_;
            return parseDigits(2);
        }
        if (c >= '0' && c <= '9')
            return parseDigits(10);
        if (c == '\'' && pos_ + 2 < text_.size() && text_[pos_ + 2] == '\'') {
            const auto value = static_cast<unsigned char>(text_[pos_ + 1]);
            pos_ += 3;
            return value;
        }
        if (c == '*') {
            ++pos_;
            return context_.locationCounter;
        }
        if (isSymbolStart(c))
            return parseName();
        fail(Diagnostic::SyntaxError);
        return 0;
    }

    std::int64_t parseName()
    {
        const std::size_t first = pos_++;
        while (pos_ < text_.size() && isSymbolChar(text_[pos_]))
            ++pos_;
        const std::string_view name = text_.substr(first, pos_ - first);
        const std::size_t afterName = pos_;
        skipBlanks();
        if (peek() == '(' && (sameWord(name, "LOW") || sameWord(name, "HIGH"))) {
            ++pos_;
            const std::int64_t argument = parseParenthesized();
            return sameWord(name, "LOW") ? (argument & 0xFF) : ((argument >> 8) & 0xFF);
        }
        pos_ = afterName;
        if (name == ".") {
            fail(Diagnostic::SyntaxError);
            return 0;
        }
        const std::optional<std::int64_t> value = context_.symbols.find(name, context_.scope);
        if (!value) {
            undefined_ = true;
            return 0;
        }
        return *value;
    }

    std::string_view text_;
    std::size_t pos_;
    const ExpressionContext& context_;
    int nesting_ = 0;
    bool undefined_ = false;
    Diagnostic error_ = Diagnostic::None;
};

} // namespace

ExpressionResult evaluateExpression(std::string_view text, std::size_t start, const ExpressionContext& context)
{
    return Parser(text, start, context).run();
}

} // namespace zunbrix::nesasm
