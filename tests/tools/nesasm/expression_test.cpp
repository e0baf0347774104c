#include "tools/nesasm/expression.h"
#include "tools/nesasm/symbol_table.h"

#include <gtest/gtest.h>

using namespace zunbrix::nesasm;

namespace {

ExpressionResult evaluate(const std::string& text, const SymbolTable& symbols = {}, std::string_view scope = {})
{
    return evaluateExpression(text, 0, {symbols, scope, 0x8123});
}

} // namespace

TEST(NesasmExpression, PrecedenceAndSignedArithmetic)
{
    const std::pair<const char*, std::int64_t> cases[] = {
        {"2 + 3 * 4", 14},          {"(2 + 3) * 4", 20},         {"20 - 5 - 3", 12},
        {"100 / 10 / 5", 2},        {"-7 / 2", -3},              {"-7 % 2", -1},
        {"1 << 4 | 1", 17},         {"$FF & 15 ^ 3", 12},        {"1 | 2 & 0", 1},
        {"1 + 2 = 3", 1},           {"2 < 1 + 2", 1},            {"3 <> 3", 0},
        {"1 && 0 || 1", 1},         {"!0 + ~0", 0},              {"- - 5", 5},
        {"$7FFFFFFF + 1", 0x80000000LL}, {"0 - $FFFFFFFF", -0xFFFFFFFFLL},
        {"1 << 64", 0},             {"-8 >> 1", -4},             {"-1 >> 70", -1},
        {"* - $8000", 0x123},       {"2 * * ", 0x10246},
        {"LOW($1234) - 2", 0x32},   {"high ( $1234 ) + 1", 0x13}, {"LOW(-1) | HIGH(-1) << 8", 0xFFFF},
        {"%1010 % %11", 1},         {"10 %11", 10},               {"0099", 99},   {"'''", '\''},
    };
    for (const auto& [text, value] : cases) {
        const ExpressionResult result = evaluate(text);
        EXPECT_EQ(result.error, Diagnostic::None) << text;
        EXPECT_EQ(result.value, value) << text;
        EXPECT_EQ(result.end, std::string_view(text).size()) << text;
    }
}

TEST(NesasmExpression, StopsWhereTheOperandGoesOn)
{
    EXPECT_EQ(evaluate("Table + 2 ,X").end, 10u);
    EXPECT_EQ(evaluate("$44],Y").end, 3u);
    EXPECT_EQ(evaluate("1, \"text\"").end, 1u);
}

TEST(NesasmExpression, SymbolsLocalsAndUndefinedNames)
{
    SymbolTable symbols;
    symbols.beginPass();
    symbols.define("Global", {}, 0x8000);
    symbols.define(".loop", "Global", 0x8004);
    symbols.define(".loop", "Other", 0x9000);

    EXPECT_EQ(evaluate("Global + 1", symbols).value, 0x8001);
    EXPECT_EQ(evaluate(".loop", symbols, "Other").value, 0x9000);
    EXPECT_EQ(evaluate(".loop", symbols, "Global").value, 0x8004);
    const ExpressionResult missing = evaluate("global + 1", symbols); // names are case-sensitive
    EXPECT_TRUE(missing.undefined);
    EXPECT_EQ(missing.error, Diagnostic::None);
    EXPECT_TRUE(evaluate(".loop", symbols, "Third").undefined);
    // An unknown divisor is no fault while it is unknown.
    EXPECT_EQ(evaluate("10 / Later", symbols).error, Diagnostic::None);
}

TEST(NesasmExpression, MalformedOrHostileInput)
{
    EXPECT_EQ(evaluate("1 / 0").error, Diagnostic::DivideByZero);
    EXPECT_EQ(evaluate("$").error, Diagnostic::SyntaxError);
    EXPECT_EQ(evaluate("12ab").error, Diagnostic::SyntaxError);
    EXPECT_EQ(evaluate("(1 + 2").error, Diagnostic::SyntaxError);
    EXPECT_EQ(evaluate("%2").error, Diagnostic::SyntaxError);
    EXPECT_EQ(evaluate("$100000000").error, Diagnostic::NumberTooLarge);
    EXPECT_EQ(evaluate(std::string(100000, '(')).error, Diagnostic::ExpressionTooComplex);
    EXPECT_EQ(evaluate(std::string(100000, '-') + "1").error, Diagnostic::ExpressionTooComplex);
    std::string longChain = "1";
    for (int i = 0; i < 100000; ++i)
        longChain += "+1";
    EXPECT_EQ(evaluate(longChain).value, 100001); // long but flat: no nesting limit
}
