// Our encoding of the 6502's official instructions against an independent assembler, ca65/ld65 of cc65:
// the same instruction stream in both syntaxes, assembled by both, must give the same bytes.
#include "nesasm_runner.h"

#include <QStandardPaths>

#include <map>
#include <sstream>

using namespace zunbrix::testing;

namespace {

// Each official instruction with the addressing modes the 6502 has for it: 151 opcodes in all.
struct Form {
    const char* mnemonic;
    const char* modes;
};

const Form kForms[] = {
    {"ADC", "imm zp zpx abs absx absy indx indy"}, {"AND", "imm zp zpx abs absx absy indx indy"},
    {"ASL", "acc zp zpx abs absx"}, {"BCC", "rel"}, {"BCS", "rel"}, {"BEQ", "rel"}, {"BIT", "zp abs"},
    {"BMI", "rel"}, {"BNE", "rel"}, {"BPL", "rel"}, {"BRK", "imp"}, {"BVC", "rel"}, {"BVS", "rel"},
    {"CLC", "imp"}, {"CLD", "imp"}, {"CLI", "imp"}, {"CLV", "imp"}, {"CMP", "imm zp zpx abs absx absy indx indy"},
    {"CPX", "imm zp abs"}, {"CPY", "imm zp abs"}, {"DEC", "zp zpx abs absx"}, {"DEX", "imp"}, {"DEY", "imp"},
    {"EOR", "imm zp zpx abs absx absy indx indy"}, {"INC", "zp zpx abs absx"}, {"INX", "imp"}, {"INY", "imp"},
    {"JMP", "abs ind"}, {"JSR", "abs"}, {"LDA", "imm zp zpx abs absx absy indx indy"},
    {"LDX", "imm zp zpy abs absy"}, {"LDY", "imm zp zpx abs absx"}, {"LSR", "acc zp zpx abs absx"},
    {"NOP", "imp"}, {"ORA", "imm zp zpx abs absx absy indx indy"}, {"PHA", "imp"}, {"PHP", "imp"},
    {"PLA", "imp"}, {"PLP", "imp"}, {"ROL", "acc zp zpx abs absx"}, {"ROR", "acc zp zpx abs absx"},
    {"RTI", "imp"}, {"RTS", "imp"}, {"SBC", "imm zp zpx abs absx absy indx indy"}, {"SEC", "imp"},
    {"SED", "imp"}, {"SEI", "imp"}, {"STA", "zp zpx abs absx absy indx indy"}, {"STX", "zp zpy abs"},
    {"STY", "zp zpx abs"}, {"TAX", "imp"}, {"TAY", "imp"}, {"TSX", "imp"}, {"TXA", "imp"}, {"TXS", "imp"},
    {"TYA", "imp"},
};

// One mode's operand in both syntaxes. ca65 picks zero page by value, so its operands carry z: or a:.
struct Spelling {
    const char* ours;
    const char* theirs;
};

const std::map<std::string, Spelling> kExplicit = {
    {"imp", {"", ""}},
    {"acc", {"A", "a"}},
    {"imm", {"#$A5", "#$A5"}},
    {"zp", {"<$44", "z:$44"}},
    {"zpx", {"<$44,X", "z:$44,x"}},
    {"zpy", {"<$44,y", "z:$44,y"}},
    {"abs", {"$5678", "a:$5678"}},
    {"absx", {"$5678,x", "a:$5678,x"}},
    {"absy", {"$5678,Y", "a:$5678,y"}},
    {"ind", {"[$5678]", "($5678)"}},
    {"indx", {"[$44,X]", "($44,x)"}},
    {"indy", {"[$44],Y", "($44),y"}},
};

// Without '<' a value below $100 stays absolute wherever an absolute form exists, and takes the
// zero-page form only where there is none (STX zp,Y and STY zp,X).
const std::map<std::string, Spelling> kWithoutForce = {
    {"zp", {"$44", "a:$0044"}},
    {"zpx", {"$44,X", "a:$0044,x"}},
    {"zpy", {"$44,Y", "a:$0044,y"}},
};

std::vector<std::string> modesOf(const Form& form)
{
    std::istringstream words(form.modes);
    std::vector<std::string> modes;
    for (std::string mode; words >> mode;)
        modes.push_back(mode);
    return modes;
}

bool hasMode(const Form& form, const std::string& mode)
{
    const std::vector<std::string> modes = modesOf(form);
    return std::find(modes.begin(), modes.end(), mode) != modes.end();
}

// The absolute mode that an unforced zero-page operand turns into, when the instruction has it.
std::string absoluteFor(const std::string& zeroPageMode)
{
    return zeroPageMode == "zp" ? "abs" : zeroPageMode == "zpx" ? "absx" : "absy";
}

struct Streams {
    std::string ours = "  .BANK 0\n  .ORG $8000\n";
    std::string theirs;
    int instructions = 0;

    void add(const std::string& mnemonic, const Spelling& operand)
    {
        ours += "  " + mnemonic + " " + operand.ours + "\n";
        theirs += "  " + mnemonic + " " + operand.theirs + "\n";
        ++instructions;
    }
    void addLabel(const std::string& label)
    {
        ours += label + ":\n";
        theirs += label + ":\n";
    }
};

Streams instructionStreams()
{
    Streams streams;
    int branch = 0;
    for (const Form& form : kForms) {
        for (const std::string& mode : modesOf(form)) {
            if (mode != "rel") {
                streams.add(form.mnemonic, kExplicit.at(mode));
                continue;
            }
            // Forward and backward, to check the offset's sign.
            const std::string back = "back_" + std::to_string(branch);
            const std::string ahead = "ahead_" + std::to_string(branch++);
            streams.addLabel(back);
            streams.add("NOP", kExplicit.at("imp"));
            streams.add(form.mnemonic, {back.c_str(), back.c_str()});
            streams.add(form.mnemonic, {ahead.c_str(), ahead.c_str()});
            streams.add("NOP", kExplicit.at("imp"));
            streams.addLabel(ahead);
        }
    }
    for (const Form& form : kForms) {
        for (const auto& [mode, operand] : kWithoutForce) {
            if (hasMode(form, absoluteFor(mode)))
                streams.add(form.mnemonic, operand);
            else if (hasMode(form, mode))
                streams.add(form.mnemonic, {kWithoutForce.at(mode).ours, kExplicit.at(mode).theirs});
        }
    }
    return streams;
}

std::vector<std::uint8_t> assembleWithCa65(const AsmFolder& folder, const std::string& source)
{
    const QString ca65 = QStandardPaths::findExecutable("ca65");
    const QString ld65 = QStandardPaths::findExecutable("ld65");
    EXPECT_FALSE(ca65.isEmpty()) << "ca65 (Debian package cc65) is needed: scripts/install-deps.sh installs it";
    EXPECT_FALSE(ld65.isEmpty()) << "ld65 (Debian package cc65) is needed: scripts/install-deps.sh installs it";
    if (ca65.isEmpty() || ld65.isEmpty())
        return {};
    folder.write("theirs.s", QByteArray::fromStdString(source));
    folder.write("theirs.cfg", "MEMORY { ROM: start = $8000, size = $8000, file = %O; }\n"
                               "SEGMENTS { CODE: load = ROM, type = ro; }\n");
    QProcess process;
    process.setWorkingDirectory(folder.path("."));
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(ca65, {"-o", "theirs.o", "theirs.s"});
    process.waitForFinished(30000);
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    process.start(ld65, {"-C", "theirs.cfg", "-o", "theirs.bin", "theirs.o"});
    process.waitForFinished(30000);
    EXPECT_EQ(process.exitCode(), 0) << process.readAll().toStdString();
    return folder.read("theirs.bin");
}

} // namespace

TEST(NesasmEncoding, EveryOfficialOpcodeMatchesCa65)
{
    std::size_t opcodes = 0;
    for (const Form& form : kForms)
        opcodes += modesOf(form).size();
    ASSERT_EQ(opcodes, 151u);

    const Streams streams = instructionStreams();
    AsmFolder folder;
    const std::vector<std::uint8_t> theirs = assembleWithCa65(folder, streams.theirs);
    ASSERT_FALSE(theirs.empty());
    const std::vector<std::uint8_t> ours = folder.banksOf(QByteArray::fromStdString(streams.ours));
    ASSERT_GE(ours.size(), theirs.size());
    for (std::size_t i = 0; i < theirs.size(); ++i)
        ASSERT_EQ(int(ours[i]), int(theirs[i])) << "first difference at offset " << i;
    for (std::size_t i = theirs.size(); i < ours.size(); ++i)
        ASSERT_EQ(ours[i], 0xFF) << "unwritten byte at offset " << i;
}

// Every operand form that an instruction does not have is refused, one error per line.
TEST(NesasmEncoding, FormsAnInstructionLacksAreRefused)
{
    const std::vector<std::pair<std::string, std::vector<std::string>>> forms = {
        {"", {"imp", "acc"}},          {"#$A5", {"imm"}},          {"<$44", {"zp", "abs"}},
        {"<$44,X", {"zpx", "absx"}},   {"<$44,Y", {"zpy", "absy"}}, {"$5678", {"abs"}},
        {"$5678,X", {"absx"}},         {"$5678,Y", {"absy"}},       {"[$5678]", {"ind"}},
        {"[$44,X]", {"indx"}},         {"[$44],Y", {"indy"}},
    };
    std::string source = "  .ORG $8000\n";
    int refused = 0;
    for (const Form& form : kForms) {
        if (hasMode(form, "rel"))
            continue;
        for (const auto& [operand, modes] : forms) {
            const bool valid = std::any_of(modes.begin(), modes.end(), [&](const std::string& mode) { return hasMode(form, mode); });
            if (!valid) {
                source += std::string("  ") + form.mnemonic + " " + operand + "\n";
                ++refused;
            }
        }
    }
    AsmFolder folder;
    folder.write("main.asm", QByteArray::fromStdString(source));
    const AsmFolder::Run run = folder.run({"main.asm"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.output.find("# " + std::to_string(refused) + " error(s)"), std::string::npos) << run.output;
}
