#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace zunbrix::nesasm {

enum class AddressingMode {
    Implied,
    Accumulator,
    Immediate,
    ZeroPage,
    ZeroPageX,
    ZeroPageY,
    Absolute,
    AbsoluteX,
    AbsoluteY,
    Indirect,
    IndirectX,
    IndirectY,
    Relative,
};

inline constexpr std::size_t kAddressingModeCount = 13;

// One official 6502 instruction: its opcode in each addressing mode it has, -1 where it has none.
struct Instruction {
    std::string_view mnemonic;
    std::array<std::int16_t, kAddressingModeCount> opcodes;

    bool has(AddressingMode mode) const { return opcodes[static_cast<std::size_t>(mode)] >= 0; }
    std::uint8_t opcode(AddressingMode mode) const
    {
        return static_cast<std::uint8_t>(opcodes[static_cast<std::size_t>(mode)]);
    }
};

// The instruction for a mnemonic written in either case; nullptr when there is none.
const Instruction* findInstruction(std::string_view mnemonic);

// Bytes an instruction takes in a mode, opcode included.
int instructionSize(AddressingMode mode);

} // namespace zunbrix::nesasm
