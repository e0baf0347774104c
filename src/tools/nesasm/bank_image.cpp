#include "tools/nesasm/bank_image.h"

namespace zunbrix::nesasm {

std::array<std::uint8_t, 16> InesHeader::bytes() const
{
    std::array<std::uint8_t, 16> header{};
    header[0] = 'N';
    header[1] = 'E';
    header[2] = 'S';
    header[3] = 0x1A;
    header[4] = static_cast<std::uint8_t>(prgBanks16k);
    header[5] = static_cast<std::uint8_t>(chrBanks8k);
    header[6] = static_cast<std::uint8_t>(((mapper & 0x0F) << 4) | (mirroring & 0x0F));
    header[7] = static_cast<std::uint8_t>(mapper & 0xF0);
    return header;
}

void BankImage::clear()
{
    data_.clear();
    written_.clear();
    usedBytes_.clear();
}

void BankImage::touch(int bank)
{
    const auto count = static_cast<std::size_t>(bank) + 1;
    if (count <= usedBytes_.size())
        return;
    usedBytes_.resize(count, 0);
    data_.resize(count * kBankSize, 0);
    written_.resize(count * kBankSize, 0);
}

void BankImage::write(int bank, int offset, std::uint8_t byte)
{
    touch(bank);
    const auto at = static_cast<std::size_t>(bank) * kBankSize + static_cast<std::size_t>(offset);
    data_[at] = byte;
    if (written_[at] == 0) {
        written_[at] = 1;
        ++usedBytes_[static_cast<std::size_t>(bank)];
    }
}

std::vector<std::uint8_t> BankImage::bytes(std::uint8_t fill) const
{
    std::vector<std::uint8_t> image(data_.size());
    for (std::size_t i = 0; i < image.size(); ++i)
        image[i] = written_[i] != 0 ? data_[i] : fill;
    return image;
}

} // namespace zunbrix::nesasm
