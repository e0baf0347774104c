#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zunbrix::nesasm {

// The header fields that .INESPRG, .INESCHR, .INESMAP and .INESMIR set.
struct InesHeader {
    int prgBanks16k = 0;
    int chrBanks8k = 0;
    int mapper = 0;
    int mirroring = 0;

    std::array<std::uint8_t, 16> bytes() const;
};

// The assembled program as 8 KB banks. The image reaches up to the highest bank that was named or written;
// bytes nobody wrote take the fill value when the image is put out.
class BankImage {
public:
    static constexpr int kBankSize = 0x2000;
    // 4 MB of program, the most an iNES header can describe.
    static constexpr int kMaxBanks = 512;

    void clear();
    void touch(int bank); // bank must lie below kMaxBanks
    void write(int bank, int offset, std::uint8_t byte);

    int bankCount() const { return static_cast<int>(usedBytes_.size()); }
    int usedBytes(int bank) const { return usedBytes_[static_cast<std::size_t>(bank)]; }
    std::vector<std::uint8_t> bytes(std::uint8_t fill) const;

private:
    std::vector<std::uint8_t> data_;
    std::vector<std::uint8_t> written_;
    std::vector<int> usedBytes_;
};

} // namespace zunbrix::nesasm
