#include "multicart/nes_image.h"

#include "multicart/board_tables.h"
#include "multicart/file_area.h"
#include "frame/paths.h"

#include <QFile>

#include <zlib.h>

#include <algorithm>
#include <cstring>

namespace zunbrix {

namespace {

constexpr std::uint32_t kHeaderBytes = 16;
constexpr std::uint32_t kTrainerBytes = 512;

bool hasMagic(const std::array<std::uint8_t, 16>& header)
{
    return std::memcmp(header.data(), "NES\x1A", 4) == 0;
}

bool headerIsNes20(const std::array<std::uint8_t, 16>& header)
{
    return ((header[7] >> 2) & 3) == 2;
}

std::uint32_t headerMapper(const std::array<std::uint8_t, 16>& header)
{
    std::uint32_t mapper = ((header[7] >> 4) << 4) | (header[6] >> 4);
    if (headerIsNes20(header))
        mapper |= (header[8] & 15u) << 8;
    return mapper;
}

} // namespace

std::uint32_t crc32Update(std::uint32_t crc, const void* data, std::size_t size)
{
    // zlib counts lengths in `uInt`, so long data goes in pieces.
    constexpr std::size_t kPiece = std::size_t(1) << 30;
    const auto* bytes = static_cast<const Bytef*>(data);
    uLong value = crc;
    do {
        const std::size_t part = std::min(size, kPiece);
        value = ::crc32(value, bytes, uInt(part));
        bytes += part;
        size -= part;
    } while (size > 0);
    return std::uint32_t(value);
}

GameEntry GameEntry::unread(const QString& filePath)
{
    GameEntry entry;
    entry.path = filePath;
    entry.name = FileNameOf(filePath, false);
    return entry;
}

GameEntry::GameEntry(const QString& filePath) : GameEntry(unread(filePath))
{
    // Unbuffered: a buffered read would fetch a whole buffer of the file for these few bytes.
    const QString absolute = AbsolutePath(filePath);
    QFile file;
    problem = openForReading(file, absolute);
    if (!problem) {
        const qint64 got = file.read(reinterpret_cast<char*>(header.data()), kHeaderBytes);
        headerRead = got == kHeaderBytes;
        if (got < 0)
            problem = {.kind = FileProblemKind::ReadFailed, .path = absolute, .systemReason = file.errorString()};
        else if (!hasMagic(header))
            problem = {.kind = FileProblemKind::NoInesMark, .path = absolute};
        else if (!headerRead)
            problem = {.kind = FileProblemKind::Truncated,
                       .path = absolute,
                       .claimedBytes = kHeaderBytes,
                       .fileBytes = std::uint64_t(got)};
    }
    coolboyFit = valid() && fitsCoolboy(mapper(), prgBanks(), chrBanks());
    coolgirlFit = valid() && fitsCoolgirl(mapper(), prgBanks());
}

std::size_t checkedCount(const std::vector<GameEntry>& entries)
{
    return static_cast<std::size_t>(
        std::count_if(entries.begin(), entries.end(), [](const GameEntry& entry) { return entry.checked; }));
}

bool GameEntry::valid() const
{
    return headerRead && hasMagic(header);
}

bool GameEntry::isNes20() const
{
    return headerIsNes20(header);
}

std::uint32_t GameEntry::mapper() const
{
    return headerMapper(header);
}

std::uint32_t GameEntry::prgBanks() const
{
    return header[4] | (isNes20() ? (header[9] & 15u) << 8 : 0u);
}

std::uint32_t GameEntry::chrBanks() const
{
    return header[5] | (isNes20() ? (header[9] >> 4u) << 8 : 0u);
}

NesImage NesImage::fromHeader(const GameEntry& entry)
{
    NesImage image;
    image.path = AbsolutePath(entry.path);
    if (entry.valid())
        image.takeHeader(entry.header);
    return image;
}

bool NesImage::load(const QString& filePath)
{
    *this = NesImage();
    path = AbsolutePath(filePath);
    name = FileNameOf(path, false);
    QFile file;
    problem = openForReading(file, path);
    if (problem)
        return false;
    std::array<std::uint8_t, 16> header{'N', 'E', 'S', 0x1A};
    // A short header stops nothing here: the preset stands in for what is missing, and the file's size is
    // compared with what the header claims below.
    if (file.read(reinterpret_cast<char*>(header.data()), kHeaderBytes) < 0) {
        problem = {.kind = FileProblemKind::ReadFailed, .path = path, .systemReason = file.errorString()};
        return false;
    }
    if (!hasMagic(header)) {
        problem = {.kind = FileProblemKind::NoInesMark, .path = path};
        return false;
    }
    takeHeader(header);

    // A cut-off file would put erased bytes in place of the game's end.
    const std::uint64_t claimedBytes = chrFileOffset() + chrBytes;
    const auto fileBytes = std::uint64_t(file.size());
    if (fileBytes < claimedBytes) {
        problem = {.kind = FileProblemKind::Truncated,
                   .path = path,
                   .claimedBytes = claimedBytes,
                   .fileBytes = fileBytes};
        valid = false;
        return false;
    }
    prgCrc32 = readFileArea(file, prgFileOffset(), prgBytes);
    chrCrc32 = readFileArea(file, chrFileOffset(), chrBytes);
    return true;
}

void NesImage::takeHeader(const std::array<std::uint8_t, 16>& header)
{
    name = FileNameOf(path, false);
    headerSize = kHeaderBytes;
    hasTrainer = header[6] & 0x04;
    trainerSize = hasTrainer ? kTrainerBytes : 0;
    mapper = headerMapper(header);
    // Only the low size bytes: the build works with at most 255 banks of each.
    setPrgBanks(header[4]);
    setChrBanks(header[5]);
    setPrgLayoutBanks(header[4]);
    setChrLayoutBanks(header[5]);
    verticalMirroring = header[6] & 0x01;
    battery = header[6] & 0x02;
    fourScreen = header[6] & 0x08;
    valid = true;
}

void NesImage::setPrgBanks(std::uint32_t banks)
{
    prgBanks = banks;
    prgBytes = std::uint64_t(banks) << 14;
}

void NesImage::setChrBanks(std::uint32_t banks)
{
    chrBanks = banks;
    chrBytes = std::uint64_t(banks) << 13;
}

void NesImage::setPrgLayoutBanks(std::uint32_t banks)
{
    prgLayoutBanks = banks;
    prgLayoutBytes = std::uint64_t(banks) << 14;
}

void NesImage::setChrLayoutBanks(std::uint32_t banks)
{
    chrLayoutBanks = banks;
    chrLayoutBytes = std::uint64_t(banks) << 13;
}

} // namespace zunbrix
