// Every fault a source can have: the message names the file chain and the line, the tool ends with
// status 1 and writes no output.
#include "nesasm_runner.h"

using namespace zunbrix::testing;

namespace {

struct Fault {
    const char* source;
    int line;
    const char* message;
};

std::string expectedReport(const std::string& chain, const std::string& source, int lineNumber, const std::string& message)
{
    std::string text = source;
    for (int i = 1; i < lineNumber; ++i)
        text = text.substr(text.find('\n') + 1);
    char number[8];
    std::snprintf(number, sizeof number, "%05i", lineNumber);
    return chain + number + "  " + text.substr(0, text.find('\n')) + "\n       " + message + "\n";
}

void expectRefused(const AsmFolder& folder, const std::string& report, int errors = 1)
{
    const AsmFolder::Run run = folder.run({"main.asm"});
    EXPECT_EQ(run.exitCode, 1);
    EXPECT_NE(run.output.find(report), std::string::npos) << run.output;
    EXPECT_NE(run.output.find("# " + std::to_string(errors) + " error(s)\n"), std::string::npos) << run.output;
    EXPECT_FALSE(folder.exists("main.nes"));
}

} // namespace

TEST(NesasmDiagnostics, EachFaultNamesItsLine)
{
    const std::string deepParentheses = "  .DB " + std::string(100, '(') + "1" + std::string(100, ')') + "\n";
    const std::string tooLong = "  .STR \"" + std::string(256, 'n') + "\"";
    const std::vector<Fault> faults = {
        {"  .ORG $8000\n  LDA Nowhere\n", 2, "Undefined symbol in operand field!"},
        {"  .ORG $8000\nTwice: NOP\nTwice: NOP\n", 3, "Label multiply defined!"},
        {"  .ORG $8000\nFar: NOP\n  .ORG $8100\n  BNE Far\n", 4, "Branch address out of range!"},
        {"  .ORG $8000\n  .STR \"open ; not a comment\n", 2, "Unterminated ASCII string!"},
        {"  .ORG $8000\n  .DB \"open\n", 2, "Unterminated ASCII string!"},
        {tooLong.c_str(), 1, "The string length overflows, up to 255 characters!"},
        {"\n  .STR name\n", 2, "Incorrect string syntax!"},
        {"  .DB 1, 256\n", 1, "Value out of range!"},
        {"  .DW $10000\n", 1, "Value out of range!"},
        {"  .INESMAP 256\n", 1, "Value out of range!"},
        {"  .BANK 3000000\n", 1, "Bank index out of range!"},
        {"  .BANK 511\n  .ORG $9FFF\n  .DB 1, 2\n", 3, "Bank overflow, addr: A000, offset:2000  > $1FFF!"},
        {"  .ORG $10000\n", 1, "Incorrect address!"},
        {"  FOO $10\n", 1, "Unknown instruction!"},
        {"  .FOO 1\n", 1, "Unknown directive!"},
        {"  .MACRO\n", 1, "Directive not supported by this assembler!"},
        {"  STX $1234,X\n", 1, "Incorrect addressing mode!"},
        {"  LDA <$1234\n", 1, "Incorrect zero page address!"},
        {"  LDA #256\n", 1, "Incorrect immediate value!"},
        {"  JMP $10000\n", 1, "Incorrect address!"},
        {"  .DB 1 / (2 - 2)\n", 1, "Divide by zero!"},
        {"  .DB $100000000\n", 1, "Number too large!"},
        {deepParentheses.c_str(), 1, "Expression too complex!"},
        {"  LDA #1 +\n", 1, "Syntax error!"},
        {"  LDA [$10],X\n", 1, "Syntax error!"},
        {"1abc NOP\n", 1, "Illegal character in label!"},
        {"  = 5\n", 1, "This directive needs a label!"},
        {"Name .IF 1\n  .ENDIF\n", 1, "No label allowed on this directive!"},
        {"  .IF 1\n  NOP\n", 1, "Missing .ENDIF!"},
        {"  NOP\n  .ELSE\n", 2, "Unexpected .ELSE!"},
        {"  .IF 1\n  .ELSE\n  .ELSE\n  .ENDIF\n", 3, "Unexpected .ELSE!"},
        {"  .ENDIF\n", 1, "Unexpected .ENDIF!"},
        {"  INCLUDE build/game_config.asm\n", 1, "Incorrect string syntax!"},
        {"  INCLUDE \"missing.asm\"\n", 1, "Can not open include file 'missing.asm'!"},
        {"  INCBIN \"missing.bin\"\n", 1, "Can not open binary file 'missing.bin'!"},
    };
    for (const Fault& fault : faults) {
        SCOPED_TRACE(fault.source);
        AsmFolder folder;
        folder.write("main.asm", fault.source);
        expectRefused(folder, expectedReport("#[1]   main.asm\n", fault.source, fault.line, fault.message));
    }
}

TEST(NesasmDiagnostics, HugeIncbinRangesAreRefused)
{
    AsmFolder folder;
    folder.write("data.bin", QByteArray(16, '\x01'));
    for (const char* range : {", 0, 100000000", ", 17", ", -1", ", 8, 9", ", $7FFFFFFF, $7FFFFFFF"}) {
        const std::string source = std::string("  INCBIN \"data.bin\"") + range + "\n";
        SCOPED_TRACE(source);
        folder.write("main.asm", QByteArray::fromStdString(source));
        expectRefused(folder, expectedReport("#[1]   main.asm\n", source, 1, "Offset or length lies outside the binary file!"));
    }
}

TEST(NesasmDiagnostics, IncludeFaultsNameTheFileChain)
{
    AsmFolder folder;
    // A chain of seven files is allowed; the eighth level is refused.
    for (int level = 2; level <= 8; ++level)
        folder.write(QString("level%1.asm").arg(level), QString("  INCLUDE \"level%1.asm\"\n").arg(level + 1).toUtf8());
    folder.write("main.asm", "  NOP\n  INCLUDE \"level2.asm\"\n");
    std::string chain = "#[1]   main.asm\n";
    for (int level = 2; level <= 7; ++level)
        chain += "#[" + std::to_string(level) + "]   level" + std::to_string(level) + ".asm\n";
    expectRefused(folder, chain + "00001    INCLUDE \"level8.asm\"\n       Too many include levels, max. 7!\n");

    // The same file twice is refused, and so is a cycle back to the main source.
    folder.write("part.asm", "  .DB 1\n");
    folder.write("main.asm", "  INCLUDE \"part.asm\"\n  INCLUDE \"./part.asm\"\n");
    expectRefused(folder, "#[1]   main.asm\n00002    INCLUDE \"./part.asm\"\n       Repeated include file!\n");
    folder.write("part.asm", "  INCLUDE \"main.asm\"\n");
    folder.write("main.asm", "  INCLUDE \"part.asm\"\n");
    expectRefused(folder, "#[1]   main.asm\n#[2]   part.asm\n00001    INCLUDE \"main.asm\"\n       Repeated include file!\n");
}

TEST(NesasmDiagnostics, ValuesThatNeverSettleEndTheAssembly)
{
    AsmFolder folder;
    folder.write("main.asm", "  .ORG Moving + 1\nMoving: NOP\n");
    expectRefused(folder, "       Symbol values keep changing from pass to pass!\n");
}

TEST(NesasmDiagnostics, EveryFaultIsCountedNotJustTheFirst)
{
    AsmFolder folder;
    folder.write("main.asm", "  LDA Nowhere\n  LDA #300\n  .DB 1\n  BNE Nowhere\n");
    expectRefused(folder, "00004    BNE Nowhere\n       Undefined symbol in operand field!\n", 3);
}
