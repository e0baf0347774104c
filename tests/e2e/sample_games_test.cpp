// The sample games, each run on its own as a plain iNES file in FCEUX: every one passes its own board checks
// and shows its title and PASS; and a game whose board misbehaves (its file changed the way a wrong multicart
// setup would change what it sees) says FAIL, naming the check that caught it.
#include "e2e/fceux_runner.h"
#include "e2e/sample_verdict.h"
#include "samples/sample_games.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <ostream>
#include <string>

namespace zunbrix::samples {

void PrintTo(const SampleGame& game, std::ostream* out) { *out << game.fileName; }

} // namespace zunbrix::samples

namespace zunbrix::e2e {
namespace {

using samples::SampleCheck;
using samples::SampleGame;

constexpr int kMaxFrames = 600;
constexpr int kTimeoutMs = 60000;
constexpr int kPrgBankBytes = 16384;
constexpr int kChrBankBytes = 8192;
constexpr int kHeaderBytes = 16;

QString romPath(std::string_view fileName)
{
    return QString::fromUtf8(samples::kSampleGameDir.data(), qsizetype(samples::kSampleGameDir.size())) + '/' +
           QString::fromUtf8(fileName.data(), qsizetype(fileName.size()));
}

int gameId(std::string_view fileName)
{
    for (const SampleGame& game : samples::kSampleGames) {
        if (game.fileName == fileName)
            return game.id;
    }
    return -1;
}

// Screenshots stay beside the test for people to look at: <build>/tests/e2e/emulator_output.
QString screenshotPath(std::string_view fileName)
{
    const QString folder = QDir::currentPath() + QStringLiteral("/emulator_output");
    QDir().mkpath(folder);
    return folder + '/' + QString::fromUtf8(fileName.data(), qsizetype(fileName.size())).replace(".nes", ".png");
}

class SampleGameRun {
public:
    SampleVerdict run(const QString& rom, const QString& screenshot = {})
    {
        EXPECT_TRUE(folder_.isValid());
        run_ = runFceux({rom, sampleVerdictScript(kMaxFrames, screenshot), folder_.path(), kTimeoutMs});
        EXPECT_TRUE(run_.finished) << run_.log.toStdString();
        return sampleVerdict(run_);
    }

    QString log() const { return run_.log; }
    QString folder() const { return folder_.path(); }

private:
    QTemporaryDir folder_;
    FceuxRun run_;
};

class SampleGameStandalone : public ::testing::TestWithParam<SampleGame> {
protected:
    void SetUp() override { ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString(); }
};

TEST_P(SampleGameStandalone, PassesItsBoardChecksAndShowsIt)
{
    const SampleGame& game = GetParam();
    SampleGameRun emulator;
    const QString screenshot = screenshotPath(game.fileName);
    QFile::remove(screenshot);
    const SampleVerdict verdict = emulator.run(romPath(game.fileName), screenshot);

    ASSERT_TRUE(verdict.hasSignature()) << verdict.describe().toStdString() << "\n" << emulator.log().toStdString();
    EXPECT_EQ(verdict.gameId(), game.id);
    EXPECT_TRUE(verdict.passed()) << verdict.describe().toStdString();
    EXPECT_EQ(verdict.titleOnScreen.toStdString(), game.title);
    EXPECT_EQ(verdict.resultOnScreen, QStringLiteral("PASS"));
    EXPECT_TRUE(QFile::exists(screenshot));
}

INSTANTIATE_TEST_SUITE_P(EveryGame, SampleGameStandalone, ::testing::ValuesIn(samples::kSampleGames),
                         [](const ::testing::TestParamInfo<SampleGame>& info) {
                             std::string name(info.param.fileName.substr(0, info.param.fileName.find('.')));
                             std::erase(name, '_');
                             return name;
                         });

// A header or ROM change standing for a board that does not do what the game's mapper must.
struct BoardFault {
    const char* name;
    std::string_view fileName;
    void (*change)(QByteArray& rom);
    SampleCheck caughtBy;
};

void setMapper(QByteArray& rom, int mapper)
{
    rom[6] = char((rom[6] & 0x0F) | ((mapper & 0x0F) << 4));
    rom[7] = char((rom[7] & 0x0F) | (mapper & 0xF0));
}

const BoardFault kBoardFaults[] = {
    {"MirroringOppositeToTheHeader", "tiny_tower.nes", [](QByteArray& rom) { rom[6] = char(rom[6] ^ 1); },
     SampleCheck::Mirroring},
    // Mapper 206 is MMC3 without the PRG and CHR mode bits, the mirroring register and the IRQ.
    {"Mmc3WithoutModeBits", "bank_robber.nes", [](QByteArray& rom) { setMapper(rom, 206); }, SampleCheck::Prg},
    // Mapper 118 takes the nametable from the CHR registers, not from the mirroring register.
    {"Mmc3WithoutMirroringRegister", "bank_robber.nes", [](QByteArray& rom) { setMapper(rom, 118); },
     SampleCheck::Mirroring},
    {"PrgBanksInWrongOrder", "sky_elevator.nes",
     [](QByteArray& rom) {
         const QByteArray first = rom.mid(kHeaderBytes, kPrgBankBytes);
         rom.replace(kHeaderBytes, kPrgBankBytes, rom.mid(kHeaderBytes + kPrgBankBytes, kPrgBankBytes));
         rom.replace(kHeaderBytes + kPrgBankBytes, kPrgBankBytes, first);
     },
     SampleCheck::Prg},
    {"ChrBankNotCopied", "tile_juggler.nes",
     [](QByteArray& rom) {
         const int prgBytes = static_cast<std::uint8_t>(rom[4]) * kPrgBankBytes;
         rom.replace(kHeaderBytes + prgBytes + 2 * kChrBankBytes, kChrBankBytes, QByteArray(kChrBankBytes, '\xFF'));
     },
     SampleCheck::Chr},
    // Mapper 34 (BNROM) switches 32 KB like AxROM but has no one-screen mirroring.
    {"OneScreenMissing", "one_room.nes", [](QByteArray& rom) { setMapper(rom, 34); }, SampleCheck::Mirroring},
};

void PrintTo(const BoardFault& fault, std::ostream* out) { *out << fault.name << " on " << fault.fileName; }

class SampleGameOnFaultyBoard : public ::testing::TestWithParam<BoardFault> {
protected:
    void SetUp() override { ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString(); }
};

TEST_P(SampleGameOnFaultyBoard, SaysFailAndWhichCheck)
{
    const BoardFault& fault = GetParam();
    QFile original(romPath(fault.fileName));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    QByteArray rom = original.readAll();
    fault.change(rom);

    SampleGameRun emulator;
    const QString changed = emulator.folder() + QStringLiteral("/changed.nes");
    QFile file(changed);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(rom);
    file.close();
    const SampleVerdict verdict = emulator.run(changed);

    ASSERT_TRUE(verdict.hasSignature()) << verdict.describe().toStdString() << "\n" << emulator.log().toStdString();
    EXPECT_EQ(verdict.gameId(), gameId(fault.fileName));
    EXPECT_TRUE(verdict.failed()) << verdict.describe().toStdString();
    EXPECT_EQ(verdict.check(), fault.caughtBy) << verdict.describe().toStdString();
    EXPECT_TRUE(verdict.resultOnScreen.startsWith(QStringLiteral("FAIL "))) << verdict.resultOnScreen.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Faults, SampleGameOnFaultyBoard, ::testing::ValuesIn(kBoardFaults),
                         [](const ::testing::TestParamInfo<BoardFault>& info) { return std::string(info.param.name); });

} // namespace
} // namespace zunbrix::e2e
