#pragma once

#include "tools/nesasm/bank_image.h"
#include "tools/nesasm/conditional_stack.h"
#include "tools/nesasm/diagnostics.h"
#include "tools/nesasm/error_reporter.h"
#include "tools/nesasm/expression.h"
#include "tools/nesasm/listing.h"
#include "tools/nesasm/source_files.h"
#include "tools/nesasm/symbol_table.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace zunbrix::nesasm {

struct AssemblerOptions {
    bool withHeader = true;
    std::uint8_t fillByte = 0xFF;
    int listingLevel = 0; // 0 none, 1 addresses, 2 with the first bytes, 3 with all bytes
};

struct AssemblyResult {
    bool inputOpened = false;
    int errorCount = 0;
    std::string messages;             // errors and warnings, ready to print
    std::vector<std::uint8_t> output; // header and banks; empty when there are errors
    std::vector<int> usedBytesPerBank;
    std::string listing;
};

// Assembles `mainPath` and everything it includes.
AssemblyResult assemble(std::string_view mainPath, const AssemblerOptions& options, FileSource& files);

// A value read from an operand; `undefined` means a symbol had no value yet.
struct OperandValue {
    std::int64_t value = 0;
    bool undefined = false;
};

// One run over the sources, repeated as passes until the symbol values settle. Directive handlers and the
// instruction encoder work through its public part.
class Assembler {
public:
    Assembler(const AssemblerOptions& options, FileSource& files);

    AssemblyResult run(std::string_view mainPath);

    // Reporting, at the line being assembled.
    template <typename... Args>
    void error(Diagnostic id, Args... args)
    {
        reporter_.error(position(), formatDiagnostic(id, args...));
    }
    template <typename... Args>
    void warning(Diagnostic id, Args... args)
    {
        reporter_.warning(position(), formatDiagnostic(id, args...));
    }

    // Evaluates an expression inside a longer operand. An undefined symbol is reported here, once per line.
    ExpressionResult evaluate(std::string_view text, std::size_t start);
    // The operand as one whole expression; nullopt after reporting a fault.
    std::optional<OperandValue> evaluateWhole(std::string_view operand);

    void emit(std::uint8_t byte);
    std::int64_t location() const { return location_; }
    void defineSymbol(std::string_view name, std::int64_t value);
    void defineLabel(std::string_view name); // at the location counter; a global one opens a new local scope

    void selectBank(std::int64_t bank);
    void setOrigin(std::int64_t address);
    InesHeader& header() { return header_; }
    std::int64_t& allocationCounter() { return allocationCounter_; }
    ConditionalStack& conditionals() { return conditionals_; }
    int lineNumber() const;

    void includeSource(std::string_view name);
    void includeBinary(std::string_view name, std::optional<OperandValue> offset, std::optional<OperandValue> length);

private:
    struct SourceText {
        std::string location;
        std::string content;
        std::vector<std::string_view> lines;
    };
    struct Frame {
        std::string_view displayName;
        const SourceText* text;
        std::size_t lineIndex;
    };

    void assembleFile(std::string_view displayName, const SourceText& text);
    void assembleLine(std::string_view line);
    const SourceText* loadSource(const std::string& location);
    const std::string* loadBinary(const std::string& location);
    SourcePosition position() const;

    const AssemblerOptions& options_;
    FileSource& files_;
    std::unordered_map<std::string, std::unique_ptr<SourceText>> sources_;
    std::unordered_map<std::string, std::unique_ptr<std::string>> binaries_;

    SymbolTable symbols_;
    ErrorReporter reporter_;
    BankImage image_;
    InesHeader header_;
    ConditionalStack conditionals_;
    Listing listing_;
    std::vector<Frame> frames_;
    std::unordered_set<std::string> includedFiles_;

    std::string_view scope_;
    std::int64_t location_ = 0;
    int bank_ = 0;
    int bankOffset_ = 0;
    std::int64_t allocationCounter_ = 0;
    bool undefinedInPass_ = false;

    // Per line.
    bool undefinedReported_ = false;
    bool spilled_ = false;
    int overflowBytes_ = 0;
    bool overflowFailed_ = false;
};

} // namespace zunbrix::nesasm
