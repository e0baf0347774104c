#pragma once

#include <string_view>

namespace zunbrix::nesasm {

class Assembler;
struct Instruction;

// Reads the operand of an instruction, picks the addressing mode and emits the bytes.
//
// The mode follows from the operand's form alone, never from its value: without '<' an operand that has an
// absolute form is encoded absolute even below $100, and only '<' selects zero page. So an instruction's size
// is the same in every pass and labels never drift between passes.
void assembleInstruction(Assembler& assembler, const Instruction& instruction, std::string_view operand);

} // namespace zunbrix::nesasm
