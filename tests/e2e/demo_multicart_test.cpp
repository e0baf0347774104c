// The demo multicarts as `make demo` builds them, booted in FCEUX: the menu lists every game of the demo list,
// and each game, chosen in the menu and started, passes its own board checks. A game started with the wrong
// registers, CHR or mirroring fails its self-test, and so this test. Also a list of 1,000 tiny NROM games on
// COOLBOY, of which the last one starts, and a custom menu that shows the look kept in the designer.
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

// A 16 KB NROM game that, once started, writes its number and a mark to $0600 and stops there.
QByteArray tinyNromGame(int number)
{
    constexpr int kPrgBytes = 16384;
    constexpr int kOrigin = 0xC000;
    QByteArray prg;
    const auto emit = [&prg](std::initializer_list<int> bytes) {
        for (int byte : bytes)
            prg.append(char(byte));
    };
    emit({0x78, 0xA2, 0xFF, 0x9A});                   // SEI; LDX #$FF; TXS
    emit({0xA9, number & 0xFF, 0x8D, 0x00, 0x06});    // LDA #lo; STA $0600
    emit({0xA9, number >> 8, 0x8D, 0x01, 0x06});      // LDA #hi; STA $0601
    emit({0xA9, 'O', 0x8D, 0x02, 0x06});              // LDA #'O'; STA $0602
    const int loop = kOrigin + int(prg.size());
    emit({0x4C, loop & 0xFF, loop >> 8});             // JMP to itself
    const int rti = kOrigin + int(prg.size());
    emit({0x40});                                     // RTI, for NMI and IRQ
    prg.append(kPrgBytes - 6 - prg.size(), char(0xFF));
    emit({rti & 0xFF, rti >> 8, kOrigin & 0xFF, kOrigin >> 8, rti & 0xFF, rti >> 8});
    QByteArray header("NES\x1A\x01\x01", 6);
    header.append(10, '\0');
    return header + prg + QByteArray(8192, char(number));
}

TEST(LongList, LastOfAThousandNromGamesStartsOnCoolboy)
{
    ASSERT_TRUE(missingFceuxTools().isEmpty()) << missingFceuxTools().toStdString();
    zunbrix::testing::PrivateSettings settings;
    QTemporaryDir folder;
    QDir(folder.path()).mkpath(QStringLiteral("games"));
    constexpr int kGames = 1000;
    for (int i = 0; i < kGames; ++i) {
        QFile file(folder.filePath(QStringLiteral("games/game%1.nes").arg(i, 4, 10, QLatin1Char('0'))));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(tinyNromGame(i));
    }
    const QString rom = folder.filePath(QStringLiteral("long.nes"));
    const QString failure = zunbrixBuild(
        {QStringLiteral("-b"), QStringLiteral("coolboy"), QStringLiteral("-o"), rom, folder.filePath("games")},
        folder.path());
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const QString script = startGameScript(kGames - 1) + QStringLiteral("put(\"started\", ram_hex(0x0600, 3))\n");
    const FceuxRun run = runFceux({rom, script, folder.path(), kTimeoutMs});
    ASSERT_TRUE(run.finished) << run.log.toStdString();
    EXPECT_EQ(run.values.value(QStringLiteral("selected")).toInt(), kGames - 1);
    EXPECT_EQ(run.values.value(QStringLiteral("started")), QStringLiteral("E7034F")) << "game 999 ran its first lines";
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
