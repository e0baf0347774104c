#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zunbrix::nesasm {

// The listing file: each assembled line with its bank, address and the bytes it produced.
// Level 0 records nothing, 1 shows addresses only, 2 adds the first eight bytes, 3 all bytes.
class Listing {
public:
    explicit Listing(int level) : level_(level) {}

    void clear();
    void beginLine(std::string_view fileName, int lineNumber, std::string_view text, int bank, std::int64_t location);
    void addByte(std::uint8_t byte);
    std::string render() const;

private:
    struct Line {
        std::string_view fileName;
        int lineNumber;
        std::string_view text;
        int bank;
        std::int64_t location;
        std::size_t firstByte;
    };

    int level_;
    std::vector<Line> lines_;
    std::vector<std::uint8_t> bytes_;
};

} // namespace zunbrix::nesasm
