#pragma once

#include "multicart/nes_image.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <ostream>

namespace zunbrix::testing {

// What a made-up iNES file holds. The data bytes follow from `seed`, so equal seeds give equal data.
struct SyntheticRom {
    std::uint32_t mapper = 4;
    std::uint32_t prgBanks = 2;
    std::uint32_t chrBanks = 1;
    std::uint8_t flags6 = 0; // mirroring, battery, trainer, four-screen bits
    std::uint32_t seed = 1;
    std::int64_t cutBytes = 0; // drop this many bytes from the end of the file
};

QByteArray prgDataOf(const SyntheticRom& rom);
QByteArray chrDataOf(const SyntheticRom& rom);
// The whole file: header, trainer if flagged, PRG, CHR, less `cutBytes`.
QByteArray fileBytesOf(const SyntheticRom& rom);
QString writeFile(const QString& path, const QByteArray& bytes);
QString writeRom(const QString& path, const SyntheticRom& rom);

// An image as the layout sees it, without a file: sizes, a checksum standing for its data, a list place.
NesImage imageOf(std::uint32_t listIndex, std::uint32_t prgBanks, std::uint32_t chrBanks, std::uint32_t mapper = 4);

} // namespace zunbrix::testing

// Readable failure messages for texts.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
