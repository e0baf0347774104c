#include "multicart/file_area.h"

#include "multicart/nes_image.h"

#include <algorithm>
#include <cstring>
#include <memory>

namespace zunbrix {

namespace {

constexpr std::size_t kPieceBytes = 1 << 20;

// Fills `size` bytes at `target` from the file's current place, FF from where the file ends; tells whether
// the file still had data at the end.
bool readOrErase(QFile& file, char* target, std::size_t size, bool fileEnded)
{
    std::size_t got = 0;
    while (!fileEnded && got < size) {
        const qint64 read = file.read(target + got, qint64(size - got));
        fileEnded = read <= 0;
        got += fileEnded ? 0 : std::size_t(read);
    }
    std::memset(target + got, 0xFF, size - got);
    return fileEnded;
}

} // namespace

std::uint32_t readFileArea(QFile& file, std::uint64_t offset, std::uint64_t size, char* target)
{
    bool fileEnded = std::uint64_t(file.pos()) != offset && !file.seek(qint64(offset));
    if (target) {
        readOrErase(file, target, std::size_t(size), fileEnded);
        return crc32Update(crc32Update(0, nullptr, 0), target, std::size_t(size));
    }
    const auto pieceBytes = std::size_t(std::min<std::uint64_t>(size, kPieceBytes));
    const auto piece = std::make_unique_for_overwrite<char[]>(pieceBytes);
    std::uint32_t crc = crc32Update(0, nullptr, 0);
    for (std::uint64_t done = 0; done < size;) {
        const auto part = std::size_t(std::min<std::uint64_t>(size - done, pieceBytes));
        fileEnded = readOrErase(file, piece.get(), part, fileEnded);
        crc = crc32Update(crc, piece.get(), part);
        done += part;
    }
    return crc;
}

} // namespace zunbrix
