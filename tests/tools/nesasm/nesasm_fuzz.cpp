// libFuzzer target: any source text must assemble or be refused with messages, never crash, hang or leak.
// The input is the main source; it can include itself (a repeated include) and one small binary file.
#include "tools/nesasm/assembler.h"

#include <cstddef>
#include <cstdint>

namespace {

class MemoryFiles : public zunbrix::nesasm::FileSource {
public:
    explicit MemoryFiles(std::string source) : source_(std::move(source)) {}

    std::optional<std::string> locate(std::string_view name, std::string_view) override
    {
        if (name == "main.asm" || name == "self.asm")
            return std::string("main.asm");
        if (name == "data.bin")
            return std::string("data.bin");
        return std::nullopt;
    }

    std::optional<std::string> read(const std::string& location) override
    {
        if (location == "main.asm")
            return source_;
        std::string binary(300, '\0');
        for (std::size_t i = 0; i < binary.size(); ++i)
            binary[i] = static_cast<char>(i);
        return binary;
    }

private:
    std::string source_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryFiles files(std::string(reinterpret_cast<const char*>(data), size));
    zunbrix::nesasm::AssemblerOptions options;
    options.listingLevel = 3;
    zunbrix::nesasm::assemble("main.asm", options, files);
    return 0;
}
