#include "tools/nesasm/assembler.h"
#include "tools/nesasm/command_line.h"
#include "tools/nesasm/source_files.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#include <shellapi.h>
#endif

using namespace zunbrix::nesasm;

namespace {

constexpr const char* kBanner = "NES Assembler (v3.2.0.7 Bulid Date: 20240701)\n";
constexpr const char* kProgramName = "nesasm";

// Written beside the target and renamed into place when complete, so a failed write never leaves a
// truncated image where an earlier good one stood.
bool writeFile(const std::string& path, const void* data, std::size_t size)
{
    const std::filesystem::path target = pathOfUtf8(path);
    std::filesystem::path temporary = target;
    temporary += ".part";
    std::ofstream file(temporary, std::ios::binary | std::ios::trunc);
    file.write(static_cast<const char*>(data), static_cast<std::streamsize>(size));
    file.close();
    std::error_code error;
    if (!file.fail())
        std::filesystem::rename(temporary, target, error);
    if (file.fail() || error) {
        std::filesystem::remove(temporary, error);
        return false;
    }
    return true;
}

// The arguments as UTF-8, which is how paths travel through the assembler. Windows hands main() the
// ANSI code page, which cannot spell every folder name, so there the wide command line is read instead.
std::vector<std::string> utf8Arguments(int argc, char** argv)
{
#ifdef _WIN32
    (void)argc;
    (void)argv;
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; wide && i < count; ++i)
        arguments.push_back(utf8TextOf(std::filesystem::path(wide[i])));
    LocalFree(wide);
    return arguments;
#else
    return std::vector<std::string>(argv + 1, argv + argc);
#endif
}

void printSegmentUsage(const std::vector<int>& usedBytesPerBank)
{
    std::printf("segment usage:\n");
    for (std::size_t bank = 0; bank < usedBytesPerBank.size(); ++bank) {
        const int used = usedBytesPerBank[bank];
        std::printf("  bank %3zu   used %5d bytes   free %5d bytes\n", bank, used, 0x2000 - used);
    }
}

} // namespace

int main(int argc, char** argv)
{
    // Everything goes to standard output, where the build catches it whole.
    std::fputs(kBanner, stdout);
    const CommandLine line = parseCommandLine(utf8Arguments(argc, argv));
    if (!line.fault.empty() || line.help || line.input.empty()) {
        if (!line.fault.empty())
            std::printf("%s\n", line.fault.c_str());
        std::fputs(usageText(kProgramName).c_str(), stdout);
        return line.help && line.fault.empty() ? 0 : 1;
    }

    const std::string input = inputPath(line.input);
    DiskFileSource files;
    const AssemblyResult result = assemble(input, {line.withHeader, line.fillByte, line.listingLevel}, files);
    if (!result.inputOpened) {
        std::printf("Can not open input file '%s'!\n", input.c_str());
        return -1;
    }
    // Written by size: a source line may hold a NUL byte, which must not cut the report short.
    std::fwrite(result.messages.data(), 1, result.messages.size(), stdout);
    if (result.errorCount > 0) {
        std::printf("# %d error(s)\n", result.errorCount);
        return 1;
    }

    const std::string output = line.output.empty() ? siblingPath(input, ".nes") : line.output;
    if (!writeFile(output, result.output.data(), result.output.size())) {
        std::printf("Can not write output file '%s'!\n", output.c_str());
        return 1;
    }
    if (line.listingLevel > 0) {
        const std::string listing = siblingPath(input, ".lst");
        if (!writeFile(listing, result.listing.data(), result.listing.size())) {
            std::printf("Can not write listing file '%s'!\n", listing.c_str());
            return 1;
        }
    }
    if (line.segmentUsage)
        printSegmentUsage(result.usedBytesPerBank);
    return 0;
}
