#include "multicart/nes_image.h"
#include "frame/paths.h"
#include "synthetic_rom.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <tuple>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

#include <zlib.h>

using namespace zunbrix;
using namespace zunbrix::testing;

namespace {

std::uint32_t zlibCrc(const QByteArray& bytes)
{
    return std::uint32_t(::crc32(0, reinterpret_cast<const Bytef*>(bytes.constData()), uInt(bytes.size())));
}

QByteArray headerWith(std::uint8_t b4, std::uint8_t b6, std::uint8_t b7, std::uint8_t b8, std::uint8_t b9)
{
    QByteArray header("NES\x1A", 4);
    header.append(char(b4)).append('\0').append(char(b6)).append(char(b7)).append(char(b8)).append(char(b9));
    return header.append(6, '\0');
}

} // namespace

TEST(RomReader, Crc32IsTheStandardFormAndContinuesAcrossPieces)
{
    const char* text = "123456789";
    EXPECT_EQ(crc32Update(0, text, 9), 0xCBF43926u);
    EXPECT_EQ(crc32Update(crc32Update(0, text, 4), text + 4, 5), 0xCBF43926u);
    EXPECT_EQ(crc32Update(0, nullptr, 0), 0u);
}

TEST(RomReader, ImageChecksumsPrgAndChrAndTrainerMovesBoth)
{
    QTemporaryDir dir;
    for (std::uint8_t flags6 : {0x00, 0x04}) {
        const SyntheticRom rom{.mapper = 74, .prgBanks = 3, .chrBanks = 2, .flags6 = std::uint8_t(flags6 | 0x0B)};
        const NesImage image(writeRom(dir.filePath("Some.Game.nes"), rom));
        ASSERT_TRUE(image.valid);
        EXPECT_EQ(image.name, "Some.Game");
        EXPECT_EQ(image.mapper, 74u);
        EXPECT_EQ(image.prgCrc32, zlibCrc(prgDataOf(rom)));
        EXPECT_EQ(image.chrCrc32, zlibCrc(chrDataOf(rom)));
        EXPECT_EQ(image.prgBytes, 3u * 16384);
        EXPECT_EQ(image.chrLayoutBytes, 2u * 8192);
        EXPECT_EQ(image.trainerSize, flags6 ? 512u : 0u);
        EXPECT_TRUE(image.verticalMirroring && image.battery && image.fourScreen);
        EXPECT_EQ(image.hasTrainer, flags6 != 0);
    }
}

TEST(RomReader, FileShorterThanItsHeaderSaysIsRefusedWithBothSizes)
{
    QTemporaryDir dir;
    // 16 + 512 trainer + 16 KB PRG + 8 KB CHR claimed, 100 bytes missing.
    const SyntheticRom rom{.prgBanks = 1, .chrBanks = 1, .flags6 = 0x04, .cutBytes = 100};
    const QString path = writeRom(dir.filePath("short.nes"), rom);
    NesImage image;
    EXPECT_FALSE(image.load(path));
    EXPECT_FALSE(image.valid);
    EXPECT_EQ(image.name, "short");
    EXPECT_EQ(image.problem.kind, FileProblemKind::Truncated);
    EXPECT_EQ(image.problem.claimedBytes, 16u + 512 + 16384 + 8192);
    EXPECT_EQ(image.problem.fileBytes, 16u + 512 + 16384 + 8192 - 100);
    EXPECT_EQ(describeFileProblem(image.problem, Language::English),
              path + ": the header claims 25104 bytes but the file has 25004");

    // Bytes past what the header claims are no problem.
    writeFile(path, fileBytesOf({.prgBanks = 1, .chrBanks = 1}) + "tail");
    EXPECT_TRUE(NesImage(path).valid);
}

// The list holds a game by its path from the program's folder; both readers find it from there, whatever the
// current folder.
TEST(RomReader, RelativePathsAreReadFromTheProgramsFolder)
{
    QTemporaryDir dir;
    const QString path = writeRom(dir.filePath("near.nes"), {.mapper = 4, .prgBanks = 8, .chrBanks = 1});
    const QString relative = RelativePath(ExeFolder(), path).value();
    ASSERT_TRUE(IsRelative(relative));

    const GameEntry entry(relative);
    EXPECT_TRUE(entry.valid());
    EXPECT_TRUE(entry.coolboyFit);
    EXPECT_EQ(entry.path, relative);
    const NesImage image(relative);
    EXPECT_TRUE(image.valid);
    EXPECT_EQ(image.prgBanks, 8u);
    EXPECT_EQ(QDir::cleanPath(image.path), path) << "kept absolute for the merge's second read";
}

// Every file that can't be read as iNES still gives its name for the list's line, and says why.
TEST(RomReader, UnreadableFilesAreNamedWithTheirProblem)
{
    QTemporaryDir dir;
    const QString empty = writeFile(dir.filePath("empty"), {});
    const QString magicOnly = writeFile(dir.filePath("magic.nes"), QByteArray("NES\x1A", 4));
    const QString notNes = writeFile(dir.filePath("text.nes"), QByteArray(64, 'x'));
    const QString missing = dir.filePath("missing.nes");
    const QString folder = dir.filePath("folder.nes");
    ASSERT_TRUE(QDir().mkpath(folder));

    for (const auto& [path, entryProblem, imageProblem] :
         std::vector<std::tuple<QString, FileProblemKind, FileProblemKind>>{
             {empty, FileProblemKind::Truncated, FileProblemKind::Truncated},
             {magicOnly, FileProblemKind::Truncated, FileProblemKind::Truncated},
             {notNes, FileProblemKind::NoInesMark, FileProblemKind::NoInesMark},
             {missing, FileProblemKind::Missing, FileProblemKind::Missing},
             {folder, FileProblemKind::NotRegularFile, FileProblemKind::NotRegularFile},
             {QStringLiteral("/dev/zero"), FileProblemKind::NotRegularFile, FileProblemKind::NotRegularFile}}) {
        const GameEntry entry(path);
        EXPECT_FALSE(entry.valid() || entry.coolboyFit || entry.coolgirlFit);
        EXPECT_EQ(entry.name, FileNameOf(path, false));
        EXPECT_EQ(entry.problem.kind, entryProblem) << path.toStdString();
        EXPECT_EQ(entry.problem.path, path);
        NesImage image;
        EXPECT_FALSE(image.load(path));
        EXPECT_FALSE(image.valid);
        EXPECT_EQ(image.name, FileNameOf(path, false));
        EXPECT_EQ(image.problem.kind, imageProblem) << path.toStdString();
        EXPECT_EQ(image.problem.path, path);
    }
    EXPECT_EQ(GameEntry(magicOnly).problem.fileBytes, 4u);
    EXPECT_FALSE(GameEntry(writeRom(dir.filePath("good.nes"), {})).problem);
}

#ifdef Q_OS_UNIX
// A FIFO is refused from what the file system says: its content stays in it, untouched.
TEST(RomReader, FifoIsNeverOpened)
{
    QTemporaryDir dir;
    const QString fifo = dir.filePath("pipe.nes");
    ASSERT_EQ(::mkfifo(QFile::encodeName(fifo).constData(), 0600), 0);
    // Held open here for reading and writing, so that a reader that did open it would neither wait for a
    // writer nor find it empty: a 16-byte header of a game of no banks is waiting in it for each reader.
    const int held = ::open(QFile::encodeName(fifo).constData(), O_RDWR | O_NONBLOCK);
    ASSERT_GE(held, 0);
    const QByteArray headers = fileBytesOf({.prgBanks = 0, .chrBanks = 0}).repeated(2);
    ASSERT_EQ(::write(held, headers.constData(), std::size_t(headers.size())), headers.size());

    const GameEntry entry(fifo);
    EXPECT_EQ(entry.problem.kind, FileProblemKind::NotRegularFile);
    NesImage image;
    EXPECT_FALSE(image.load(fifo));
    EXPECT_EQ(image.problem.kind, FileProblemKind::NotRegularFile);
    EXPECT_EQ(describeFileProblem(image.problem, Language::English), fifo + ": not a regular file");

    char left[64];
    EXPECT_EQ(::read(held, left, sizeof left), headers.size());
    ::close(held);
}
#endif

TEST(RomReader, OnlyTheListHonoursNes20UpperBits)
{
    QTemporaryDir dir;
    // NES 2.0: byte 9 adds 256 PRG and 512 CHR banks, byte 8 adds 0x300 to the mapper.
    QByteArray nes20 = headerWith(0, 0x40, 0x58, 0x03, 0x21);
    nes20[5] = 3;
    const QString path = writeFile(dir.filePath("big.nes"), nes20);
    const GameEntry entry(path);
    EXPECT_TRUE(entry.isNes20());
    EXPECT_EQ(entry.prgBanks(), 256u);
    EXPECT_EQ(entry.chrBanks(), 512u + 3);
    EXPECT_EQ(entry.mapper(), 0x354u);
    const NesImage image(path);
    EXPECT_EQ(image.prgBanks, 0u);
    EXPECT_EQ(image.chrBanks, 3u);
    EXPECT_EQ(image.mapper, 0x354u);

    // Bits 2 and 3 of byte 7 reading 1 or 3 are no NES 2.0 header: byte 8 and 9 don't count.
    for (std::uint8_t b7 : {0x54, 0x5C}) {
        const QString other = writeFile(dir.filePath("other.nes"), headerWith(2, 0x40, b7, 0x03, 0x21));
        EXPECT_EQ(GameEntry(other).mapper(), 0x54u);
        EXPECT_EQ(GameEntry(other).prgBanks(), 2u);
        EXPECT_EQ(NesImage(other).mapper, 0x54u);
    }
}

TEST(RomReader, ListFitMarks)
{
    QTemporaryDir dir;
    const auto entry = [&](std::uint32_t mapper, std::uint32_t prg, std::uint32_t chr) {
        return GameEntry(writeRom(dir.filePath("g.nes"), {.mapper = mapper, .prgBanks = prg, .chrBanks = chr}));
    };
    // CHR decides the COOLBOY mark only for NROM, and the COOLGIRL mark never.
    for (auto [mapper, prg, chr, coolboy, coolgirl] : std::vector<std::tuple<int, int, int, bool, bool>>{
             {0, 2, 1, true, true}, {0, 2, 2, false, true}, {0, 4, 0, false, false}, {4, 128, 64, true, true},
             {74, 8, 0, true, true}, {4, 3, 0, false, false}, {1, 2, 0, false, true}, {228, 96, 0, false, true},
             {1, 64, 0, false, false}, {6, 2, 0, false, false}}) {
        const GameEntry game = entry(mapper, prg, chr);
        EXPECT_EQ(game.coolboyFit, coolboy) << mapper << " " << prg;
        EXPECT_EQ(game.coolgirlFit, coolgirl) << mapper << " " << prg;
    }
}
