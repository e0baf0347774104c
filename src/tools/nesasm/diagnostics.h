#pragma once

#include <cstdio>
#include <string>

namespace zunbrix::nesasm {

// Every message the assembler gives about a source line. The texts live in one table in diagnostics.cpp.
enum class Diagnostic {
    None,
    SyntaxError,
    UnknownInstruction,
    UnknownDirective,
    UnsupportedDirective,
    InvalidLabel,
    LabelRequired,
    LabelNotAllowed,
    LabelMultiplyDefined,
    UndefinedSymbol,
    UnsettledSymbols,
    ExpressionTooComplex,
    NumberTooLarge,
    DivideByZero,
    IncorrectAddressingMode,
    IncorrectImmediate,
    IncorrectZeroPage,
    IncorrectAddress,
    ValueOutOfRange,
    BranchOutOfRange,
    BankOutOfRange,
    BankOverflowWarning, // bytes past the end
    BankOverflowError,   // address, offset, last offset
    UnterminatedString,
    StringTooLong,
    IncorrectStringSyntax,
    TooManyIncludeLevels,
    RepeatedInclude,
    CannotOpenInclude, // file name
    CannotOpenBinary,  // file name
    BinaryRangeOutsideFile,
    UnexpectedElse,
    UnexpectedEndif,
    MissingEndif,
};

// The message's printf-style format.
const char* diagnosticFormat(Diagnostic id);

// The message text with its arguments filled in.
template <typename... Args>
std::string formatDiagnostic(Diagnostic id, Args... args)
{
    if constexpr (sizeof...(Args) == 0) {
        return diagnosticFormat(id);
    } else {
        char buffer[512];
        std::snprintf(buffer, sizeof buffer, diagnosticFormat(id), args...);
        return buffer;
    }
}

} // namespace zunbrix::nesasm
