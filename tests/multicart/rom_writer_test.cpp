#include "multicart/layout.h"
#include "multicart/rom_writer.h"
#include "multicart/validation.h"
#include "synthetic_rom.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

using Header = std::array<std::uint8_t, 16>;

QByteArray readAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// COOLBOY builds from real files, with the oracle of what their flash must hold.
class RomOutput : public ::testing::Test {
protected:
    // A 128 KB menu, a 512 KB game that must follow it, a 32 KB MMC3 game mirrored through 128 KB and listed
    // twice, and an NROM game.
    void SetUp() override
    {
        layOut({{.mapper = 0, .prgBanks = 8, .chrBanks = 0, .seed = 9},
                {.mapper = 4, .prgBanks = 32, .chrBanks = 0, .seed = 1},
                {.mapper = 4, .prgBanks = 2, .chrBanks = 1, .seed = 2},
                {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = 3}});
        paths.push_back(paths[2]);
        layOut();
    }

    // Writes the menu's and the games' files, the menu first.
    void layOut(const std::vector<SyntheticRom>& roms)
    {
        paths.clear();
        for (std::size_t i = 0; i < roms.size(); ++i)
            paths.push_back(writeRom(dir.filePath(QStringLiteral("rom%1.nes").arg(i)), roms[i]));
    }

    // Lays out the files of `paths` as they are.
    void layOut()
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

    // Every image's file data where the layout put it (PRG through its whole window), and FF elsewhere.
    void expectRomContent(const QByteArray& rom)
    {
        ASSERT_EQ(rom.size(), qsizetype(layout.romBytes));
        QByteArray expected(rom.size(), char(0xFF));
        for (const NesImage& image : layout.images) {
            const QByteArray file = readAll(image.path) + QByteArray(image.prgBytes + image.chrBytes, char(0xFF));
            for (std::uint32_t copy = 0; copy < image.prgLayoutBanks / image.prgBanks; ++copy)
                expected.replace(image.prgOffset + copy * image.prgBytes, image.prgBytes, file.mid(16, image.prgBytes));
            expected.replace(image.chrOffset, image.chrBytes, file.mid(16 + image.prgBytes, image.chrBytes));
        }
        EXPECT_TRUE(rom == expected);
    }

    // The write to `out` fails, names `culprit` and what is wrong with it, and leaves the earlier file and
    // the folder as they were.
    void expectFailureOn(const QString& out, const QString& culprit,
                         FileProblemKind kind = FileProblemKind::ChangedSinceRead,
                         const std::atomic<bool>* stop = nullptr)
    {
        const QByteArray earlier = readAll(out);
        const QStringList filesBefore = QDir(dir.path()).entryList(QDir::Files);
        const RomWriteResult result = writeNes(layout, out, 268, 0, stop);
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.problem.path, culprit);
        EXPECT_EQ(result.problem.kind, kind);
        EXPECT_EQ(readAll(out), earlier);
        EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files), filesBefore);
    }

    QTemporaryDir dir;
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
    EXPECT_EQ((std::array{coolgirl[6], coolgirl[7], coolgirl[8], coolgirl[10]}),
              (std::array<std::uint8_t, 4>{0x62, 0x58, 0x01, 0x90}));

    const NesHeader largestPlain = makeNesHeader(62898176, 268, 0);
    EXPECT_EQ(largestPlain.bytes[4] | (largestPlain.bytes[9] & 15) << 8, 0xEFF);
    EXPECT_EQ(largestPlain.statedRomBytes, 62898176u);
    for (std::uint32_t romBytes : {62898177u, 64u << 20}) {
        const NesHeader exponent = makeNesHeader(romBytes, 342, 0);
        EXPECT_EQ(exponent.bytes[4], 104);
        EXPECT_EQ(exponent.bytes[9], 15);
        EXPECT_EQ(exponent.statedRomBytes, 64u << 20);
    }
}

TEST_F(RomOutput, NesBinAndUnifCarryTheFlash)
{
    ASSERT_EQ(layout.romBytes, 1u << 20);
    const QString nes = dir.filePath("multi.nes"), bin = dir.filePath("multi.bin"), unf = dir.filePath("multi.unf");
    ASSERT_TRUE(writeNes(layout, nes, 268, 0).ok);
    ASSERT_TRUE(writeRaw(layout, bin, "COOLBOY", false).ok);
    ASSERT_TRUE(writeRaw(layout, unf, "MINDKIDS", true).ok);

    const QByteArray flash = readAll(bin);
    expectRomContent(flash);
    const Header header = makeNesHeader(layout.romBytes, 268, 0).bytes;
    EXPECT_TRUE(readAll(nes) == QByteArray(reinterpret_cast<const char*>(header.data()), 16) + flash);
    const QByteArray unifStart = QByteArray("UNIF\x05\0\0\0", 8) + QByteArray(24, '\0') +
                                 QByteArray("MAPR\x09\0\0\0MINDKIDS\0", 17) + QByteArray("MIRR\x01\0\0\0\x05", 9) +
                                 QByteArray("PRG0\0\0\x10\0", 8);
    EXPECT_TRUE(readAll(unf) == unifStart + flash);
    EXPECT_EQ(QDir(dir.path()).entryList(QDir::Files).size(), 7); // no temporary file left behind
}

TEST_F(RomOutput, LargeRomStatesAPowerOfTwoAndIsErasedToIt)
{
    layout.romBytes = 60u << 20;
    const QString out = dir.filePath("big.nes");
    ASSERT_TRUE(writeNes(layout, out, 342, 0).ok);
    const QByteArray file = readAll(out);
    ASSERT_EQ(file.size(), (64 << 20) + 16);
    EXPECT_EQ(std::uint8_t(file[4]), 104);
    EXPECT_TRUE(file.right(4 << 20) == QByteArray(4 << 20, char(0xFF)));
}

TEST_F(RomOutput, FailedOrStoppedWriteNamesTheFileAndKeepsTheEarlierOutput)
{
    const QString out = writeFile(dir.filePath("multi.nes"), "earlier");
    const QByteArray original = readAll(paths[1]);
    writeFile(paths[1], original.left(original.size() - 1)); // shrunk
    expectFailureOn(out, paths[1]);
    writeFile(paths[1], QByteArray(original).replace(100, 1, "?")); // changed
    expectFailureOn(out, paths[1]);
    ASSERT_TRUE(QFile::remove(paths[1])); // vanished
    expectFailureOn(out, paths[1], FileProblemKind::Missing);

    writeFile(paths[1], original);
    const std::atomic<bool> stop{true};
    expectFailureOn(out, {}, FileProblemKind::None, &stop);
    EXPECT_TRUE(writeNes(layout, out, 268, 0).ok);
    const QString noFolder = dir.filePath("no/such/folder/x.bin");
    const FileProblem notWritten = writeRaw(layout, noFolder, "COOLBOY", false).problem;
    EXPECT_EQ(notWritten.kind, FileProblemKind::WriteFailed);
    EXPECT_EQ(notWritten.path, noFolder);
    EXPECT_TRUE(notWritten.systemReason.contains(QString::fromLocal8Bit(std::strerror(ENOENT))))
        << notWritten.systemReason.toStdString();
}

// Megabytes of flash from many files: a 2 MB game with 512 KB of CHR, NROM games on both sides of every
// place where the file is written in pieces, a mirrored game, a game whose 48 KB of PRG and 24 KB of CHR
// leave the ends of their stretches erased, two files with equal data that share one copy, and an NROM
// game with the PRG of the mirrored MMC3 game, which reads it from the start of that game's window. Every
// source is checked, the ones whose copy is not used too.
TEST_F(RomOutput, LargeFlashFromManyFiles)
{
    std::vector<SyntheticRom> roms{{.mapper = 0, .prgBanks = 8, .chrBanks = 0, .seed = 9},
                                   {.mapper = 4, .prgBanks = 128, .chrBanks = 64, .seed = 1},
                                   {.mapper = 4, .prgBanks = 2, .chrBanks = 1, .seed = 2},
                                   {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = 3},
                                   {.mapper = 4, .prgBanks = 3, .chrBanks = 3, .seed = 4}};
    for (std::uint32_t seed = 10; seed < 90; ++seed)
        roms.push_back({.mapper = 0, .prgBanks = std::uint32_t(seed % 2 + 1), .chrBanks = 1, .seed = seed});
    const std::size_t twin = roms.size();
    roms.push_back(roms[21]); // the same data in a file of its own
    roms.push_back({.mapper = 0, .prgBanks = 2, .chrBanks = 1, .seed = 2});
    layOut(roms);
    layOut();
    ASSERT_GT(layout.romBytes, 5u << 20);
    const auto imageOf = [&](const QString& path) {
        return *std::find_if(layout.images.begin(), layout.images.end(),
                             [&](const NesImage& image) { return image.path == path; });
    };
    ASSERT_EQ(imageOf(paths[21]).prgOffset, imageOf(paths[qsizetype(twin)]).prgOffset);
    ASSERT_EQ(imageOf(paths[21]).chrOffset, imageOf(paths[qsizetype(twin)]).chrOffset);
    ASSERT_EQ(imageOf(paths[2]).prgOffset, imageOf(paths.back()).prgOffset);
    const QString bin = dir.filePath("multi.bin");
    ASSERT_TRUE(writeRaw(layout, bin, "COOLBOY", false).ok);
    expectRomContent(readAll(bin));

    const QString out = dir.filePath("multi.nes");
    ASSERT_TRUE(writeNes(layout, out, 268, 0).ok);
    for (const QString& culprit :
         {paths[21], paths[qsizetype(twin)], paths[1], paths[qsizetype(twin) - 1], paths.back()}) {
        const QByteArray original = readAll(culprit);
        writeFile(culprit, QByteArray(original).replace(original.size() - 5, 1, "?"));
        expectFailureOn(out, culprit);
        writeFile(culprit, original);
    }
}

TEST_F(RomOutput, LayoutThatDoesNotFitTheRomIsRefused)
{
    const QString out = dir.filePath("multi.nes");
    const auto expectRefused = [&](const LayoutResult& broken) {
        const RomWriteResult result = writeNes(broken, out, 268, 0);
        EXPECT_FALSE(result.ok);
        EXPECT_FALSE(result.problem);
        EXPECT_FALSE(QFile::exists(out));
    };
    LayoutResult broken = layout;
    broken.images[1].prgOffset = broken.images[2].prgOffset + 16384; // onto another game's data
    expectRefused(broken);
    broken = layout;
    broken.romBytes -= 16384; // past the end
    expectRefused(broken);
    expectRefused(LayoutResult{});
}
