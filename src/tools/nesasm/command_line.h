#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zunbrix::nesasm {

// What the user asked for on the command line: nesasm [-options] infile.
struct CommandLine {
    std::string input;
    std::string output; // empty: the input's name with .nes
    bool withHeader = true;
    std::uint8_t fillByte = 0xFF;
    bool segmentUsage = false;
    int listingLevel = 0;
    bool help = false;
    std::string fault; // a message for the user when the arguments make no sense
};

CommandLine parseCommandLine(const std::vector<std::string>& arguments);

// The usage line and the option list that -? prints.
std::string usageText(const std::string& programName);

// The input as the user named it, with .asm added when the file name has no extension.
std::string inputPath(const std::string& input);
// The file beside the input with its extension replaced.
std::string siblingPath(const std::string& input, const char* extension);

} // namespace zunbrix::nesasm
