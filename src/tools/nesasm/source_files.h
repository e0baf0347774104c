#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace zunbrix::nesasm {

// Paths travel through the assembler as UTF-8 text; these convert at the edge to the file system.
std::filesystem::path pathOfUtf8(std::string_view text);
std::string utf8TextOf(const std::filesystem::path& path);

// Where the assembler's files come from. A location is the file's identity: one file reached by two
// spellings has one location, which is what the repeated-include check compares.
class FileSource {
public:
    virtual ~FileSource() = default;

    // The file that `name`, as written in a directive, means when read from the file at `includer`
    // (empty for the main source); nullopt when there is none.
    virtual std::optional<std::string> locate(std::string_view name, std::string_view includer) = 0;
    // The whole content, or nullopt when it cannot be read.
    virtual std::optional<std::string> read(const std::string& location) = 0;
};

// Files on disk. A relative name is looked up from the current folder first, as the build runs the tool in
// the folder of the main source, then from the folder of the including file. Both separators work.
class DiskFileSource : public FileSource {
public:
    std::optional<std::string> locate(std::string_view name, std::string_view includer) override;
    std::optional<std::string> read(const std::string& location) override;
};

} // namespace zunbrix::nesasm
