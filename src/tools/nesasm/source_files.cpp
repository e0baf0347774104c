#include "tools/nesasm/source_files.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

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
    return utf8TextOf(error ? path : canonical);
}

} // namespace

std::filesystem::path pathOfUtf8(std::string_view text)
{
    return fs::path(std::u8string(text.begin(), text.end()));
}

std::string utf8TextOf(const std::filesystem::path& path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

std::optional<std::string> DiskFileSource::locate(std::string_view name, std::string_view includer)
{
    std::string spelled(name);
    std::replace(spelled.begin(), spelled.end(), '\\', '/');
    const fs::path path = pathOfUtf8(spelled);
    if (std::optional<std::string> found = existingFile(path))
        return found;
    if (path.is_absolute() || includer.empty())
        return std::nullopt;
    return existingFile(pathOfUtf8(includer).parent_path() / path);
}

std::optional<std::string> DiskFileSource::read(const std::string& location)
{
    const fs::path path = pathOfUtf8(location);
    std::error_code error;
    const std::uintmax_t size = fs::file_size(path, error);
    if (error || size > kMaxFileBytes)
        return std::nullopt;
    std::ifstream file(path, std::ios::binary);
    std::string content(static_cast<std::size_t>(size), '\0');
    if (!file.read(content.data(), static_cast<std::streamsize>(content.size())))
        return std::nullopt;
    return content;
}

} // namespace zunbrix::nesasm
