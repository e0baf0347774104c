#include "multicart/registers.h"

namespace zunbrix {

namespace {

constexpr std::uint8_t bit(std::uint64_t value, unsigned index)
{
    return std::uint8_t((value >> index) & 1u);
}

// The board's address bits 17 to 24 spread over two registers, as the COOLBOY outer bank registers hold them.
void setCoolboyOuterBank(std::uint8_t& reg0, std::uint8_t& reg1, std::uint64_t offset)
{
    reg0 |= std::uint8_t(bit(offset, 17) | bit(offset, 18) << 1 | bit(offset, 19) << 2);
    reg0 |= std::uint8_t(bit(offset, 23) << 4 | bit(offset, 24) << 5);
    reg1 |= std::uint8_t(bit(offset, 21) << 2 | bit(offset, 22) << 3 | bit(offset, 20) << 4);
}

// The window mask (16 minus the window in 128 KB units), two of its bits stored inverted.
void setCoolboyMask(std::uint8_t& reg0, std::uint8_t& reg1, std::uint8_t mask)
{
    reg1 |= std::uint8_t((bit(mask, 3) ^ 1) << 5 | (bit(mask, 2) ^ 1) << 6 | bit(mask, 1) << 7);
    reg0 |= std::uint8_t(bit(mask, 0) << 6);
}

void fillCoolboyRegisters(const NesImage& image, GameFinalData& data)
{
    auto& prg = data.prgReg;
    auto& chr = data.chrReg;
    const std::uint64_t o = image.prgOffset;
    setCoolboyOuterBank(prg[0], prg[1], o);
    prg[3] = std::uint8_t(((o >> 14) & 7u) << 1 | 0x80);
    setCoolboyMask(prg[0], prg[1], std::uint8_t(16 - (image.prgLayoutBanks >> 3)));
    prg[0] |= std::uint8_t((bit(image.chrLayoutBanks, 5) ^ 1) << 7);

    const std::uint64_t c = image.chrOffset;
    setCoolboyOuterBank(chr[0], chr[1], c);
    chr[3] = std::uint8_t((c >> 13) & 15u);
    const std::uint32_t chrWindow128k = image.chrLayoutBanks >> 4;
    setCoolboyMask(chr[0], chr[1], std::uint8_t(16 - (chrWindow128k == 0 ? 1 : chrWindow128k)));

    if (image.mapper == 0) {
        // An NROM game sits in a 16 KB or 32 KB window: the board's fine mode.
        prg[1] |= std::uint8_t(image.prgLayoutBanks & ~1u);
        prg[0] |= 0xC0;
        prg[1] = (prg[1] & 0x1F) | 0x80;
        prg[3] |= 0x10;
        chr[0] |= 0xC0;
        chr[1] = (chr[1] & 0x1F) | 0x80;
        chr[3] |= 0x10;
    }
}

void fillCoolgirlRegisters(const NesImage& image, GameFinalData& data)
{
    const CoolgirlMapperRow& row = coolgirlRowFor(image.mapper);
    auto& reg = data.prgReg;
    const auto startBank16k = std::uint16_t(image.prgOffset >> 14);
    reg[0] = std::uint8_t(startBank16k >> 8);
    reg[1] = std::uint8_t(startBank16k);
    const std::uint8_t chrMask = (64 - image.chrLayoutBanks) & 63;
    reg[2] = std::uint8_t(((128 - image.prgLayoutBanks) & 127) | bit(chrMask, 5) << 7);
    reg[3] = std::uint8_t(row.prgMode << 5);
    reg[4] = std::uint8_t((chrMask & 31) | row.chrMode << 5);
    reg[5] = image.mapper == 42 ? 0x7C : 0;
    reg[6] = std::uint8_t((row.boardMapper & 31) | row.mapperFlags << 5);
    const bool chrRam = image.chrLayoutBanks == 0 || image.mapper == 74;
    reg[7] = std::uint8_t(0x81 | bit(row.boardMapper, 5) << 6 | image.fourScreen << 5 | !image.verticalMirroring << 3 |
                          chrRam << 1);
}

} // namespace

std::vector<GameFinalData> computeFinalData(const std::vector<NesImage>& images, BoardType boardType)
{
    std::vector<GameFinalData> result;
    if (boardType != BoardType::Coolboy && boardType != BoardType::Mindkids && boardType != BoardType::Coolgirl)
        return result;
    result.reserve(images.size());
    for (const NesImage& image : images) {
        if (image.isMenu)
            continue;
        GameFinalData data;
        data.name = image.name;
        data.chrOffset8k = std::uint16_t(image.chrOffset >> 13);
        data.chrCount8k = std::uint8_t(image.chrBanks);
        if (boardType == BoardType::Coolgirl)
            fillCoolgirlRegisters(image, data);
        else
            fillCoolboyRegisters(image, data);
        data.flags = std::uint8_t(image.verticalMirroring | image.battery << 1 | image.fourScreen << 2);
        result.push_back(std::move(data));
    }
    return result;
}

} // namespace zunbrix
