#include "build/layout.h"
#include "build/rom_writer.h"
#include "build/validation.h"
#include "synthetic_rom.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

using Header = std::array<std::uint8_t, 16>;

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// A small COOLBOY build from real files: a 128 KB menu, a 512 KB game that must follow it, a 32 KB MMC3 game
// mirrored through 128 KB and listed twice, and an NROM game.
class RomOutput : public ::testing::Test {
protected:
    void SetUp() override
    {
        roms = {{.mapper = 0, .prgBanks = 8, .chrBanks = 0, .seed = 9},
                {.mapper = 4, .prgBanks = 32, .chrBanks = 0, .seed = 1},
                {.mapper = 4, .prgBanks = 2, .chrBanks = 1, .seed = 2},
                {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .flags6 = 1, .seed = 3}};
        for (std::size_t i = 0; i < roms.size(); ++i)
            paths.push_back(writeRom(dir.filePath(QStringLiteral("rom%1.nes").arg(i)), roms[i]));
        paths.push_back(paths[2]);
        roms.push_back(roms[2]);
        reload();
    }

    void reload()
    {
        std::vector<NesImage> games;
        for (qsizetype i = 1; i < paths.size(); ++i) {
            games.emplace_back(paths[i]);
            games.back().listIndex = std::uint32_t(i - 1);
        }
        normaliseChr(games);
        normalisePrg(games);
        layout = layoutRom(NesImage(paths[0]), games, BoardType::Coolboy);
    }

    // Every image's data where the layout put it, and FF wherever no image is.
    void expectRomContent(const QByteArray& rom)
    {
        ASSERT_EQ(rom.size(), qsizetype(layout.romBytes));
        QByteArray covered(rom.size(), 0);
        for (const NesImage& image : layout.images) {
            const SyntheticRom& source = roms[image.isMenu ? 0 : image.listIndex + 1];
            for (std::uint32_t copy = 0; copy < image.prgLayoutBanks / image.prgBanks; ++copy) {
                const qsizetype at = image.prgOffset + copy * image.prgBytes;
                EXPECT_EQ(rom.mid(at, image.prgBytes), prgDataOf(source)) << image.name.toStdString() << copy;
                covered.replace(at, image.prgBytes, QByteArray(image.prgBytes, 1));
            }
            EXPECT_EQ(rom.mid(image.chrOffset, image.chrBytes), chrDataOf(source));
            covered.replace(image.chrOffset, image.chrBytes, QByteArray(image.chrBytes, 1));
        }
        for (qsizetype i = 0; i < rom.size(); ++i) {
            if (!covered[i]) {
                ASSERT_EQ(std::uint8_t(rom[i]), 0xFF) << "at " << i;
            }
        }
    }

    QTemporaryDir dir;
    std::vector<SyntheticRom> roms;
    QStringList paths;
    LayoutResult layout;
};

} // namespace

TEST(NesHeaderBytes, BoardsAndBothSizeForms)
{
    // 1 MB COOLBOY: 64 units, 8 KB battery PRG RAM, 256 KB CHR RAM, mapper 268.
    EXPECT_EQ(makeNesHeader(1 << 20, 268, 0).bytes, (Header{'N', 'E', 'S', 0x1A, 64, 0, 0xC0, 0x08, 0x01, 0, 0x70, 12}));
    EXPECT_EQ(makeNesHeader(1 << 20, 268, 1).bytes[8], 0x11);
    const Header coolgirl = makeNesHeader(1 << 20, 342, 0).bytes;
    EXPECT_EQ(coolgirl[6], 0x62);
    EXPECT_EQ(coolgirl[7], 0x58);
    EXPECT_EQ(coolgirl[8], 0x01);
    EXPECT_EQ(coolgirl[10], 0x90);

    NesHeader largestPlain = makeNesHeader(62898176, 268, 0);
    EXPECT_EQ(largestPlain.bytes[4] | (largestPlain.bytes[9] & 15) << 8, 0xEFF);
    EXPECT_EQ(largestPlain.statedRomBytes, 62898176u);
    for (std::uint32_t romBytes : {62898177u, 64u << 20}) {
        const NesHeader exponent = makeNesHeader(romBytes, 342, 0);
        EXPECT_EQ(exponent.bytes[4], 104);
        EXPECT_EQ(exponent.bytes[9], 15);
        EXPECT_EQ(exponent.statedRomBytes, 64u << 20);
    }
}

TEST_F(RomOutput, NesHoldsHeaderAndEveryImageInPlace)
{
    ASSERT_EQ(layout.romBytes, 1u << 20);
    const QString out = dir.filePath("multi.nes");
    ASSERT_TRUE(writeNes(layout, out, 268, 0).ok);
    const QByteArray file = readAll(out);
    EXPECT_EQ(file.size(), 1048592);
    const Header header = makeNesHeader(layout.romBytes, 268, 0).bytes;
    EXPECT_EQ(file.left(16), QByteArray(reinterpret_cast<const char*>(header.data()), 16));
    expectRomContent(file.mid(16));
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 5); // four sources and the output, nothing else
}

TEST_F(RomOutput, BinAndUnifCarryTheSameFlash)
{
    const QString bin = dir.filePath("multi.bin");
    const QString unf = dir.filePath("multi.unf");
    ASSERT_TRUE(writeRaw(layout, bin, "COOLBOY", false).ok);
    ASSERT_TRUE(writeRaw(layout, unf, "MINDKIDS", true).ok);
    expectRomContent(readAll(bin));

    const QByteArray unif = readAll(unf);
    const QByteArray expectedStart = QByteArray("UNIF\x05\0\0\0", 8) + QByteArray(24, '\0') +
                                     QByteArray("MAPR\x09\0\0\0MINDKIDS\0", 17) + QByteArray("MIRR\x01\0\0\0\x05", 9) +
                                     QByteArray("PRG0\0\0\x10\0", 8);
    EXPECT_EQ(unif.left(expectedStart.size()), expectedStart);
    EXPECT_EQ(unif.size(), 32 + 17 + 9 + 8 + qsizetype(layout.romBytes));
    EXPECT_EQ(unif.mid(expectedStart.size()), readAll(bin));
}

TEST_F(RomOutput, LargeRomStatesAPowerOfTwoAndIsErasedToIt)
{
    layout.romBytes = 60u << 20;
    const QString out = dir.filePath("big.nes");
    ASSERT_TRUE(writeNes(layout, out, 342, 0).ok);
    const QByteArray file = readAll(out);
    ASSERT_EQ(file.size(), (64 << 20) + 16);
    EXPECT_EQ(std::uint8_t(file[4]), 104);
    EXPECT_EQ(file.right(4 << 20), QByteArray(4 << 20, char(0xFF)));
}

TEST_F(RomOutput, ShortSourceIsMergedWithErasedBytes)
{
    roms[3].cutBytes = 4000;
    writeRom(paths[3], roms[3]);
    reload();
    std::vector<std::uint8_t> rom;
    ASSERT_TRUE(mergeRom(layout, rom).ok);
    const NesImage& nrom = layout.images[3];
    EXPECT_EQ(rom[nrom.chrOffset + 8191 - 4000], std::uint8_t(chrDataOf(roms[3])[8191 - 4000]));
    EXPECT_EQ(rom[nrom.chrOffset + 8192 - 4000], 0xFF);
}

TEST_F(RomOutput, FailedWriteNamesTheFileAndKeepsTheEarlierOutput)
{
    const QString out = dir.filePath("multi.nes");
    writeFile(out, "earlier");
    const auto expectFailureOn = [&](const QString& culprit) {
        const QStringList filesBefore = QDir(dir.path()).entryList(QDir::Files);
        const RomWriteResult result = writeNes(layout, out, 268, 0);
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.failedFile, culprit);
        EXPECT_EQ(readAll(out), "earlier");
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), filesBefore);
    };

    QByteArray shrunk = fileBytesOf(roms[1]);
    shrunk.chop(1);
    writeFile(paths[1], shrunk);
    expectFailureOn(paths[1]);
    QByteArray changed = fileBytesOf(roms[1]);
    changed[100] = char(changed[100] ^ 1);
    writeFile(paths[1], changed);
    expectFailureOn(paths[1]);
    ASSERT_TRUE(QFile::remove(paths[1]));
    expectFailureOn(paths[1]);

    writeRom(paths[1], roms[1]);
    ASSERT_TRUE(writeNes(layout, out, 268, 0).ok);
    EXPECT_EQ(writeRaw(layout, dir.filePath("no/such/folder/x.bin"), "COOLBOY", false).failedFile,
              dir.filePath("no/such/folder/x.bin"));
}

TEST_F(RomOutput, LayoutThatDoesNotFitTheRomIsRefused)
{
    LayoutResult broken = layout;
    broken.images[1].prgOffset = broken.images[2].prgOffset + 16384; // onto another game's data
    std::vector<std::uint8_t> rom;
    EXPECT_FALSE(mergeRom(broken, rom).ok);
    broken = layout;
    broken.romBytes -= 16384;
    EXPECT_FALSE(mergeRom(broken, rom).ok);
    EXPECT_FALSE(mergeRom(LayoutResult{}, rom).ok);
}
