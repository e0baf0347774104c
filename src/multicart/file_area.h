#pragma once

#include <QFile>

#include <cstdint>

namespace zunbrix {

// Reads `size` bytes from `offset` of an open file and returns their CRC-32. What the file does not hold
// counts as FF bytes, as on erased flash. The bytes land in `target` when one is given (it holds `size`
// bytes); otherwise they are read in pieces only for the checksum.
std::uint32_t readFileArea(QFile& file, std::uint64_t offset, std::uint64_t size, char* target = nullptr);

} // namespace zunbrix
