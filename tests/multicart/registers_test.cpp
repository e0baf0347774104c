#include "multicart/layout.h"
#include "multicart/registers.h"
#include "multicart/validation.h"
#include "synthetic_rom.h"

#include <gtest/gtest.h>

#include <random>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

using Bytes4 = std::array<std::uint8_t, 4>;
using Bytes8 = std::array<std::uint8_t, 8>;

NesImage placed(std::uint32_t mapper, std::uint32_t prgBanks, std::uint32_t prgOffset, std::uint32_t chrBanks,
                std::uint32_t chrOffset)
{
    NesImage image = imageOf(1, prgBanks, chrBanks, mapper);
    image.prgOffset = prgOffset;
    image.chrOffset = chrOffset;
    return image;
}

GameFinalData finalDataOf(const NesImage& image, BoardType board)
{
    return computeFinalData({image}, board).at(0);
}

unsigned bit(unsigned value, unsigned index)
{
    return (value >> index) & 1u;
}

// Reads a window back out of COOLBOY register bytes: where it starts and how large it is.
struct Window {
    std::uint32_t offset;
    std::uint32_t bytes;
};

std::uint32_t outerBankOf(std::uint8_t reg0, std::uint8_t reg1)
{
    return (reg0 & 7u) << 17 | bit(reg0, 4) << 23 | bit(reg0, 5) << 24 | bit(reg1, 2) << 21 | bit(reg1, 3) << 22 |
           bit(reg1, 4) << 20;
}

std::uint32_t maskOf(std::uint8_t reg0, std::uint8_t reg1)
{
    return (bit(reg1, 5) ^ 1) << 3 | (bit(reg1, 6) ^ 1) << 2 | bit(reg1, 7) << 1 | bit(reg0, 6);
}

Window decodePrg(const GameFinalData& data, bool nrom)
{
    const auto& r = data.prgReg;
    const std::uint32_t offset = outerBankOf(r[0], r[1]) | ((r[3] >> 1) & 7u) << 14;
    if (nrom)
        return {offset, bit(r[1], 1) ? 32768u : 16384u};
    return {offset, (16 - maskOf(r[0], r[1])) << 17};
}

Window decodeChr(const GameFinalData& data)
{
    const auto& r = data.chrReg;
    return {outerBankOf(r[0], r[1]) | (r[3] & 15u) << 13, (16 - maskOf(r[0], r[1])) << 17};
}

} // namespace

TEST(CoolboyRegisters, OffsetsAndWindowMasks)
{
    // 256 KB window at 0x1540000, CHR 128 KB at 0x1E0000.
    GameFinalData data = finalDataOf(placed(4, 16, 0x1540000, 16, 0x1E0000), BoardType::Coolboy);
    EXPECT_EQ(data.prgReg, (Bytes8{0xA2, 0x98, 0, 0x80, 0, 0, 0, 0}));
    EXPECT_EQ(data.chrReg, (Bytes4{0x47, 0x90, 0, 0}));
    EXPECT_EQ(data.chrOffset8k, 0x1E0000 >> 13);

    // Mask 15 for 128 KB, 0 for 2 MB; 256 KB of CHR clears bit 7 of the first byte.
    EXPECT_EQ(finalDataOf(placed(4, 8, 0, 0, 0), BoardType::Coolboy).prgReg, (Bytes8{0xC0, 0x80, 0, 0x80}));
    EXPECT_EQ(finalDataOf(placed(4, 128, 0, 32, 0), BoardType::Coolboy).prgReg, (Bytes8{0x00, 0x60, 0, 0x80}));
}

TEST(CoolboyRegisters, NromUsesTheFineMode)
{
    GameFinalData data = finalDataOf(placed(0, 1, 0x1FFC000, 1, 0x1FFE000), BoardType::Mindkids);
    EXPECT_EQ(data.prgReg, (Bytes8{0xF7, 0x9C, 0, 0x9E, 0, 0, 0, 0}));
    EXPECT_EQ(data.chrReg, (Bytes4{0xF7, 0x9C, 0, 0x1F}));
    data = finalDataOf(placed(0, 2, 0, 0, 0), BoardType::Coolboy);
    EXPECT_EQ(data.prgReg[1], 0x82); // 2 in the low bits, bit 7 set, bits 5 and 6 clear
}

TEST(CoolboyRegisters, DecodeBackToTheLayoutForRandomGames)
{
    std::mt19937 random(99);
    static constexpr std::uint32_t kSizes[][3] = {{1, 0, 0}, {2, 1, 0}, {1, 1, 0}, {8, 0, 4}, {8, 16, 4}, {16, 32, 74},
                                                  {32, 8, 4}, {64, 64, 4}, {128, 0, 4}, {2, 3, 4}, {4, 1, 74}};
    for (int round = 0; round < 20; ++round) {
        std::vector<NesImage> games;
        for (std::uint32_t i = 0; i < 40; ++i) {
            const auto& size = kSizes[random() % std::size(kSizes)];
            games.push_back(imageOf(i, size[0], size[1], size[2]));
            games.back().verticalMirroring = random() % 2;
            games.back().battery = random() % 2;
        }
        normaliseChr(games);
        normalisePrg(games);
        const LayoutResult layout = layoutRom(imageOf(0, 8, 0, 0), games, BoardType::Coolboy);
        ASSERT_LE(layout.romBytes, 32u << 20);
        const std::vector<GameFinalData> finalData = computeFinalData(layout.images, BoardType::Coolboy);
        ASSERT_EQ(finalData.size(), games.size());
        std::size_t next = 0;
        for (const NesImage& image : layout.images) {
            if (image.isMenu)
                continue;
            const GameFinalData& data = finalData[next++];
            ASSERT_EQ(data.name, image.name);
            const Window prg = decodePrg(data, image.mapper == 0);
            EXPECT_EQ(prg.offset, image.prgOffset) << image.name.toStdString();
            EXPECT_EQ(prg.bytes, image.prgLayoutBytes) << image.name.toStdString();
            EXPECT_EQ(prg.offset % prg.bytes, 0u);
            EXPECT_EQ(bit(data.prgReg[0], 7) ^ 1, bit(image.chrLayoutBanks, 5));
            if (image.chrLayoutBanks != 0) {
                const Window chr = decodeChr(data);
                EXPECT_EQ(chr.offset, image.chrOffset);
                // Below 128 KB the window stays 128 KB and the bank bits pick the CHR inside it.
                EXPECT_EQ(chr.bytes, std::max<std::uint64_t>(image.chrLayoutBytes, 131072));
            }
            EXPECT_EQ(data.flags, image.verticalMirroring | image.battery << 1);
        }
    }
}

TEST(CoolgirlRegisters, ByteByByte)
{
    // A 512 KB menu and a 32 KB first game right behind it.
    std::vector<NesImage> games{imageOf(1, 2, 0, 2)};
    const LayoutResult layout = layoutRom(imageOf(0, 32, 0, 0), games, BoardType::Coolgirl);
    GameFinalData data = computeFinalData(layout.images, BoardType::Coolgirl).at(0);
    // PRG mask 126, CHR RAM with mask 0, UNROM logic 1, horizontal mirroring.
    EXPECT_EQ(data.prgReg, (Bytes8{0, 32, 126, 0, 0, 0, 1, 0x8B}));
    EXPECT_EQ(data.chrReg, (Bytes4{}));

    // One CHR bank: mask 63 split over bytes 2 and 4. MMC1 logic 16, vertical mirroring.
    NesImage mmc1 = placed(1, 128, 0, 1, 0x26000);
    mmc1.verticalMirroring = true;
    mmc1.fourScreen = true;
    mmc1.battery = true;
    data = finalDataOf(mmc1, BoardType::Coolgirl);
    EXPECT_EQ(data.prgReg, (Bytes8{0, 0, 0x80, 0, 31, 0, 16, 0xA1}));
    EXPECT_EQ(data.chrOffset8k, 0x13);
    EXPECT_EQ(data.chrCount8k, 1);
    EXPECT_EQ(data.flags, 7);

    // Mapper 74 runs as mapper 4 with CHR RAM although it has 8 banks.
    data = finalDataOf(placed(74, 8, 0x4000000, 8, 0), BoardType::Coolgirl);
    EXPECT_EQ(data.prgReg, (Bytes8{0x10, 0x00, 0xF8, 0x80, 0x58, 0, 20, 0x8B}));
    // The odd 228 size gives mask 32; mapper 42 sets 7C; logic 32 of mapper 38 needs bit 6 of byte 7.
    EXPECT_EQ(finalDataOf(placed(228, 96, 0, 0, 0), BoardType::Coolgirl).prgReg[2], 32);
    EXPECT_EQ(finalDataOf(placed(42, 8, 0, 0, 0), BoardType::Coolgirl).prgReg[5], 0x7C);
    EXPECT_EQ(finalDataOf(placed(38, 8, 0, 0, 0), BoardType::Coolgirl).prgReg[7], 0xCB);
    EXPECT_EQ(finalDataOf(placed(38, 8, 0, 0, 0), BoardType::Coolgirl).prgReg[6], 0);

    EXPECT_TRUE(computeFinalData(layout.images, BoardType(3)).empty());
}
