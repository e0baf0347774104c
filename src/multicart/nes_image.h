#pragma once

#include "multicart/file_problem.h"

#include <QString>

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace zunbrix {

// CRC-32 in the standard reflected form, continuing `crc` over `size` bytes.
std::uint32_t crc32Update(std::uint32_t crc, const void* data, std::size_t size);

// One row of the game list: reads only the 16 header bytes of its file.
struct GameEntry {
    GameEntry() = default;
    // Reads the header and stores the fit marks; a file that can't be read still makes an entry, not valid,
    // with the reason in `problem`. A relative path is the list's form of a file beside the program: it is
    // read from the program's folder.
    explicit GameEntry(const QString& filePath);
    // An entry named for its file without opening it, not valid, for callers that read the file themselves.
    static GameEntry unread(const QString& filePath);

    QString path;
    QString name;
    QString remark;
    std::array<std::uint8_t, 16> header{'N', 'E', 'S', 0x1A};
    bool headerRead = false;
    bool checked = false;
    bool coolboyFit = false;
    bool coolgirlFit = false;
    FileProblem problem; // why the header could not be read as iNES; set only when the entry is not valid

    bool valid() const;
    bool isNes20() const;
    // NES 2.0's upper size and mapper bits count here, unlike in NesImage.
    std::uint32_t mapper() const;
    std::uint32_t prgBanks() const;
    std::uint32_t chrBanks() const;
    bool verticalMirroring() const { return header[6] & 0x01; }
    bool battery() const { return header[6] & 0x02; }
    bool hasTrainer() const { return header[6] & 0x04; }
};

// How many entries of a list are checked, that is, go into a build.
std::size_t checkedCount(const std::vector<GameEntry>& entries);

// A game or the menu as the build sees it: sizes, checksums and file positions, never the data itself.
// Byte sizes and offsets are 64-bit, so that the sum of a long list can't wrap before the board's limit
// refuses it.
struct NesImage {
    NesImage() = default;
    // A failed load leaves `valid` false and says why in `problem`; validation reports it.
    explicit NesImage(const QString& filePath) { load(filePath); }
    // An entry's game as its header alone describes it, with the build's reading of the sizes and no checksums.
    static NesImage fromHeader(const GameEntry& entry);

    bool prgPlaced = false;
    bool chrPlaced = false;
    std::uint64_t prgOffset = 0;
    std::uint64_t chrOffset = 0;
    std::uint32_t prgCrc32 = 0;
    std::uint32_t chrCrc32 = 0;
    std::uint64_t prgLayoutBytes = 0;
    std::uint64_t chrLayoutBytes = 0;
    std::uint32_t prgBanks = 0;
    std::uint32_t chrBanks = 0;
    std::uint64_t prgBytes = 0;
    std::uint64_t chrBytes = 0;
    std::uint32_t listIndex = 0;
    std::uint32_t mapper = 0;
    std::uint32_t headerSize = 0;
    std::uint32_t prgLayoutBanks = 0;
    std::uint32_t chrLayoutBanks = 0;
    std::uint32_t trainerSize = 0;
    bool verticalMirroring = false;
    bool hasTrainer = false;
    bool battery = false;
    bool fourScreen = false;
    bool isMenu = false;
    bool valid = false;
    QString path;
    QString name;
    FileProblem problem; // why the load failed

    // Reads the header and checksums the PRG and CHR areas. A file that is not a regular file, has no iNES
    // mark or is shorter than its header says fails, with `name` set all the same. `path` becomes absolute:
    // a relative one is taken from the program's folder, as the list holds it.
    bool load(const QString& filePath);

    void setPrgBanks(std::uint32_t banks);
    void setChrBanks(std::uint32_t banks);
    void setPrgLayoutBanks(std::uint32_t banks);
    void setChrLayoutBanks(std::uint32_t banks);

    std::uint64_t prgFileOffset() const { return headerSize + trainerSize; }
    std::uint64_t chrFileOffset() const { return headerSize + trainerSize + prgBytes; }

private:
    // Name, sizes, mapper and flags from the 16 header bytes of the file at `path`.
    void takeHeader(const std::array<std::uint8_t, 16>& header);
};

} // namespace zunbrix
