#include "tools/nesasm/instruction_encoder.h"

#include "tools/nesasm/assembler.h"
#include "tools/nesasm/instruction_table.h"
#include "tools/nesasm/line_scanner.h"

namespace zunbrix::nesasm {

namespace {

enum class Index { None, X, Y };

std::size_t skipBlanks(std::string_view text, std::size_t pos)
{
    while (pos < text.size() && isBlank(text[pos]))
        ++pos;
    return pos;
}

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// Reads ",X" or ",Y" at pos, blanks allowed around; nullopt when something else stands there.
std::optional<Index> readIndex(std::string_view text, std::size_t& pos)
{
    pos = skipBlanks(text, pos);
    if (pos >= text.size() || text[pos] != ',')
        return std::nullopt;
    pos = skipBlanks(text, pos + 1);
    if (pos >= text.size() || (upper(text[pos]) != 'X' && upper(text[pos]) != 'Y'))
        return std::nullopt;
    const Index index = upper(text[pos]) == 'X' ? Index::X : Index::Y;
    pos = skipBlanks(text, pos + 1);
    return index;
}

bool inRange(std::int64_t value, std::int64_t low, std::int64_t high)
{
    return value >= low && value <= high;
}

void emitInstruction(Assembler& assembler, const Instruction& instruction, AddressingMode mode, OperandValue operand)
{
    if (!instruction.has(mode)) {
        assembler.error(Diagnostic::IncorrectAddressingMode);
        return;
    }
    const int size = instructionSize(mode);
    if (!operand.undefined) {
        if (mode == AddressingMode::Immediate && !inRange(operand.value, -128, 255))
            assembler.error(Diagnostic::IncorrectImmediate);
        else if (size == 2 && mode != AddressingMode::Immediate && !inRange(operand.value, 0, 0xFF))
            assembler.error(Diagnostic::IncorrectZeroPage);
        else if (size == 3 && !inRange(operand.value, 0, 0xFFFF))
            assembler.error(Diagnostic::IncorrectAddress);
    }
    // The bytes go out even after a fault so that the addresses behind stay right and faults do not cascade.
    assembler.emit(instruction.opcode(mode));
    if (size >= 2)
        assembler.emit(static_cast<std::uint8_t>(operand.value & 0xFF));
    if (size == 3)
        assembler.emit(static_cast<std::uint8_t>((operand.value >> 8) & 0xFF));
}

void assembleBranch(Assembler& assembler, const Instruction& instruction, std::string_view operand)
{
    const std::optional<OperandValue> target = assembler.evaluateWhole(operand);
    if (!target)
        return;
    const std::int64_t distance = target->value - (assembler.location() + 2);
    if (!target->undefined && !inRange(distance, -128, 127))
        assembler.error(Diagnostic::BranchOutOfRange);
    assembler.emit(instruction.opcode(AddressingMode::Relative));
    assembler.emit(static_cast<std::uint8_t>(distance & 0xFF));
}

// [expr], [expr,X] and [expr],Y.
void assembleIndirect(Assembler& assembler, const Instruction& instruction, std::string_view operand)
{
    std::size_t pos = skipBlanks(operand, 1);
    if (pos < operand.size() && operand[pos] == '<')
        ++pos;
    const ExpressionResult address = assembler.evaluate(operand, pos);
    if (address.error != Diagnostic::None) {
        assembler.error(address.error);
        return;
    }
    const OperandValue value{address.value, address.undefined};
    pos = address.end;
    if (const std::optional<Index> index = readIndex(operand, pos)) {
        if (*index == Index::X && pos < operand.size() && operand[pos] == ']' && skipBlanks(operand, pos + 1) == operand.size()) {
            emitInstruction(assembler, instruction, AddressingMode::IndirectX, value);
            return;
        }
        assembler.error(Diagnostic::SyntaxError);
        return;
    }
    pos = skipBlanks(operand, pos);
    if (pos >= operand.size() || operand[pos] != ']') {
        assembler.error(Diagnostic::SyntaxError);
        return;
    }
    ++pos;
    if (skipBlanks(operand, pos) == operand.size()) {
        emitInstruction(assembler, instruction, AddressingMode::Indirect, value);
        return;
    }
    const std::optional<Index> index = readIndex(operand, pos);
    if (index == Index::Y && pos == operand.size()) {
        emitInstruction(assembler, instruction, AddressingMode::IndirectY, value);
        return;
    }
    assembler.error(Diagnostic::SyntaxError);
}

// expr, expr,X and expr,Y, each with an optional '<' in front.
void assembleDirect(Assembler& assembler, const Instruction& instruction, std::string_view operand)
{
    const bool zeroPageForced = operand[0] == '<';
    const ExpressionResult address = assembler.evaluate(operand, zeroPageForced ? 1 : 0);
    if (address.error != Diagnostic::None) {
        assembler.error(address.error);
        return;
    }
    std::size_t pos = address.end;
    Index index = Index::None;
    if (skipBlanks(operand, pos) != operand.size()) {
        const std::optional<Index> read = readIndex(operand, pos);
        if (!read || pos != operand.size()) {
            assembler.error(Diagnostic::SyntaxError);
            return;
        }
        index = *read;
    }
    const AddressingMode zeroPage = index == Index::None ? AddressingMode::ZeroPage
                                  : index == Index::X   ? AddressingMode::ZeroPageX
                                                        : AddressingMode::ZeroPageY;
    const AddressingMode absolute = index == Index::None ? AddressingMode::Absolute
                                  : index == Index::X   ? AddressingMode::AbsoluteX
                                                        : AddressingMode::AbsoluteY;
    const AddressingMode preferred = zeroPageForced ? zeroPage : absolute;
    const AddressingMode other = zeroPageForced ? absolute : zeroPage;
    OperandValue value{address.value, address.undefined};
    if (instruction.has(preferred) || !instruction.has(other)) {
        emitInstruction(assembler, instruction, preferred, value);
        return;
    }
    // A forced zero-page operand keeps its range check when only the absolute form exists.
    if (zeroPageForced && !value.undefined && !inRange(value.value, 0, 0xFF)) {
        assembler.error(Diagnostic::IncorrectZeroPage);
        value.undefined = true;
    }
    emitInstruction(assembler, instruction, other, value);
}

bool isAccumulator(std::string_view operand)
{
    return operand.size() == 1 && upper(operand[0]) == 'A';
}

} // namespace

void assembleInstruction(Assembler& assembler, const Instruction& instruction, std::string_view operand)
{
    if (instruction.has(AddressingMode::Relative)) {
        assembleBranch(assembler, instruction, operand);
    } else if (operand.empty()) {
        emitInstruction(assembler, instruction,
                        instruction.has(AddressingMode::Implied) ? AddressingMode::Implied : AddressingMode::Accumulator,
                        {});
    } else if (isAccumulator(operand) && instruction.has(AddressingMode::Accumulator)) {
        emitInstruction(assembler, instruction, AddressingMode::Accumulator, {});
    } else if (operand[0] == '#') {
        if (const std::optional<OperandValue> value = assembler.evaluateWhole(operand.substr(1)))
            emitInstruction(assembler, instruction, AddressingMode::Immediate, *value);
    } else if (operand[0] == '[') {
        assembleIndirect(assembler, instruction, operand);
    } else {
        assembleDirect(assembler, instruction, operand);
    }
}

} // namespace zunbrix::nesasm
