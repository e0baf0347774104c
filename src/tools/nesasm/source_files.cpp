#include "tools/nesasm/source_files.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <memory>

namespace zunbrix::nesasm {

namespace {

namespace fs = std::filesystem;

// No source or binary file of an 8 KB-banked image is anywhere near this; bigger files are refused unread.
constexpr std::uintmax_t kMaxFileBytes = 16u << 20;

std::optional<std::string> existingFile(const fs::path& path)
{
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        return std::nullopt;
    const fs::path canonical = fs::weakly_canonical(path, error);
    return error ? path.string() : canonical.string();
}

} // namespace

std::optional<std::string> DiskFileSource::locate(std::string_view name, std::string_view includer)
{
    std::string spelled(name);
    std::replace(spelled.begin(), spelled.end(), '\\', '/');
    const fs::path path(spelled);
    if (std::optional<std::string> found = existingFile(path))
        return found;
    if (path.is_absolute() || includer.empty())
        return std::nullopt;
    return existingFile(fs::path(std::string(includer)).parent_path() / path);
}

std::optional<std::string> DiskFileSource::read(const std::string& location)
{
    std::error_code error;
    const std::uintmax_t size = fs::file_size(location, error);
    if (error || size > kMaxFileBytes)
        return std::nullopt;
    std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(location.c_str(), "rb"), &std::fclose);
    if (!file)
        return std::nullopt;
    std::string content(static_cast<std::size_t>(size), '\0');
    if (std::fread(content.data(), 1, content.size(), file.get()) != content.size())
        return std::nullopt;
    return content;
}

} // namespace zunbrix::nesasm
