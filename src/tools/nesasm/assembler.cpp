#include "tools/nesasm/assembler.h"

#include "tools/nesasm/directives.h"
#include "tools/nesasm/instruction_encoder.h"
#include "tools/nesasm/instruction_table.h"
#include "tools/nesasm/line_scanner.h"

namespace zunbrix::nesasm {

namespace {

// The main source counts as the first level.
constexpr std::size_t kMaxIncludeLevels = 7;
// Forward references settle in two passes, chains of forward equates in a few more; a source whose values
// still move after this many never settles.
constexpr int kMaxPasses = 10;

std::vector<std::string_view> splitLines(std::string_view content)
{
    std::vector<std::string_view> lines;
    // Editors on Windows like to put a byte order mark in front of UTF-8 text.
    std::size_t start = content.substr(0, 3) == "\xEF\xBB\xBF" ? 3 : 0;
    while (start < content.size()) {
        std::size_t end = content.find('\n', start);
        const std::size_t next = end == std::string_view::npos ? content.size() : end + 1;
        if (end == std::string_view::npos)
            end = content.size();
        if (end > start && content[end - 1] == '\r')
            --end;
        lines.push_back(content.substr(start, end - start));
        start = next;
    }
    return lines;
}

} // namespace

AssemblyResult assemble(std::string_view mainPath, const AssemblerOptions& options, FileSource& files)
{
    Assembler assembler(options, files);
    return assembler.run(mainPath);
}

Assembler::Assembler(const AssemblerOptions& options, FileSource& files)
    : options_(options), files_(files), listing_(options.listingLevel)
{
}

AssemblyResult Assembler::run(std::string_view mainPath)
{
    AssemblyResult result;
    const std::optional<std::string> location = files_.locate(mainPath, {});
    const SourceText* main = location ? loadSource(*location) : nullptr;
    if (main == nullptr)
        return result;
    result.inputOpened = true;

    for (int pass = 1;; ++pass) {
        symbols_.beginPass();
        reporter_.clear();
        image_.clear();
        header_ = {};
        conditionals_.clear();
        listing_.clear();
        includedFiles_.clear();
        scope_ = {};
        location_ = 0;
        bank_ = 0;
        bankOffset_ = 0;
        allocationCounter_ = 0;
        undefinedInPass_ = false;

        includedFiles_.insert(main->location);
        assembleFile(mainPath, *main);

        const bool changed = symbols_.endPass();
        // Without forward references the first pass is already right; after that, a pass that changed no
        // value is one that the next pass would repeat.
        if (pass == 1 ? !undefinedInPass_ : !changed)
            break;
        if (pass == kMaxPasses) {
            reporter_.error({}, formatDiagnostic(Diagnostic::UnsettledSymbols));
            break;
        }
    }

    result.errorCount = reporter_.errorCount();
    result.messages = reporter_.render();
    if (result.errorCount > 0)
        return result;
    if (options_.withHeader) {
        const auto header = header_.bytes();
        result.output.assign(header.begin(), header.end());
    }
    const std::vector<std::uint8_t> banks = image_.bytes(options_.fillByte);
    result.output.insert(result.output.end(), banks.begin(), banks.end());
    for (int bank = 0; bank < image_.bankCount(); ++bank)
        result.usedBytesPerBank.push_back(image_.usedBytes(bank));
    result.listing = listing_.render();
    return result;
}

const Assembler::SourceText* Assembler::loadSource(const std::string& location)
{
    auto found = sources_.find(location);
    if (found == sources_.end()) {
        std::unique_ptr<SourceText> text;
        if (std::optional<std::string> content = files_.read(location)) {
            text = std::make_unique<SourceText>();
            text->location = location;
            text->content = std::move(*content);
            text->lines = splitLines(text->content);
        }
        found = sources_.emplace(location, std::move(text)).first;
    }
    return found->second.get();
}

const std::string* Assembler::loadBinary(const std::string& location)
{
    auto found = binaries_.find(location);
    if (found == binaries_.end()) {
        std::unique_ptr<std::string> content;
        if (std::optional<std::string> read = files_.read(location))
            content = std::make_unique<std::string>(std::move(*read));
        found = binaries_.emplace(location, std::move(content)).first;
    }
    return found->second.get();
}

void Assembler::assembleFile(std::string_view displayName, const SourceText& text)
{
    frames_.push_back({displayName, &text, 0});
    const std::size_t frame = frames_.size() - 1;
    const std::size_t openConditionals = conditionals_.depth();
    for (std::size_t i = 0; i < text.lines.size(); ++i) {
        frames_[frame].lineIndex = i;
        assembleLine(text.lines[i]);
    }
    // A file closes the conditionals it opened.
    while (conditionals_.depth() > openConditionals) {
        frames_[frame].lineIndex = static_cast<std::size_t>(conditionals_.openLine() - 1);
        error(Diagnostic::MissingEndif);
        conditionals_.dropTo(conditionals_.depth() - 1);
    }
    frames_.pop_back();
}

void Assembler::assembleLine(std::string_view line)
{
    undefinedReported_ = false;
    overflowBytes_ = 0;
    overflowFailed_ = false;
    spilled_ = false;

    const ScannedLine scanned = scanLine(line);
    const Directive* directive = scanned.mnemonic.empty() ? nullptr : findDirective(scanned.mnemonic);
    if (!conditionals_.active()) {
        if (directive != nullptr && directive->conditional)
            directive->handler(*this, {}, scanned.operand);
        return;
    }
    listing_.beginLine(frames_.back().displayName, lineNumber(), line, bank_, location_);
    if (scanned.labelMalformed) {
        error(Diagnostic::InvalidLabel);
        return;
    }
    const LabelUse labelUse = directive != nullptr ? directive->labelUse : LabelUse::AtLocation;
    if (!scanned.label.empty() && labelUse == LabelUse::AtLocation)
        defineLabel(scanned.label);
    if (scanned.statementMalformed) {
        error(Diagnostic::SyntaxError);
        return;
    }
    if (scanned.mnemonic.empty())
        return;

    if (directive != nullptr) {
        if (directive->handler == nullptr) {
            error(Diagnostic::UnsupportedDirective);
        } else {
            if (labelUse == LabelUse::Refused && !scanned.label.empty())
                error(Diagnostic::LabelNotAllowed);
            directive->handler(*this, labelUse == LabelUse::Defines ? scanned.label : std::string_view{}, scanned.operand);
            if (labelUse == LabelUse::AfterStatement && !scanned.label.empty())
                defineLabel(scanned.label);
        }
    } else if (const Instruction* instruction = findInstruction(scanned.mnemonic)) {
        assembleInstruction(*this, *instruction, scanned.operand);
    } else {
        error(scanned.mnemonic[0] == '.' ? Diagnostic::UnknownDirective : Diagnostic::UnknownInstruction);
    }
    if (overflowBytes_ > 0)
        warning(Diagnostic::BankOverflowWarning, overflowBytes_);
}

SourcePosition Assembler::position() const
{
    SourcePosition position;
    for (const Frame& frame : frames_)
        position.fileChain.push_back(frame.displayName);
    if (!frames_.empty()) {
        const Frame& frame = frames_.back();
        position.lineNumber = static_cast<int>(frame.lineIndex) + 1;
        position.lineText = frame.text->lines[frame.lineIndex];
    }
    return position;
}

int Assembler::lineNumber() const
{
    return static_cast<int>(frames_.back().lineIndex) + 1;
}

ExpressionResult Assembler::evaluate(std::string_view text, std::size_t start)
{
    const ExpressionResult result = evaluateExpression(text, start, {symbols_, scope_, location_});
    if (result.undefined) {
        undefinedInPass_ = true;
        if (!undefinedReported_ && result.error == Diagnostic::None) {
            error(Diagnostic::UndefinedSymbol);
            undefinedReported_ = true;
        }
    }
    return result;
}

std::optional<OperandValue> Assembler::evaluateWhole(std::string_view operand)
{
    if (operand.empty()) {
        error(Diagnostic::SyntaxError);
        return std::nullopt;
    }
    const ExpressionResult result = evaluate(operand, 0);
    if (result.error != Diagnostic::None || result.end != operand.size()) {
        error(result.error != Diagnostic::None ? result.error : Diagnostic::SyntaxError);
        return std::nullopt;
    }
    return OperandValue{result.value, result.undefined};
}

void Assembler::emit(std::uint8_t byte)
{
    if (overflowFailed_)
        return;
    if (bankOffset_ >= BankImage::kBankSize) {
        // Code or data running past the end of a bank goes on in the next one, with a warning.
        if (bank_ + 1 >= BankImage::kMaxBanks) {
            error(Diagnostic::BankOverflowError, static_cast<unsigned>(location_ & 0xFFFF),
                  static_cast<unsigned>(bankOffset_), static_cast<unsigned>(BankImage::kBankSize - 1));
            overflowFailed_ = true;
            return;
        }
        ++bank_;
        bankOffset_ -= BankImage::kBankSize;
        spilled_ = true;
    }
    if (spilled_)
        ++overflowBytes_;
    image_.write(bank_, bankOffset_, byte);
    listing_.addByte(byte);
    ++bankOffset_;
    ++location_;
}

void Assembler::defineSymbol(std::string_view name, std::int64_t value)
{
    if (symbols_.define(name, scope_, value) == SymbolTable::Definition::Conflict)
        error(Diagnostic::LabelMultiplyDefined);
}

void Assembler::defineLabel(std::string_view name)
{
    defineSymbol(name, location_);
    if (name[0] != '.')
        scope_ = name;
}

void Assembler::selectBank(std::int64_t bank)
{
    if (bank < 0 || bank >= BankImage::kMaxBanks) {
        error(Diagnostic::BankOutOfRange);
        return;
    }
    bank_ = static_cast<int>(bank);
    bankOffset_ = 0;
    // The address window chosen by the last .ORG stays; the bank starts at its first byte.
    location_ &= 0xE000;
    image_.touch(bank_);
}

void Assembler::setOrigin(std::int64_t address)
{
    if (address < 0 || address > 0xFFFF) {
        error(Diagnostic::IncorrectAddress);
        return;
    }
    location_ = address;
    bankOffset_ = static_cast<int>(address & 0x1FFF);
}

void Assembler::includeSource(std::string_view name)
{
    if (frames_.size() >= kMaxIncludeLevels) {
        error(Diagnostic::TooManyIncludeLevels);
        return;
    }
    const std::optional<std::string> location = files_.locate(name, frames_.back().text->location);
    const SourceText* text = location ? loadSource(*location) : nullptr;
    if (text == nullptr) {
        error(Diagnostic::CannotOpenInclude, std::string(name).c_str());
        return;
    }
    if (!includedFiles_.insert(text->location).second) {
        error(Diagnostic::RepeatedInclude);
        return;
    }
    assembleFile(name, *text);
    // The included lines have reported their own bank overflow; the INCLUDE line itself emitted nothing.
    spilled_ = false;
    overflowBytes_ = 0;
}

void Assembler::includeBinary(std::string_view name, std::optional<OperandValue> offset,
                              std::optional<OperandValue> length)
{
    const std::optional<std::string> location = files_.locate(name, frames_.back().text->location);
    const std::string* content = location ? loadBinary(*location) : nullptr;
    if (content == nullptr) {
        error(Diagnostic::CannotOpenBinary, std::string(name).c_str());
        return;
    }
    if ((offset && offset->undefined) || (length && length->undefined))
        return;
    const auto size = static_cast<std::int64_t>(content->size());
    const std::int64_t start = offset ? offset->value : 0;
    const std::int64_t count = length ? length->value : size - start;
    if (start < 0 || start > size || count < 0 || count > size - start) {
        error(Diagnostic::BinaryRangeOutsideFile);
        return;
    }
    for (std::int64_t i = 0; i < count && !overflowFailed_; ++i)
        emit(static_cast<std::uint8_t>((*content)[static_cast<std::size_t>(start + i)]));
}

} // namespace zunbrix::nesasm
