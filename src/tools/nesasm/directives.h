#pragma once

#include <string_view>

namespace zunbrix::nesasm {

class Assembler;

// How a directive treats a label written on its line.
enum class LabelUse {
    AtLocation,     // the label takes the location counter before the directive
    AfterStatement, // the label takes the location the directive sets (.ORG, .BANK)
    Defines,        // the directive gives the label its value (=, .EQU, .RS)
    Refused,        // conditionals
};

// How the name is written: with its leading point, with or without it, or bare ("=").
enum class Spelling { PointRequired, PointOptional, Bare };

using DirectiveHandler = void (*)(Assembler& assembler, std::string_view label, std::string_view operand);

struct Directive {
    std::string_view name; // upper case, without the point
    Spelling spelling;
    LabelUse labelUse;
    bool conditional;         // handled even inside a branch that does not hold
    DirectiveHandler handler; // nullptr: a directive of this family that this assembler does not support
};

// The directive a statement word names, in either case; nullptr when it names none.
const Directive* findDirective(std::string_view word);

} // namespace zunbrix::nesasm
