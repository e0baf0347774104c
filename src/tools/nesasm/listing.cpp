#include "tools/nesasm/listing.h"

#include <algorithm>
#include <cstdio>

namespace zunbrix::nesasm {

namespace {

constexpr std::size_t kBytesPerRow = 8;

void appendRow(std::string& text, const char* head, const std::uint8_t* bytes, std::size_t count, bool withBytes)
{
    text += head;
    std::string hex;
    if (withBytes) {
        for (std::size_t i = 0; i < count; ++i) {
            char digits[4];
            std::snprintf(digits, sizeof digits, "%02X ", bytes[i]);
            hex += digits;
        }
        hex.resize(kBytesPerRow * 3, ' ');
        text += hex;
    }
}

} // namespace

void Listing::clear()
{
    lines_.clear();
    bytes_.clear();
}

void Listing::beginLine(std::string_view fileName, int lineNumber, std::string_view text, int bank,
                        std::int64_t location)
{
    if (level_ > 0)
        lines_.push_back({fileName, lineNumber, text, bank, location, bytes_.size()});
}

void Listing::addByte(std::uint8_t byte)
{
    if (level_ > 0)
        bytes_.push_back(byte);
}

std::string Listing::render() const
{
    std::string text;
    std::string_view shownFile;
    for (std::size_t i = 0; i < lines_.size(); ++i) {
        const Line& line = lines_[i];
        const std::size_t end = i + 1 < lines_.size() ? lines_[i + 1].firstByte : bytes_.size();
        const std::size_t count = end - line.firstByte;
        if (line.fileName != shownFile) {
            text += "#[";
            text += line.fileName;
            text += "]\n";
            shownFile = line.fileName;
        }
        char head[32];
        std::snprintf(head, sizeof head, "%05i  %02X:%04X  ", line.lineNumber, line.bank,
                      static_cast<unsigned>(line.location & 0xFFFF));
        const std::uint8_t* bytes = bytes_.data() + line.firstByte;
        appendRow(text, head, bytes, std::min(count, kBytesPerRow), level_ >= 2);
        text += line.text;
        text += '\n';
        if (level_ < 3)
            continue;
        for (std::size_t done = kBytesPerRow; done < count; done += kBytesPerRow) {
            appendRow(text, "                ", bytes + done, std::min(count - done, kBytesPerRow), true);
            text += '\n';
        }
    }
    return text;
}

} // namespace zunbrix::nesasm
