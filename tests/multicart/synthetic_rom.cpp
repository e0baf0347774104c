#include "synthetic_rom.h"

#include <QFile>

namespace zunbrix::testing {

namespace {

QByteArray patternBytes(std::uint32_t size, std::uint32_t seed)
{
    QByteArray bytes(qsizetype(size), Qt::Uninitialized);
    std::uint32_t state = seed * 2654435761u + 1;
    for (char& byte : bytes) {
        state = state * 1664525u + 1013904223u;
        byte = char(state >> 24);
    }
    return bytes;
}

} // namespace

QByteArray prgDataOf(const SyntheticRom& rom)
{
    return patternBytes(rom.prgBanks << 14, rom.seed);
}

QByteArray chrDataOf(const SyntheticRom& rom)
{
    return patternBytes(rom.chrBanks << 13, rom.seed ^ 0x5A5A5A5Au);
}

QByteArray fileBytesOf(const SyntheticRom& rom)
{
    QByteArray bytes("NES\x1A", 4);
    bytes.append(char(rom.prgBanks));
    bytes.append(char(rom.chrBanks));
    bytes.append(char((rom.mapper & 15) << 4 | rom.flags6));
    bytes.append(char(rom.mapper & 0xF0));
    bytes.append(8, '\0');
    if (rom.flags6 & 0x04)
        bytes.append(512, char(0x77));
    bytes.append(prgDataOf(rom));
    bytes.append(chrDataOf(rom));
    bytes.chop(qsizetype(rom.cutBytes));
    return bytes;
}

QString writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("can't write %s", qPrintable(path));
    return path;
}

QString writeRom(const QString& path, const SyntheticRom& rom)
{
    return writeFile(path, fileBytesOf(rom));
}

NesImage imageOf(std::uint32_t listIndex, std::uint32_t prgBanks, std::uint32_t chrBanks, std::uint32_t mapper)
{
    NesImage image;
    image.valid = true;
    image.headerSize = 16;
    image.mapper = mapper;
    image.listIndex = listIndex;
    image.name = QStringLiteral("game%1").arg(listIndex);
    image.setPrgBanks(prgBanks);
    image.setChrBanks(chrBanks);
    image.setPrgLayoutBanks(prgBanks);
    image.setChrLayoutBanks(chrBanks);
    // Distinct games hold distinct data.
    image.prgCrc32 = 0x10000000u + listIndex;
    image.chrCrc32 = chrBanks == 0 ? 0 : 0x20000000u + listIndex;
    return image;
}

} // namespace zunbrix::testing
