// The demo multicarts as `make demo` builds them, booted in FCEUX: the menu lists every game of the demo list,
// and each game, chosen in the menu and started, passes its own board checks. A game started with the wrong
// registers, CHR or mirroring fails its self-test, and so this test. Also long lists of tiny NROM games, of
// which the last one starts, up to the most the menu can index; two games that share their PRG; and a custom
// menu that shows the look kept in the designer.
#include "e2e/fceux_runner.h"
#include "e2e/sample_verdict.h"
#include "e2e/zunbrix_build.h"
#include "designer/design_settings.h"
#include "frame/ini_file.h"
#include "frame/registry_store.h"
#include "gamelist/list_file.h"
#include "samples/sample_games.h"
#include "support/private_settings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <initializer_list>

namespace zunbrix::e2e {
namespace {

constexpr int kSelectedGame = 0x57; // the menu's selection, a little-endian word
constexpr int kFirstNameRow = 0x20C6; // where the built-in look with ten games a page writes the first name
constexpr int kPageSize = 10;
constexpr int kNameLength = 26;
constexpr int kVerdictFrames = 900;
constexpr int kTimeoutMs = 120000;

struct DemoBoard {
    const char* board;
    const char* list;
};

void PrintTo(const DemoBoard& demo, std::ostream* out) { *out << demo.board; }

struct DemoGame {
    QString name;
    const samples::SampleGame* sample = nullptr;
};

// Screenshots stay beside the test for people to look at: <build>/tests/emulator_output.
QString screenshotPath(const QString& name)
{
    const QString folder = QDir::currentPath() + QStringLiteral("/emulator_output");
    QDir().mkpath(folder);
    return folder + QLatin1Char('/') + name + QStringLiteral(".png");
}

// Lua that waits for the menu, moves the selection to `game` and presses Start.
QString startGameScript(int game)
{
    return QStringLiteral(R"lua(
local function selected() return ram(%1) + 256 * ram(%1 + 1) end
frames(120)
local tries = 0
while selected() ~= %2 and tries < 64 do
  frames(2, %3)
  frames(8)
  tries = tries + 1
end
put("selected", selected())
frames(60) -- a page turn redraws for a while and takes no buttons meanwhile
frames(2, {start = true})
frames(150)
)lua")
        .arg(kSelectedGame)
        .arg(game)
        // The last game of a long list is one step up from the first.
        .arg(game > 32 ? QStringLiteral("{up = true}") : QStringLiteral("{down = true}"));
}

// Lua that reports the names on every page of the menu as "page<p>row<r>".
QString menuNamesScript(int pages, const QString& screenshot)
{
    return QStringLiteral(R"lua(
frames(120)
screenshot([==[%5]==])
for page = 0, %1 - 1 do
  for row = 0, %2 - 1 do
    local text = {}
    for i = 0, %3 - 1 do
      local tile = vram(%4 + 32 * row + i)
      text[#text + 1] = (tile >= 32 and tile < 127) and string.char(tile) or " "
    end
    put("page" .. page .. "row" .. row, table.concat(text))
  end
  frames(2, {right = true})
  frames(90)
end
)lua")
        .arg(pages)
        .arg(kPageSize)
        .arg(kNameLength)
        .arg(kFirstNameRow)
        .arg(screenshot);
}

class DemoMulticart : public ::testing::TestWithParam<DemoBoard> {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
        ASSERT_TRUE(folder.isValid());
        rom = folder.filePath(QStringLiteral("demo.nes"));
    }

    // The games of the demo list, in its order, each with the sample game its file holds.
    std::vector<DemoGame> demoGames() const
    {
        IniFile ini(QStringLiteral(ZUNBRIX_DEMO_DIR "/") + QLatin1String(GetParam().list), true);
        EXPECT_TRUE(ini.Load());
        std::vector<GameEntry> entries;
        LoadListFile(ini, entries);
        std::vector<DemoGame> games;
        for (const GameEntry& entry : entries) {
            DemoGame game{entry.name};
            for (const samples::SampleGame& sample : samples::kSampleGames)
                if (QFileInfo(entry.path).fileName() == QLatin1String(sample.fileName.data(), sample.fileName.size()))
                    game.sample = &sample;
            EXPECT_TRUE(game.sample) << entry.path.toStdString() << " is no sample game";
            games.push_back(game);
        }
        return games;
    }

    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    QString rom;
};

TEST_P(DemoMulticart, MenuListsEveryGameAndEachStartsAndPasses)
{
    const DemoBoard& demo = GetParam();
    const std::vector<DemoGame> games = demoGames();
    ASSERT_FALSE(games.empty());
    const QString failure = zunbrixBuild({QStringLiteral("-b"), QLatin1String(demo.board), QStringLiteral("-o"), rom,
                                          QStringLiteral(ZUNBRIX_DEMO_DIR "/") + QLatin1String(demo.list)},
                                         folder.path());
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const int pages = (static_cast<int>(games.size()) + kPageSize - 1) / kPageSize;
    const QString menuShot = screenshotPath(QStringLiteral("demo-menu-") + QLatin1String(demo.board));
    const FceuxRun menu = runFceux({rom, menuNamesScript(pages, menuShot), folder.path(), kTimeoutMs});
    ASSERT_TRUE(menu.finished) << menu.log.toStdString();
    for (std::size_t i = 0; i < games.size(); ++i) {
        const QString key = QStringLiteral("page%1row%2").arg(i / kPageSize).arg(i % kPageSize);
        EXPECT_EQ(menu.values.value(key).trimmed(), games[i].name.toUpper()) << "row of game " << i + 1;
    }
    EXPECT_TRUE(QFile::exists(menuShot));

    for (std::size_t i = 0; i < games.size(); ++i) {
        const samples::SampleGame& sample = *games[i].sample;
        const QString shot = screenshotPath(QStringLiteral("demo-%1-%2").arg(QLatin1String(demo.board)).arg(i + 1));
        const QString script = startGameScript(static_cast<int>(i)) + sampleVerdictScript(kVerdictFrames, shot);
        const FceuxRun run = runFceux({rom, script, folder.path(), kTimeoutMs});
        ASSERT_TRUE(run.finished) << run.log.toStdString();
        ASSERT_EQ(run.values.value(QStringLiteral("selected")).toInt(), static_cast<int>(i));
        const SampleVerdict verdict = sampleVerdict(run);
        const std::string what = games[i].name.toStdString() + ": " + verdict.describe().toStdString();
        EXPECT_EQ(verdict.gameId(), sample.id) << what;
        EXPECT_TRUE(verdict.passed()) << what;
        EXPECT_EQ(verdict.resultOnScreen, QStringLiteral("PASS")) << games[i].name.toStdString();
    }
}

INSTANTIATE_TEST_SUITE_P(EveryBoard, DemoMulticart,
                         ::testing::Values(DemoBoard{"coolboy", "coolboy.qvl"}, DemoBoard{"mindkids", "coolboy.qvl"},
                                           DemoBoard{"coolgirl", "coolgirl.qvl"}),
                         [](const ::testing::TestParamInfo<DemoBoard>& info) { return std::string(info.param.board); });

// Where a tiny game finds the number it reports.
enum class NumberIn { Prg, Chr };

// A 16 KB NROM game that, once started, writes its number and a mark to $0600 and stops there. It finds the
// number in its own code, or in the first two bytes of its CHR: games of the second kind differ only in
// their CHR, and their PRG is shared on the flash.
QByteArray tinyNromGame(int number, NumberIn numberIn = NumberIn::Prg)
{
    constexpr int kPrgBytes = 16384;
    constexpr int kOrigin = 0xC000;
    QByteArray prg;
    const auto emit = [&prg](std::initializer_list<int> bytes) {
        for (int byte : bytes)
            prg.append(char(byte));
    };
    emit({0x78, 0xA2, 0xFF, 0x9A});                   // SEI; LDX #$FF; TXS
    if (numberIn == NumberIn::Prg) {
        emit({0xA9, number & 0xFF, 0x8D, 0x00, 0x06}); // LDA #lo; STA $0600
        emit({0xA9, number >> 8, 0x8D, 0x01, 0x06});   // LDA #hi; STA $0601
    } else {
        emit({0xAD, 0x02, 0x20, 0xA9, 0x00});          // LDA $2002; LDA #0
        emit({0x8D, 0x06, 0x20, 0x8D, 0x06, 0x20});    // STA $2006 twice: PPU address 0
        emit({0xAD, 0x07, 0x20});                      // LDA $2007: the stale buffered byte
        emit({0xAD, 0x07, 0x20, 0x8D, 0x00, 0x06});    // LDA $2007; STA $0600
        emit({0xAD, 0x07, 0x20, 0x8D, 0x01, 0x06});    // LDA $2007; STA $0601
    }
    emit({0xA9, 'O', 0x8D, 0x02, 0x06});              // LDA #'O'; STA $0602
    const int loop = kOrigin + int(prg.size());
    emit({0x4C, loop & 0xFF, loop >> 8});             // JMP to itself
    const int rti = kOrigin + int(prg.size());
    emit({0x40});                                     // RTI, for NMI and IRQ
    prg.append(kPrgBytes - 6 - prg.size(), char(0xFF));
    emit({rti & 0xFF, rti >> 8, kOrigin & 0xFF, kOrigin >> 8, rti & 0xFF, rti >> 8});
    QByteArray header("NES\x1A\x01\x01", 6);
    header.append(10, '\0');
    QByteArray chr(8192, char(number));
    chr[0] = char(number & 0xFF);
    chr[1] = char(number >> 8);
    return header + prg + chr;
}

bool writeBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

// Writes `count` tiny games into `folder`, named so that a folder input lists them in number order.
bool writeTinyGames(const QString& folder, int from, int count, NumberIn numberIn)
{
    QDir().mkpath(folder);
    for (int i = from; i < from + count; ++i)
        if (!writeBytes(folder + QStringLiteral("/game%1.nes").arg(i, 4, 10, QLatin1Char('0')),
                        tinyNromGame(i, numberIn)))
            return false;
    return true;
}

// Builds the tiny games of `games` for `board` and starts the last of them, the `count`th: the menu selects it,
// and the game writes `report` (its number, low byte first, and the mark).
void expectLastTinyGameStarts(const char* board, const QString& games, int count, const QString& report)
{
    const QString folder = QFileInfo(games).path();
    const QString rom = folder + QStringLiteral("/long.nes");
    const QString failure =
        zunbrixBuild({QStringLiteral("-b"), QLatin1String(board), QStringLiteral("-o"), rom, games}, folder);
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const QString script = startGameScript(count - 1) + QStringLiteral("put(\"started\", ram_hex(0x0600, 3))\n");
    const FceuxRun run = runFceux({rom, script, folder, kTimeoutMs});
    ASSERT_TRUE(run.finished) << run.log.toStdString();
    EXPECT_EQ(run.values.value(QStringLiteral("selected")).toInt(), count - 1);
    EXPECT_EQ(run.values.value(QStringLiteral("started")), report) << "the last game ran with its own data";
}

TEST(LongList, LastOfAThousandNromGamesStartsOnCoolboy)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    constexpr int kGames = 1000;
    ASSERT_TRUE(writeTinyGames(folder.filePath("games"), 0, kGames, NumberIn::Prg));
    expectLastTinyGameStarts("coolboy", folder.filePath("games"), kGames, QStringLiteral("E7034F"));
}

// The menu's index tables hold 2,048 games. The last of 2,048 COOLGIRL games starts with its own data (its
// number comes from its CHR, which its record locates); a 2,049th game makes the build refuse the list,
// naming the limit, and no ROM is written.
TEST(LongList, LastOf2048GamesStartsOnCoolgirlAndOneMoreIsRefused)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    constexpr int kGames = 2048;
    const QString games = folder.filePath("games");
    ASSERT_TRUE(writeTinyGames(games, 0, kGames, NumberIn::Chr));
    expectLastTinyGameStarts("coolgirl", games, kGames, QStringLiteral("FF074F"));

    ASSERT_TRUE(writeTinyGames(games, kGames, 1, NumberIn::Chr));
    const QString refused = folder.filePath(QStringLiteral("refused.nes"));
    const QString failure = zunbrixBuild(
        {QStringLiteral("-b"), QStringLiteral("coolgirl"), QStringLiteral("-o"), refused, games}, folder.path());
    EXPECT_TRUE(failure.contains(QStringLiteral("at most 2048 games, but 2049 are checked"))) << failure.toStdString();
    EXPECT_FALSE(QFile::exists(refused));
}

// An NROM game and an MMC3 game with byte for byte the same PRG (the sample game DOUBLE DECKER under both
// mappers) share one copy on COOLBOY, in the MMC3 game's 128 KB window: the pair takes no more flash than the
// MMC3 game alone, and less than a pair whose PRG differs in one byte. Both, started from the menu, pass.
TEST(SharedPrg, NromAndMmc3GamesWithTheSamePrgShareOneCopyAndBothPass)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    const samples::SampleGame& sample = samples::kSampleGames[1];
    ASSERT_EQ(sample.fileName, "double_decker.nes");
    ASSERT_EQ(sample.mapper, 0);
    QFile original(QLatin1String(samples::kSampleGameDir.data(), samples::kSampleGameDir.size()) + QLatin1Char('/') +
                   QLatin1String(sample.fileName.data(), sample.fileName.size()));
    ASSERT_TRUE(original.open(QIODevice::ReadOnly));
    const QByteArray nrom = original.readAll();
    QByteArray mmc3 = nrom;
    mmc3[6] = char((nrom[6] & 0x0F) | 0x40);
    QByteArray otherNrom = nrom;
    otherNrom[16 + 0x100] = char(otherNrom[16 + 0x100] ^ 1);
    const QString nromPath = folder.filePath(QStringLiteral("nrom.nes"));
    const QString mmc3Path = folder.filePath(QStringLiteral("mmc3.nes"));
    const QString otherPath = folder.filePath(QStringLiteral("other.nes"));
    ASSERT_TRUE(writeBytes(nromPath, nrom) && writeBytes(mmc3Path, mmc3) && writeBytes(otherPath, otherNrom));

    const auto romSize = [&](const QString& name, const QStringList& inputs) -> qint64 {
        const QString rom = folder.filePath(name);
        const QString failure = zunbrixBuild(QStringList{QStringLiteral("-b"), QStringLiteral("coolboy"),
                                                         QStringLiteral("--menu-size"), QStringLiteral("512"),
                                                         QStringLiteral("-o"), rom} + inputs,
                                             folder.path());
        EXPECT_TRUE(failure.isEmpty()) << failure.toStdString();
        return QFileInfo(rom).size();
    };
    const qint64 pair = romSize(QStringLiteral("pair.nes"), {nromPath, mmc3Path});
    EXPECT_EQ(pair, romSize(QStringLiteral("mmc3-only.nes"), {mmc3Path}));
    EXPECT_LT(pair, romSize(QStringLiteral("apart.nes"), {otherPath, mmc3Path}));

    for (int game : {0, 1}) {
        const QString shot = screenshotPath(QStringLiteral("shared-prg-%1").arg(game + 1));
        const QString script = startGameScript(game) + sampleVerdictScript(kVerdictFrames, shot);
        const FceuxRun run = runFceux({folder.filePath(QStringLiteral("pair.nes")), script, folder.path(), kTimeoutMs});
        ASSERT_TRUE(run.finished) << run.log.toStdString();
        ASSERT_EQ(run.values.value(QStringLiteral("selected")).toInt(), game);
        const SampleVerdict verdict = sampleVerdict(run);
        EXPECT_EQ(verdict.gameId(), sample.id) << "game " << game + 1 << ": " << verdict.describe().toStdString();
        EXPECT_TRUE(verdict.passed()) << "game " << game + 1 << ": " << verdict.describe().toStdString();
    }
}

// The custom menu of a real build, on the screen: the kept caption, the kept list position (names start at
// column 4 of row 6 and are cut where the row ends), the kept attributes and background palette.
TEST(CustomMenu, ShowsTheLookKeptInTheDesigner)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral("games"));
    const QString names[] = {QStringLiteral("a"), QString(40, QLatin1Char('b'))};
    for (int i = 0; i < 2; ++i) {
        QFile file(folder.filePath(QStringLiteral("games/") + names[i] + QStringLiteral(".nes")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(tinyNromGame(i));
    }
    const QString key = QString::fromLatin1(design_settings::kKey);
    const auto store = [&](const char* name, const QByteArray& bytes) {
        ASSERT_TRUE(RegistryStore::SetBinary(key, QString::fromLatin1(name), bytes));
    };
    ASSERT_TRUE(RegistryStore::SetString(key, QString::fromLatin1(design_settings::kCaptionText), "MY GAMES"));
    store(design_settings::kItemPpuAddr, QByteArray("\xC4\x20\0\0", 4)); // 8388
    store(design_settings::kAttributes, QByteArray(64, '\x1B'));
    const QByteArray palette = QByteArray::fromHex("0F162A120F1A2B3C0F0102030F111213");
    store(design_settings::kBkgPalette, palette);

    const QString rom = folder.filePath(QStringLiteral("custom.nes"));
    const QString failure = zunbrixBuild({QStringLiteral("-b"), QStringLiteral("coolboy"), QStringLiteral("--custom-menu"),
                                          QStringLiteral("-o"), rom, folder.filePath("games")},
                                         folder.path());
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const QString shot = screenshotPath(QStringLiteral("custom-menu"));
    const QString script = QStringLiteral(R"lua(
frames(120)
put("caption", vram_hex(0x204C, 8))
put("first", vram_hex(0x20C0, 6))
put("second", vram_hex(0x20E0, 32))
put("below", vram_hex(0x2100, 12))
put("attributes", vram_hex(0x23C0, 64))
put("palette", vram_hex(0x3F00, 16))
screenshot([==[%1]==])
)lua").arg(shot);
    const FceuxRun run = runFceux({rom, script, folder.path(), kTimeoutMs});
    ASSERT_TRUE(run.finished) << run.log.toStdString();
    const auto hex = [](const QByteArray& bytes) { return QString::fromLatin1(bytes.toHex().toUpper()); };
    // The blank shows the background beneath: tile 0 of the empty design.
    EXPECT_EQ(run.values.value("caption"), hex(QByteArray("MY\0GAMES", 8)));
    EXPECT_EQ(run.values.value("first"), hex(QByteArray("\0\0\0\0A\0", 6)));
    EXPECT_EQ(run.values.value("second"), hex(QByteArray(4, '\0') + QByteArray(28, 'B')));
    EXPECT_EQ(run.values.value("below"), hex(QByteArray(12, '\0'))) << "nothing of the name past the row's end";
    EXPECT_EQ(run.values.value("attributes"), hex(QByteArray(64, '\x1B')));
    EXPECT_EQ(run.values.value("palette"), hex(palette));
}

} // namespace
} // namespace zunbrix::e2e
