#include "tools/nesasm/directives.h"

#include "tools/nesasm/assembler.h"
#include "tools/nesasm/line_scanner.h"
#include "tools/nesasm/string_literal.h"

namespace zunbrix::nesasm {

namespace {

std::size_t skipBlanks(std::string_view text, std::size_t pos)
{
    while (pos < text.size() && isBlank(text[pos]))
        ++pos;
    return pos;
}

void defineEquate(Assembler& assembler, std::string_view label, std::string_view operand)
{
    if (label.empty()) {
        assembler.error(Diagnostic::LabelRequired);
        return;
    }
    const std::optional<OperandValue> value = assembler.evaluateWhole(operand);
    if (value && !value->undefined)
        assembler.defineSymbol(label, value->value);
}

// A directive operand that is one value in a range; nullopt after a fault, or while it is still unknown.
std::optional<std::int64_t> rangedValue(Assembler& assembler, std::string_view operand, std::int64_t low, std::int64_t high)
{
    const std::optional<OperandValue> value = assembler.evaluateWhole(operand);
    if (!value || value->undefined)
        return std::nullopt;
    if (value->value < low || value->value > high) {
        assembler.error(Diagnostic::ValueOutOfRange);
        return std::nullopt;
    }
    return value->value;
}

void setPrgBanks(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const auto value = rangedValue(assembler, operand, 0, 255))
        assembler.header().prgBanks16k = static_cast<int>(*value);
}

void setChrBanks(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const auto value = rangedValue(assembler, operand, 0, 255))
        assembler.header().chrBanks8k = static_cast<int>(*value);
}

void setMapper(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const auto value = rangedValue(assembler, operand, 0, 255))
        assembler.header().mapper = static_cast<int>(*value);
}

void setMirroring(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const auto value = rangedValue(assembler, operand, 0, 15))
        assembler.header().mirroring = static_cast<int>(*value);
}

void selectBank(Assembler& assembler, std::string_view, std::string_view operand)
{
    // A bank number that is not known yet still starts a bank, so the pass goes on; the next pass has it.
    if (const std::optional<OperandValue> value = assembler.evaluateWhole(operand))
        assembler.selectBank(value->value);
}

void setOrigin(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const std::optional<OperandValue> value = assembler.evaluateWhole(operand))
        assembler.setOrigin(value->value);
}

// .DB and .DW lists; .DB also takes strings.
void emitData(Assembler& assembler, std::string_view operand, int width)
{
    const std::int64_t low = width == 1 ? -0x80 : -0x8000;
    const std::int64_t high = width == 1 ? 0xFF : 0xFFFF;
    std::size_t pos = 0;
    for (;;) {
        pos = skipBlanks(operand, pos);
        if (width == 1 && pos < operand.size() && operand[pos] == '"') {
            const StringLiteral literal = readStringLiteral(operand, pos);
            if (literal.error != Diagnostic::None) {
                assembler.error(literal.error);
                return;
            }
            for (const char c : literal.bytes)
                assembler.emit(static_cast<std::uint8_t>(c));
            pos = literal.end;
        } else {
            const ExpressionResult item = assembler.evaluate(operand, pos);
            if (item.error != Diagnostic::None) {
                assembler.error(item.error);
                return;
            }
            if (!item.undefined && (item.value < low || item.value > high))
                assembler.error(Diagnostic::ValueOutOfRange);
            assembler.emit(static_cast<std::uint8_t>(item.value & 0xFF));
            if (width == 2)
                assembler.emit(static_cast<std::uint8_t>((item.value >> 8) & 0xFF));
            pos = item.end;
        }
        pos = skipBlanks(operand, pos);
        if (pos == operand.size())
            return;
        if (operand[pos] != ',') {
            assembler.error(Diagnostic::SyntaxError);
            return;
        }
        ++pos;
    }
}

void emitBytes(Assembler& assembler, std::string_view, std::string_view operand)
{
    emitData(assembler, operand, 1);
}

void emitWords(Assembler& assembler, std::string_view, std::string_view operand)
{
    emitData(assembler, operand, 2);
}

enum class LetterCase { AsWritten, Upper, Lower };

// A length byte, then the text: the form of every name and caption the menu shows.
void emitLengthPrefixedString(Assembler& assembler, std::string_view operand, LetterCase letterCase)
{
    if (operand.empty() || operand[0] != '"') {
        assembler.error(Diagnostic::IncorrectStringSyntax);
        return;
    }
    StringLiteral literal = readStringLiteral(operand, 0);
    if (literal.error != Diagnostic::None) {
        assembler.error(literal.error);
        return;
    }
    if (skipBlanks(operand, literal.end) != operand.size()) {
        assembler.error(Diagnostic::IncorrectStringSyntax);
        return;
    }
    if (literal.bytes.size() > 255) {
        assembler.error(Diagnostic::StringTooLong);
        return;
    }
    assembler.emit(static_cast<std::uint8_t>(literal.bytes.size()));
    for (char c : literal.bytes) {
        if (letterCase == LetterCase::Upper && c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 32);
        else if (letterCase == LetterCase::Lower && c >= 'A' && c <= 'Z')
            c = static_cast<char>(c + 32);
        assembler.emit(static_cast<std::uint8_t>(c));
    }
}

void emitString(Assembler& assembler, std::string_view, std::string_view operand)
{
    emitLengthPrefixedString(assembler, operand, LetterCase::AsWritten);
}

void emitUpperString(Assembler& assembler, std::string_view, std::string_view operand)
{
    emitLengthPrefixedString(assembler, operand, LetterCase::Upper);
}

void emitLowerString(Assembler& assembler, std::string_view, std::string_view operand)
{
    emitLengthPrefixedString(assembler, operand, LetterCase::Lower);
}

void setAllocationCounter(Assembler& assembler, std::string_view, std::string_view operand)
{
    if (const std::optional<OperandValue> value = assembler.evaluateWhole(operand))
        assembler.allocationCounter() = value->value;
}

// NAME .RS n: NAME gets the allocation counter, which then moves on by n. Nothing is emitted.
void allocate(Assembler& assembler, std::string_view label, std::string_view operand)
{
    const std::optional<OperandValue> size = assembler.evaluateWhole(operand);
    if (!size)
        return;
    if (size->value < 0 && !size->undefined) {
        assembler.error(Diagnostic::ValueOutOfRange);
        return;
    }
    if (!label.empty())
        assembler.defineSymbol(label, assembler.allocationCounter());
    assembler.allocationCounter() += size->value;
}

void includeSource(Assembler& assembler, std::string_view, std::string_view operand)
{
    const QuotedName file = readQuotedName(operand);
    if (!file.found || file.end != operand.size()) {
        assembler.error(Diagnostic::IncorrectStringSyntax);
        return;
    }
    assembler.includeSource(file.name);
}

// INCBIN "file"[, offset[, length]]
void includeBinary(Assembler& assembler, std::string_view, std::string_view operand)
{
    const QuotedName file = readQuotedName(operand);
    if (!file.found) {
        assembler.error(Diagnostic::IncorrectStringSyntax);
        return;
    }
    std::optional<OperandValue> range[2];
    std::size_t pos = skipBlanks(operand, file.end);
    for (std::optional<OperandValue>& value : range) {
        if (pos == operand.size())
            break;
        if (operand[pos] != ',') {
            assembler.error(Diagnostic::SyntaxError);
            return;
        }
        const ExpressionResult item = assembler.evaluate(operand, pos + 1);
        if (item.error != Diagnostic::None) {
            assembler.error(item.error);
            return;
        }
        value = OperandValue{item.value, item.undefined};
        pos = skipBlanks(operand, item.end);
    }
    if (pos != operand.size()) {
        assembler.error(Diagnostic::SyntaxError);
        return;
    }
    assembler.includeBinary(file.name, range[0], range[1]);
}

void beginIf(Assembler& assembler, std::string_view, std::string_view operand)
{
    ConditionalStack& conditionals = assembler.conditionals();
    bool holds = false;
    // Inside a branch that does not hold, the condition is not looked at: it may name what is not defined.
    if (conditionals.active()) {
        const std::optional<OperandValue> value = assembler.evaluateWhole(operand);
        holds = value && !value->undefined && value->value != 0;
    }
    conditionals.beginIf(holds, assembler.lineNumber());
}

void beginElse(Assembler& assembler, std::string_view, std::string_view)
{
    if (!assembler.conditionals().beginElse())
        assembler.error(Diagnostic::UnexpectedElse);
}

void endIf(Assembler& assembler, std::string_view, std::string_view)
{
    if (!assembler.conditionals().end())
        assembler.error(Diagnostic::UnexpectedEndif);
}

constexpr Directive kDirectives[] = {
    {"=", Spelling::Bare, LabelUse::Defines, false, defineEquate},
    {"EQU", Spelling::PointRequired, LabelUse::Defines, false, defineEquate},
    {"INCLUDE", Spelling::PointOptional, LabelUse::AtLocation, false, includeSource},
    {"INCBIN", Spelling::PointOptional, LabelUse::AtLocation, false, includeBinary},
    {"INESPRG", Spelling::PointRequired, LabelUse::AtLocation, false, setPrgBanks},
    {"INESCHR", Spelling::PointRequired, LabelUse::AtLocation, false, setChrBanks},
    {"INESMAP", Spelling::PointRequired, LabelUse::AtLocation, false, setMapper},
    {"INESMIR", Spelling::PointRequired, LabelUse::AtLocation, false, setMirroring},
    {"BANK", Spelling::PointRequired, LabelUse::AfterStatement, false, selectBank},
    {"ORG", Spelling::PointRequired, LabelUse::AfterStatement, false, setOrigin},
    {"DB", Spelling::PointRequired, LabelUse::AtLocation, false, emitBytes},
    {"BYTE", Spelling::PointRequired, LabelUse::AtLocation, false, emitBytes},
    {"DW", Spelling::PointRequired, LabelUse::AtLocation, false, emitWords},
    {"WORD", Spelling::PointRequired, LabelUse::AtLocation, false, emitWords},
    {"STR", Spelling::PointRequired, LabelUse::AtLocation, false, emitString},
    {"USTR", Spelling::PointRequired, LabelUse::AtLocation, false, emitUpperString},
    {"LSTR", Spelling::PointRequired, LabelUse::AtLocation, false, emitLowerString},
    {"RSSET", Spelling::PointRequired, LabelUse::AtLocation, false, setAllocationCounter},
    {"RS", Spelling::PointRequired, LabelUse::Defines, false, allocate},
    {"IF", Spelling::PointRequired, LabelUse::Refused, true, beginIf},
    {"ELSE", Spelling::PointRequired, LabelUse::Refused, true, beginElse},
    {"ENDIF", Spelling::PointRequired, LabelUse::Refused, true, endIf},
    // Known to this family of assemblers, for its other console and for graphics; refused with a clear word.
    {"DEFCHR", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INCCHR", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESSUBMAP", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESPRGRAM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESPRGNVRAM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESCHRRAM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESCHRNVRAM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESTIM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"INESBAT", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"BANK8", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"BANK16", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"BANK32", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"HEX", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"RDW", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"DS", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"MACRO", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"ENDM", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"PROC", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"ENDP", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"FUNC", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"ZP", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"BSS", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"CODE", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"DATA", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"OPT", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"LIST", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"NOLIST", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"MLIST", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"NOMLIST", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
    {"FAIL", Spelling::PointRequired, LabelUse::AtLocation, false, nullptr},
};

} // namespace

const Directive* findDirective(std::string_view word)
{
    const bool withPoint = !word.empty() && word[0] == '.';
    if (withPoint)
        word.remove_prefix(1);
    char upper[16];
    if (word.empty() || word.size() > sizeof upper)
        return nullptr;
    for (std::size_t i = 0; i < word.size(); ++i)
        upper[i] = word[i] >= 'a' && word[i] <= 'z' ? static_cast<char>(word[i] - 32) : word[i];
    const std::string_view name(upper, word.size());
    for (const Directive& directive : kDirectives) {
        if (directive.name != name)
            continue;
        const bool spelledRight = withPoint ? directive.spelling != Spelling::Bare
                                            : directive.spelling != Spelling::PointRequired;
        return spelledRight ? &directive : nullptr;
    }
    return nullptr;
}

} // namespace zunbrix::nesasm
