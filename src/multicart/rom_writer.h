#pragma once

#include "multicart/flash_writer.h"

#include <QString>

#include <array>
#include <cstdint>

namespace zunbrix {

// The NES 2.0 header of a multicart and the ROM size that the header states (the file holds that much).
struct NesHeader {
    std::array<std::uint8_t, 16> bytes{};
    std::uint64_t statedRomBytes = 0;
};

NesHeader makeNesHeader(std::uint64_t romBytes, std::uint16_t mapper, std::uint8_t submapper);

// Each puts the flash image into its file format through writeFlashFile, and fails (or stops) as that does.
RomWriteResult writeNes(const LayoutResult& layout, const QString& path, std::uint16_t mapper,
                        std::uint8_t submapper, const std::atomic<bool>* stop = nullptr);
// UNIF with chunks MAPR, MIRR and PRG0 (the whole flash), or without `unif` the bare flash image.
RomWriteResult writeRaw(const LayoutResult& layout, const QString& path, const QString& boardName, bool unif,
                        const std::atomic<bool>* stop = nullptr);

} // namespace zunbrix
