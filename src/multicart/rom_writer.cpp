#include "multicart/rom_writer.h"

#include <QByteArray>

#include <limits>

namespace zunbrix {

namespace {

// From this size on, NES 2.0's plain 12-bit count of 16 KB units no longer holds the ROM.
constexpr std::uint64_t kExponentFormFromBytes = 62898177;

QByteArray littleEndian32(std::uint32_t value)
{
    const char bytes[4] = {char(value), char(value >> 8), char(value >> 16), char(value >> 24)};
    return QByteArray(bytes, sizeof bytes);
}

QByteArray unifChunkStart(const char (&name)[5], std::uint32_t size)
{
    return QByteArray(name, 4) + littleEndian32(size);
}

} // namespace

NesHeader makeNesHeader(std::uint64_t romBytes, std::uint16_t mapper, std::uint8_t submapper)
{
    NesHeader header;
    auto& b = header.bytes;
    b[0] = 'N';
    b[1] = 'E';
    b[2] = 'S';
    b[3] = 0x1A;
    if (romBytes < kExponentFormFromBytes) {
        const auto units16k = std::uint32_t(romBytes >> 14);
        b[4] = std::uint8_t(units16k);
        b[9] = std::uint8_t((units16k >> 8) & 15);
        header.statedRomBytes = romBytes;
    } else {
        // Exponent form with a multiplier of 1: the smallest power of two that holds the ROM.
        b[9] = 15;
        for (unsigned exponent = 0; exponent < 32; ++exponent) {
            if ((std::uint64_t(1) << exponent) >= romBytes) {
                b[4] = std::uint8_t(exponent * 4);
                header.statedRomBytes = std::uint64_t(1) << exponent;
                break;
            }
        }
    }
    b[6] = std::uint8_t((mapper & 15) << 4 | (mapper == 342 ? 0x02 : 0));
    b[7] = std::uint8_t(((mapper >> 4) & 15) << 4 | 0x08);
    b[8] = std::uint8_t(((mapper >> 8) & 15) | (submapper & 15) << 4);
    b[10] = mapper == 268 ? 0x70 : mapper == 342 ? 0x90 : 0;
    b[11] = 12; // 256 KB of CHR RAM
    return header;
}

RomWriteResult writeNes(const LayoutResult& layout, const QString& path, std::uint16_t mapper, std::uint8_t submapper,
                        const std::atomic<bool>* stop)
{
    const NesHeader header = makeNesHeader(layout.romBytes, mapper, submapper);
    if (header.statedRomBytes < layout.romBytes)
        return {false, {}};
    // The exponent form states a power of two; the file holds all of it, the rest erased flash.
    const QByteArray start(reinterpret_cast<const char*>(header.bytes.data()), header.bytes.size());
    return writeFlashFile(layout, path, start, header.statedRomBytes - layout.romBytes, stop);
}

RomWriteResult writeRaw(const LayoutResult& layout, const QString& path, const QString& boardName, bool unif,
                        const std::atomic<bool>* stop)
{
    if (!unif)
        return writeFlashFile(layout, path, {}, 0, stop);
    // UNIF counts a chunk's length in 32 bits.
    if (layout.romBytes > std::numeric_limits<std::uint32_t>::max())
        return {false, {}};
    const QByteArray board = boardName.toUtf8() + '\0';
    const char mirroring = 5;
    QByteArray unifHeader(32, '\0');
    unifHeader.replace(0, 5, "UNIF\x05"); // revision 5, little-endian
    return writeFlashFile(layout, path,
                          unifHeader + unifChunkStart("MAPR", std::uint32_t(board.size())) + board +
                              unifChunkStart("MIRR", 1) + mirroring +
                              unifChunkStart("PRG0", std::uint32_t(layout.romBytes)),
                          0, stop);
}

} // namespace zunbrix
