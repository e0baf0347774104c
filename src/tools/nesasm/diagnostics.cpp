#include "tools/nesasm/diagnostics.h"

#include <iterator>

namespace zunbrix::nesasm {

namespace {

struct DiagnosticText {
    Diagnostic id;
    const char* text;
};

// Users and the build read these texts; several are fixed by the family of assemblers this one replaces.
constexpr DiagnosticText kTexts[] = {
    {Diagnostic::None, ""},
    {Diagnostic::SyntaxError, "Syntax error!"},
    {Diagnostic::UnknownInstruction, "Unknown instruction!"},
    {Diagnostic::UnknownDirective, "Unknown directive!"},
    {Diagnostic::UnsupportedDirective, "Directive not supported by this assembler!"},
    {Diagnostic::InvalidLabel, "Illegal character in label!"},
    {Diagnostic::LabelRequired, "This directive needs a label!"},
    {Diagnostic::LabelNotAllowed, "No label allowed on this directive!"},
    {Diagnostic::LabelMultiplyDefined, "Label multiply defined!"},
    {Diagnostic::UndefinedSymbol, "Undefined symbol in operand field!"},
    {Diagnostic::UnsettledSymbols, "Symbol values keep changing from pass to pass!"},
    {Diagnostic::ExpressionTooComplex, "Expression too complex!"},
    {Diagnostic::NumberTooLarge, "Number too large!"},
    {Diagnostic::DivideByZero, "Divide by zero!"},
    {Diagnostic::IncorrectAddressingMode, "Incorrect addressing mode!"},
    {Diagnostic::IncorrectImmediate, "Incorrect immediate value!"},
    {Diagnostic::IncorrectZeroPage, "Incorrect zero page address!"},
    {Diagnostic::IncorrectAddress, "Incorrect address!"},
    {Diagnostic::ValueOutOfRange, "Value out of range!"},
    {Diagnostic::BranchOutOfRange, "Branch address out of range!"},
    {Diagnostic::BankOutOfRange, "Bank index out of range!"},
    {Diagnostic::BankOverflowWarning, "Warning, bank overflow by %i bytes!"},
    {Diagnostic::BankOverflowError, "Bank overflow, addr: %04X, offset:%04X  > $%04X!"},
    {Diagnostic::UnterminatedString, "Unterminated ASCII string!"},
    {Diagnostic::StringTooLong, "The string length overflows, up to 255 characters!"},
    {Diagnostic::IncorrectStringSyntax, "Incorrect string syntax!"},
    {Diagnostic::TooManyIncludeLevels, "Too many include levels, max. 7!"},
    {Diagnostic::RepeatedInclude, "Repeated include file!"},
    {Diagnostic::CannotOpenInclude, "Can not open include file '%s'!"},
    {Diagnostic::CannotOpenBinary, "Can not open binary file '%s'!"},
    {Diagnostic::BinaryRangeOutsideFile, "Offset or length lies outside the binary file!"},
    {Diagnostic::UnexpectedElse, "Unexpected .ELSE!"},
    {Diagnostic::UnexpectedEndif, "Unexpected .ENDIF!"},
    {Diagnostic::MissingEndif, "Missing .ENDIF!"},
};

constexpr bool textsFollowEnumOrder()
{
    for (std::size_t i = 0; i < std::size(kTexts); ++i) {
        if (static_cast<std::size_t>(kTexts[i].id) != i)
            return false;
    }
    return std::size(kTexts) == static_cast<std::size_t>(Diagnostic::MissingEndif) + 1;
}
static_assert(textsFollowEnumOrder(), "one text per diagnostic, in enum order");

} // namespace

const char* diagnosticFormat(Diagnostic id)
{
    return kTexts[static_cast<std::size_t>(id)].text;
}

} // namespace zunbrix::nesasm
