#include "tools/nesasm/instruction_table.h"

namespace zunbrix::nesasm {

namespace {

constexpr std::int16_t xx = -1;

// clang-format off
constexpr Instruction kInstructions[] = {
    //        imp   acc   imm   zp    zp,X  zp,Y  abs   abs,X abs,Y ind   [zp,X] [zp],Y rel
    {"ADC", {{xx,   xx,   0x69, 0x65, 0x75, xx,   0x6D, 0x7D, 0x79, xx,   0x61, 0x71, xx  }}},
    {"AND", {{xx,   xx,   0x29, 0x25, 0x35, xx,   0x2D, 0x3D, 0x39, xx,   0x21, 0x31, xx  }}},
    {"ASL", {{xx,   0x0A, xx,   0x06, 0x16, xx,   0x0E, 0x1E, xx,   xx,   xx,   xx,   xx  }}},
    {"BCC", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0x90}}},
    {"BCS", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0xB0}}},
    {"BEQ", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0xF0}}},
    {"BIT", {{xx,   xx,   xx,   0x24, xx,   xx,   0x2C, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"BMI", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0x30}}},
    {"BNE", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0xD0}}},
    {"BPL", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0x10}}},
    {"BRK", {{0x00, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"BVC", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0x50}}},
    {"BVS", {{xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   0x70}}},
    {"CLC", {{0x18, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"CLD", {{0xD8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"CLI", {{0x58, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"CLV", {{0xB8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"CMP", {{xx,   xx,   0xC9, 0xC5, 0xD5, xx,   0xCD, 0xDD, 0xD9, xx,   0xC1, 0xD1, xx  }}},
    {"CPX", {{xx,   xx,   0xE0, 0xE4, xx,   xx,   0xEC, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"CPY", {{xx,   xx,   0xC0, 0xC4, xx,   xx,   0xCC, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"DEC", {{xx,   xx,   xx,   0xC6, 0xD6, xx,   0xCE, 0xDE, xx,   xx,   xx,   xx,   xx  }}},
    {"DEX", {{0xCA, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"DEY", {{0x88, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"EOR", {{xx,   xx,   0x49, 0x45, 0x55, xx,   0x4D, 0x5D, 0x59, xx,   0x41, 0x51, xx  }}},
    {"INC", {{xx,   xx,   xx,   0xE6, 0xF6, xx,   0xEE, 0xFE, xx,   xx,   xx,   xx,   xx  }}},
    {"INX", {{0xE8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"INY", {{0xC8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"JMP", {{xx,   xx,   xx,   xx,   xx,   xx,   0x4C, xx,   xx,   0x6C, xx,   xx,   xx  }}},
    {"JSR", {{xx,   xx,   xx,   xx,   xx,   xx,   0x20, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"LDA", {{xx,   xx,   0xA9, 0xA5, 0xB5, xx,   0xAD, 0xBD, 0xB9, xx,   0xA1, 0xB1, xx  }}},
    {"LDX", {{xx,   xx,   0xA2, 0xA6, xx,   0xB6, 0xAE, xx,   0xBE, xx,   xx,   xx,   xx  }}},
    {"LDY", {{xx,   xx,   0xA0, 0xA4, 0xB4, xx,   0xAC, 0xBC, xx,   xx,   xx,   xx,   xx  }}},
    {"LSR", {{xx,   0x4A, xx,   0x46, 0x56, xx,   0x4E, 0x5E, xx,   xx,   xx,   xx,   xx  }}},
    {"NOP", {{0xEA, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"ORA", {{xx,   xx,   0x09, 0x05, 0x15, xx,   0x0D, 0x1D, 0x19, xx,   0x01, 0x11, xx  }}},
    {"PHA", {{0x48, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"PHP", {{0x08, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"PLA", {{0x68, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"PLP", {{0x28, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"ROL", {{xx,   0x2A, xx,   0x26, 0x36, xx,   0x2E, 0x3E, xx,   xx,   xx,   xx,   xx  }}},
    {"ROR", {{xx,   0x6A, xx,   0x66, 0x76, xx,   0x6E, 0x7E, xx,   xx,   xx,   xx,   xx  }}},
    {"RTI", {{0x40, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"RTS", {{0x60, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"SBC", {{xx,   xx,   0xE9, 0xE5, 0xF5, xx,   0xED, 0xFD, 0xF9, xx,   0xE1, 0xF1, xx  }}},
    {"SEC", {{0x38, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"SED", {{0xF8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"SEI", {{0x78, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"STA", {{xx,   xx,   xx,   0x85, 0x95, xx,   0x8D, 0x9D, 0x99, xx,   0x81, 0x91, xx  }}},
    {"STX", {{xx,   xx,   xx,   0x86, xx,   0x96, 0x8E, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"STY", {{xx,   xx,   xx,   0x84, 0x94, xx,   0x8C, xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TAX", {{0xAA, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TAY", {{0xA8, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TSX", {{0xBA, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TXA", {{0x8A, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TXS", {{0x9A, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
    {"TYA", {{0x98, xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx,   xx  }}},
};
// clang-format on

constexpr int kModeSizes[kAddressingModeCount] = {1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 2, 2, 2};

} // namespace

const Instruction* findInstruction(std::string_view mnemonic)
{
    if (mnemonic.size() != 3)
        return nullptr;
    char upper[3];
    for (int i = 0; i < 3; ++i) {
        const char c = mnemonic[static_cast<std::size_t>(i)];
        upper[i] = c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
    }
    const std::string_view wanted(upper, 3);
    for (const Instruction& instruction : kInstructions) {
        if (instruction.mnemonic == wanted)
            return &instruction;
    }
    return nullptr;
}

int instructionSize(AddressingMode mode)
{
    return kModeSizes[static_cast<std::size_t>(mode)];
}

} // namespace zunbrix::nesasm
