#include "tools/nesasm/command_line.h"
#include "tools/nesasm/line_scanner.h"

#include <string_view>

namespace zunbrix::nesasm {

namespace {

enum class OptionKind { SegmentUsage, Listing, Fill, Output, Raw, Help, Unsupported };

struct Option {
    std::string_view name;
    OptionKind kind;
    bool takesValue;
    const char* help; // nullptr: not shown in the option list
};

// The option list of this family of assemblers; the ones that concern other consoles or macros are refused.
constexpr Option kOptions[] = {
    {"-s", OptionKind::SegmentUsage, false, "-s/S    : show segment usage"},
    {"-S", OptionKind::SegmentUsage, false, nullptr},
    {"-l", OptionKind::Listing, true, "-l #    : listing file output level (0-3)"},
    {"-m", OptionKind::Unsupported, false, "-m      : force macro expansion in listing"},
    {"-fns", OptionKind::Unsupported, false, "-fns    : dump function addresses"},
    {"-fill", OptionKind::Fill, true, "-fill # : bank data fill value (00-FF)"},
    {"-bank", OptionKind::Unsupported, true, "-bank # : bank size mode (0: 8KB 1: 16KB 2: 32KB)"},
    {"-out", OptionKind::Output, true, "-out #  : specify the output file name"},
    {"-raw", OptionKind::Raw, false, "-raw    : prevent adding a ROM header"},
    {"-cd", OptionKind::Unsupported, false, "-cd     : create a CD-ROM binary image"},
    {"-scd", OptionKind::Unsupported, false, "-scd    : create a Super CD-ROM binary image"},
    {"-dev", OptionKind::Unsupported, false, "-dev    : assemble and run on the Develo Box"},
    {"-mx", OptionKind::Unsupported, false, "-mx     : create a Develo MX file"},
    {"-srec", OptionKind::Unsupported, false, "-srec  : create a Motorola S-record file"},
    {"-?", OptionKind::Help, false, nullptr},
};

// One or two hexadecimal digits, '$' allowed in front.
bool readFillByte(std::string_view text, std::uint8_t& fill)
{
    if (!text.empty() && text[0] == '$')
        text.remove_prefix(1);
    if (text.empty() || text.size() > 2)
        return false;
    int value = 0;
    for (const char c : text) {
        if (digitValue(c) < 0)
            return false;
        value = value * 16 + digitValue(c);
    }
    fill = static_cast<std::uint8_t>(value);
    return true;
}

std::size_t fileNameStart(const std::string& path)
{
    const std::size_t separator = path.find_last_of("/\\");
    return separator == std::string::npos ? 0 : separator + 1;
}

void apply(const Option& option, const std::string& value, CommandLine& line)
{
    switch (option.kind) {
    case OptionKind::SegmentUsage: line.segmentUsage = true; break;
    case OptionKind::Raw: line.withHeader = false; break;
    case OptionKind::Help: line.help = true; break;
    case OptionKind::Output: line.output = value; break;
    case OptionKind::Listing:
        if (value.size() == 1 && value[0] >= '0' && value[0] <= '3')
            line.listingLevel = value[0] - '0';
        else
            line.fault = "Listing level must be 0 to 3!";
        break;
    case OptionKind::Fill:
        if (!readFillByte(value, line.fillByte))
            line.fault = "Fill value must be 00 to FF!";
        break;
    case OptionKind::Unsupported:
        line.fault = "Option " + std::string(option.name) + " is not supported by this assembler!";
        break;
    }
}

} // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments)
{
    CommandLine line;
    for (std::size_t i = 0; i < arguments.size() && line.fault.empty(); ++i) {
        const std::string& argument = arguments[i];
        if (argument.size() < 2 || argument[0] != '-') {
            if (!line.input.empty())
                line.fault = "Only one input file, please!";
            line.input = argument;
            continue;
        }
        const Option* option = nullptr;
        for (const Option& candidate : kOptions) {
            if (candidate.name == argument)
                option = &candidate;
        }
        if (option == nullptr) {
            line.fault = "Unknown option " + argument + "!";
            break;
        }
        std::string value;
        if (option->takesValue) {
            if (i + 1 == arguments.size()) {
                line.fault = "Option " + argument + " needs a value!";
                break;
            }
            value = arguments[++i];
        }
        apply(*option, value, line);
    }
    return line;
}

std::string usageText(const std::string& programName)
{
    std::string text = programName + " [-options] [-? (for help)] infile\n\n";
    for (const Option& option : kOptions) {
        if (option.help != nullptr) {
            text += option.help;
            text += '\n';
        }
    }
    return text;
}

std::string inputPath(const std::string& input)
{
    if (input.find('.', fileNameStart(input)) == std::string::npos)
        return input + ".asm";
    return input;
}

std::string siblingPath(const std::string& input, const char* extension)
{
    const std::size_t dot = input.find_last_of('.');
    const std::size_t nameStart = fileNameStart(input);
    const std::string stem = dot != std::string::npos && dot >= nameStart ? input.substr(0, dot) : input;
    return stem + extension;
}

} // namespace zunbrix::nesasm
