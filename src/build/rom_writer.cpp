#include "build/rom_writer.h"

#include <QFile>
#include <QSaveFile>

#include <algorithm>
#include <cstring>
#include <new>

namespace zunbrix {

namespace {

// From this size on, NES 2.0's plain 12-bit count of 16 KB units no longer holds the ROM.
constexpr std::uint32_t kExponentFormFromBytes = 62898177;
constexpr std::size_t kPaddingPieceBytes = 1 << 20;

// A stretch of the flash that one image takes.
struct Region {
    std::uint64_t offset;
    std::uint64_t end;
    std::uint32_t crc;
};

// Every image inside the ROM, and no two images on the same bytes unless they share the same data there.
bool layoutFitsRom(const LayoutResult& layout)
{
    std::vector<Region> regions;
    for (const NesImage& image : layout.images) {
        regions.push_back({image.prgOffset, std::uint64_t(image.prgOffset) + image.prgLayoutBytes, image.prgCrc32});
        const std::uint32_t chrExtent = std::max(image.chrBytes, image.chrLayoutBytes);
        regions.push_back({image.chrOffset, std::uint64_t(image.chrOffset) + chrExtent, image.chrCrc32});
    }
    std::erase_if(regions, [](const Region& region) { return region.offset == region.end; });
    std::sort(regions.begin(), regions.end(),
              [](const Region& a, const Region& b) { return a.offset != b.offset ? a.offset < b.offset : a.end < b.end; });
    std::uint64_t coveredEnd = 0;
    for (std::size_t i = 0; i < regions.size(); ++i) {
        const Region& region = regions[i];
        const bool sharesPrevious = i > 0 && regions[i - 1].offset == region.offset &&
                                    regions[i - 1].end == region.end && regions[i - 1].crc == region.crc;
        if (region.offset < coveredEnd && !sharesPrevious)
            return false;
        coveredEnd = std::max(coveredEnd, region.end);
    }
    return coveredEnd <= layout.romBytes;
}

// Reads `size` bytes from `offset` of the file into `target`, and tells whether they are still the data the
// image was loaded with. The ROM starts erased, so what the file lacks stays FF, as the checksum counted it.
bool readArea(QFile& file, std::uint32_t offset, std::uint32_t size, std::uint32_t expectedCrc, std::uint8_t* target)
{
    std::uint32_t done = 0;
    if (file.seek(offset)) {
        while (done < size) {
            const qint64 got = file.read(reinterpret_cast<char*>(target + done), size - done);
            if (got <= 0)
                break;
            done += std::uint32_t(got);
        }
    }
    return crc32Update(crc32Update(0, nullptr, 0), target, size) == expectedCrc;
}

bool mergeImage(const NesImage& image, std::vector<std::uint8_t>& rom)
{
    const std::uint32_t prgCopies = image.prgBanks == 0 ? 0 : image.prgLayoutBanks / image.prgBanks;
    if (prgCopies == 0 && image.chrBytes == 0)
        return true;
    QFile file(image.path);
    if (!file.open(QIODevice::ReadOnly))
        return false;
    if (prgCopies > 0) {
        std::uint8_t* prg = rom.data() + image.prgOffset;
        if (!readArea(file, image.prgFileOffset(), image.prgBytes, image.prgCrc32, prg))
            return false;
        // A game whose window was raised sees its PRG mirrored through all of it.
        for (std::uint32_t copy = 1; copy < prgCopies; ++copy)
            std::memcpy(prg + std::size_t(copy) * image.prgBytes, prg, image.prgBytes);
    }
    return image.chrBytes == 0 ||
           readArea(file, image.chrFileOffset(), image.chrBytes, image.chrCrc32, rom.data() + image.chrOffset);
}

bool writeAll(QSaveFile& file, const void* data, std::size_t size)
{
    return file.write(static_cast<const char*>(data), qint64(size)) == qint64(size);
}

bool writeLittleEndian32(QSaveFile& file, std::uint32_t value)
{
    const std::uint8_t bytes[4] = {std::uint8_t(value), std::uint8_t(value >> 8), std::uint8_t(value >> 16),
                                   std::uint8_t(value >> 24)};
    return writeAll(file, bytes, sizeof bytes);
}

bool writeFill(QSaveFile& file, std::uint64_t size)
{
    const std::vector<char> piece(std::min<std::uint64_t>(size, kPaddingPieceBytes), char(0xFF));
    for (std::uint64_t done = 0; done < size;) {
        const std::size_t part = std::size_t(std::min<std::uint64_t>(size - done, piece.size()));
        if (!writeAll(file, piece.data(), part))
            return false;
        done += part;
    }
    return true;
}

bool writeUnifChunk(QSaveFile& file, const char (&name)[5], const void* data, std::uint32_t size)
{
    return writeAll(file, name, 4) && writeLittleEndian32(file, size) && writeAll(file, data, size);
}

// Merges, then hands the open output to `writeBody`; the file replaces `path` only if all of it went well.
template <typename WriteBody>
RomWriteResult writeRom(const LayoutResult& layout, const QString& path, WriteBody writeBody)
{
    std::vector<std::uint8_t> rom;
    RomWriteResult result = mergeRom(layout, rom);
    if (!result.ok)
        return result;
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || !writeBody(file, rom) || !file.commit())
        return {false, path};
    return {true, {}};
}

} // namespace

NesHeader makeNesHeader(std::uint32_t romBytes, std::uint16_t mapper, std::uint8_t submapper)
{
    NesHeader header;
    auto& b = header.bytes;
    b[0] = 'N';
    b[1] = 'E';
    b[2] = 'S';
    b[3] = 0x1A;
    if (romBytes < kExponentFormFromBytes) {
        const std::uint32_t units16k = romBytes >> 14;
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

RomWriteResult mergeRom(const LayoutResult& layout, std::vector<std::uint8_t>& rom)
{
    if (layout.romBytes == 0 || !layoutFitsRom(layout))
        return {false, {}};
    try {
        rom.assign(layout.romBytes, 0xFF);
    } catch (const std::bad_alloc&) {
        return {false, {}};
    }
    for (const NesImage& image : layout.images)
        if (!mergeImage(image, rom))
            return {false, image.path};
    return {true, {}};
}

RomWriteResult writeNes(const LayoutResult& layout, const QString& path, std::uint16_t mapper, std::uint8_t submapper)
{
    const NesHeader header = makeNesHeader(layout.romBytes, mapper, submapper);
    if (header.statedRomBytes < layout.romBytes)
        return {false, {}};
    return writeRom(layout, path, [&](QSaveFile& file, const std::vector<std::uint8_t>& rom) {
        // The exponent form states a power of two; the file holds all of it, the rest erased flash.
        return writeAll(file, header.bytes.data(), header.bytes.size()) && writeAll(file, rom.data(), rom.size()) &&
               writeFill(file, header.statedRomBytes - rom.size());
    });
}

RomWriteResult writeRaw(const LayoutResult& layout, const QString& path, const QString& boardName, bool unif)
{
    return writeRom(layout, path, [&](QSaveFile& file, const std::vector<std::uint8_t>& rom) {
        if (!unif)
            return writeAll(file, rom.data(), rom.size());
        const QByteArray board = boardName.toUtf8();
        const std::uint8_t mirroring = 5;
        char unifHeader[32] = {'U', 'N', 'I', 'F'};
        unifHeader[4] = 5; // revision, little-endian
        return writeAll(file, unifHeader, sizeof unifHeader) &&
               writeUnifChunk(file, "MAPR", board.constData(), std::uint32_t(board.size() + 1)) &&
               writeUnifChunk(file, "MIRR", &mirroring, 1) &&
               writeUnifChunk(file, "PRG0", rom.data(), std::uint32_t(rom.size()));
    });
}

} // namespace zunbrix
