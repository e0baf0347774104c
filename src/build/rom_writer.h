#pragma once

#include "build/layout.h"

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace zunbrix {

// How a merge or write ended. On failure `failedFile` names the source or output file at fault; it is empty
// when the layout itself can't be written (no bytes, or images that overlap or run past the end).
struct RomWriteResult {
    bool ok = false;
    QString failedFile;
};

// The NES 2.0 header of a multicart and the ROM size that the header states (the file holds that much).
struct NesHeader {
    std::array<std::uint8_t, 16> bytes{};
    std::uint64_t statedRomBytes = 0;
};

NesHeader makeNesHeader(std::uint32_t romBytes, std::uint16_t mapper, std::uint8_t submapper);

// Builds the flash image from the source files at the layout's offsets. Bytes no image covers are FF. A
// source that can't be read, or no longer holds the data it held when it was loaded, fails the merge.
RomWriteResult mergeRom(const LayoutResult& layout, std::vector<std::uint8_t>& rom);

// Each writes a temporary file beside `path` and renames it into place only when complete, so a failure
// leaves any earlier file at `path` as it was.
RomWriteResult writeNes(const LayoutResult& layout, const QString& path, std::uint16_t mapper,
                        std::uint8_t submapper);
// UNIF with chunks MAPR, MIRR and PRG0 (the whole flash), or without `unif` the bare flash image.
RomWriteResult writeRaw(const LayoutResult& layout, const QString& path, const QString& boardName, bool unif);

} // namespace zunbrix
