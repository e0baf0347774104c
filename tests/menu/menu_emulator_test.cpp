// The assembled menu running in FCEUX (menu.nes is a plain MMC3 image), headless under xvfb-run, driven by
// Lua scripts that press buttons and read back RAM, PPU memory and sprites.
#include "menu_fixture.h"

#include "designer/document.h"
#include "e2e/fceux_runner.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QMap>

namespace zunbrix::testing {
namespace {

// Zero-page addresses of the menu's state
constexpr int kPageCur = 0x53;
constexpr int kSelCur = 0x57;

QString outputFolder()
{
    const QString folder = QDir::currentPath() + QStringLiteral("/emulator_output");
    QDir().mkpath(folder);
    return folder;
}

// Helpers every script starts with, beside the runner's own (put, ram, vram_hex, screenshot, ...). `frame`
// advances one frame with the given buttons held; `idle` waits until no page is being redrawn and no delay
// runs, then two frames more so the last list is played.
const char* const kLuaPrelude = R"lua(
local function word(a) return memory.readbyte(a) + 256 * memory.readbyte(a + 1) end
local function frame(pad) joypad.set(1, pad or {}) emu.frameadvance() end
local function idle()
  local n = 0
  while (ram(0x5D) ~= 0 or ram(0x64) ~= 0) and n < 600 do frame() n = n + 1 end
  frame() frame()
  return n
end
local function press(pad) frame(pad) frame() return idle() end
-- until the picture is switched on after start-up and the first page is drawn
local function startup()
  local n = 0
  while ram(0x2C1) ~= 0x1E and n < 300 do frame() n = n + 1 end
  idle()
end
local function state() return word(0x57) .. "," .. word(0x53) end
local function rows(base, step, count, width)
  for r = 0, count - 1 do put("row" .. r, vram_hex(base + r * step, width)) end
end
local function sprites()
  local t = {}
  for i = 0, 255 do t[#t + 1] = string.format("%02X", ram(0x400 + i)) end
  return table.concat(t)
end
)lua";

using LuaGlobals = QMap<QString, int>;

// Runs the script on the ROM; screenshots (SHOTS) and the run's files stay in the output folder.
e2e::FceuxRun runInEmulator(const QString& rom, const QString& script, const QString& name, const LuaGlobals& globals)
{
    const QString folder = outputFolder() + QStringLiteral("/run_") + name;
    QDir().mkpath(folder);
    QString text = QStringLiteral("SHOTS = [==[%1/]==]\n").arg(outputFolder());
    for (auto it = globals.begin(); it != globals.end(); ++it)
        text += it.key() + QStringLiteral(" = ") + QString::number(it.value()) + '\n';
    text += QString::fromUtf8(kLuaPrelude) + script;
    return e2e::runFceux({rom, text, folder, 120000});
}

QString hex(const QByteArray& bytes)
{
    return QString::fromLatin1(bytes.toHex().toUpper());
}

// What a row of the name table must hold after drawing: the mapped name, a blank showing the stored table,
// and the stored table again where the name ends.
QString expectedRow(const MenuSetup& setup, int game, int ppuAddr, int width)
{
    const QByteArray name = game < setup.names.size() ? setup.names[game].toLatin1() : QByteArray();
    QByteArray cells;
    for (int column = 0; column < width; ++column) {
        const bool inName = column < name.size() && name[column] != ' ';
        cells += static_cast<char>(inName ? setup.charMap[static_cast<std::uint8_t>(name[column])]
                                          : backgroundTile(setup, ppuAddr, column));
    }
    return hex(cells);
}

QString expectedText(const MenuSetup& setup, const QByteArray& text, int ppuAddr)
{
    QByteArray cells;
    for (int column = 0; column < text.size(); ++column) {
        cells += static_cast<char>(text[column] == ' ' ? backgroundTile(setup, ppuAddr, column)
                                                       : setup.charMap[static_cast<std::uint8_t>(text[column])]);
    }
    return hex(cells);
}

class MenuInEmulator : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(e2e::missingFceuxTools().isEmpty()) << e2e::missingFceuxTools().toStdString();
    }

    // Assembles the setup; the image stays in the test's output folder under `name`.
    QString build(const MenuSetup& setup, const QString& name)
    {
        MenuWorkFolder work(setup);
        EXPECT_TRUE(work.ready());
        const auto result = work.assemble();
        EXPECT_EQ(result.exitCode, 0) << result.output.toStdString();
        const QString rom = outputFolder() + '/' + name + QStringLiteral(".nes");
        QFile file(rom);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
        file.write(result.rom);
        return rom;
    }

    // Runs the script on the setup's menu; ITEM, TITLE and INDICATOR hold the positions of the list, the
    // caption and the page indicator.
    e2e::FceuxRun run(const MenuSetup& setup, const QString& name, const QString& script)
    {
        const LuaGlobals globals = {{QStringLiteral("ITEM"), itemShowPos(setup)},
                                    {QStringLiteral("TITLE"), titleShowPos(setup)},
                                    {QStringLiteral("INDICATOR"), pageIndicatorPos(setup)}};
        e2e::FceuxRun result = runInEmulator(build(setup, name), script, name, globals);
        EXPECT_TRUE(result.finished) << result.log.toStdString();
        EXPECT_FALSE(result.values.isEmpty()) << result.log.toStdString();
        return result;
    }
};

TEST_F(MenuInEmulator, BuiltInLookDrawsThePageAndMovesByTheRules)
{
    MenuSetup setup;
    setup.pageSize = 10;
    setup.turningSpeed = 2;
    setup.names = numberedNames(23); // three pages, the last of three games
    const int item = itemShowPos(setup);
    const QString script = QStringLiteral(R"lua(
startup()
for i = 1, 10 do frame() end
rows(ITEM, 32, 10, 26)
put("caption", vram_hex(TITLE, 7))
put("indicator", vram_hex(INDICATOR, 3))
put("sprite", string.format("%02X%02X%02X%02X", ram(0x400), ram(0x401), ram(0x402), ram(0x403)))
screenshot(SHOTS .. "style0_page1.png")
local moves = {
  {"up", {up = true}}, {"down", {down = true}},
  {"down9", {down = true}, 9}, {"down", {down = true}}, {"up", {up = true}},
  {"right", {right = true}}, {"right", {right = true}}, {"right", {right = true}},
  {"left", {left = true}}, {"left", {left = true}},
  {"a", {A = true}}, {"a", {A = true}}, {"b", {B = true}}, {"b", {B = true}},
  {"leftright", {left = true, right = true}}, {"select", {select = true}}, {"downa", {down = true, A = true}},
  {"bupright", {up = true, right = true}}, {"upstart", {up = true, start = true}},
}
for i, move in ipairs(moves) do
  for n = 1, (move[3] or 1) do press(move[2]) end
  put("move" .. i, move[1] .. ":" .. state())
  if i == 1 then
    for r = 0, 9 do put("last" .. r, vram_hex(ITEM + r * 32, 26)) end
    put("lastIndicator", vram_hex(INDICATOR, 3))
    put("lastSprite", ram(0x400))
  end
end
)lua");
    const auto result = run(setup, QStringLiteral("builtin_moves"), script);
    const auto& v = result.values;

    for (int row = 0; row < 10; ++row) {
        EXPECT_EQ(v["row" + QString::number(row)], expectedRow(setup, row, item + row * 32, 26)) << row;
    }
    EXPECT_EQ(v["caption"], expectedText(setup, "23 IN 1", titleShowPos(setup)));
    EXPECT_EQ(v["indicator"], hex("1/3"));
    // Arrow one column left of the first name, one line above it as the hardware shows sprites a line late
    EXPECT_EQ(v["sprite"], QStringLiteral("2F1F0026"));

    // After Up from the first game: the short last page, the rest of the rows showing the picture again
    for (int row = 0; row < 10; ++row) {
        EXPECT_EQ(v["last" + QString::number(row)], expectedRow(setup, 20 + row, item + row * 32, 26)) << row;
    }
    EXPECT_EQ(v["lastIndicator"], hex("3/3"));
    EXPECT_EQ(v["lastSprite"], QString::number(0x2F + 2 * 8));

    const QStringList expected = {
        "up:22,20",       "down:0,0",     "down9:9,0",     "down:10,10", "up:9,0",     "right:19,10",  "right:22,20",
        "right:2,0",      "left:22,20",   "left:12,10",    "a:22,20",    "a:2,0",      "b:22,20",      "b:2,0",
        "leftright:2,0",  "select:3,0",   "downa:4,0",     "bupright:4,0", "upstart:4,0",
    };
    for (int i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(v["move" + QString::number(i + 1)], expected[i]) << "move " << i + 1;
    }
}

// Start-up, paging speed and auto-repeat with a page of 20 at turning speed 1 and 4
class MenuTiming : public MenuInEmulator, public ::testing::WithParamInterface<int> {};

TEST_P(MenuTiming, FirstPageRedrawAndRepeat)
{
    const int speed = GetParam();
    MenuSetup setup;
    setup.pageSize = 20;
    setup.turningSpeed = speed;
    setup.showPageNumber = false;
    setup.names = numberedNames(100);
    const int item = itemShowPos(setup);
    const QString script = QStringLiteral(R"lua(
local visible = -1
for f = 1, 120 do
  frame()
  if visible < 0 and ram(0x2C1) == 0x1E and ram(0x5D) == 0 and ppu.readbyte(0x3F01) == 0x24
     and ppu.readbyte(ITEM + 19 * 32) ~= 0 then
    visible = emu.framecount()
  end
end
put("visible", visible)
-- a page change: frames from the press until every row is in the name table
frame({right = true})
local drawn = 0
repeat frame() drawn = drawn + 1 until ram(0x5D) == 0 or drawn > 100
put("redraw", drawn)
put("page", vram_hex(ITEM + 19 * 32, 9))
put("indicator", vram_hex(INDICATOR, 3))
idle()
press({left = true})
-- hold Down: the frames on which the selection moves
local moves = {}
local last = word(0x57)
for f = 0, 46 do
  frame({down = true})
  if word(0x57) ~= last then moves[#moves + 1] = f last = word(0x57) end
end
put("repeat", table.concat(moves, ","))
)lua");
    const auto result = run(setup, QStringLiteral("timing_speed") + QString::number(speed), script);
    const auto& v = result.values;

    const int visible = v["visible"].toInt();
    EXPECT_GT(visible, 0);
    EXPECT_LE(visible, 40);
    const int redraw = v["redraw"].toInt();
    EXPECT_LE(redraw, 20 / speed + 1);
    EXPECT_GE(redraw, 20 / speed);
    EXPECT_EQ(v["page"], expectedRow(setup, 39, item + 19 * 32, 9));
    EXPECT_EQ(v["indicator"], QStringLiteral("000000")); // switched off
    EXPECT_EQ(v["repeat"], QStringLiteral("0,29,34,39,44"));
    std::cout << "speed " << speed << ": first page visible at frame " << visible << ", page drawn in " << redraw
              << " frames\n";
}

INSTANTIATE_TEST_SUITE_P(TurningSpeed, MenuTiming, ::testing::Values(1, 4));

TEST_F(MenuInEmulator, CustomLookKeepsTheBackgroundUnderBlanks)
{
    MenuSetup setup;
    setup.custom = true;
    setup.bigCursor = true;
    setup.bigSprite = true;
    setup.nameInsertRow = true;
    setup.pageSize = 5;
    setup.itemPpuAddr = 0x20A8;
    setup.captionPpuAddr = 0x2049;
    setup.pageNumberPpuAddr = 0x2350;
    setup.names = numberedNames(12);
    setup.names[1] = QStringLiteral("TWO  BLANKS_MAPPED");
    for (int i = 0; i < 960; ++i) {
        setup.nameTable[i] = static_cast<char>((i / 32) % 2 == 0 ? 0x2E : 0x2A); // dotted and starred rows
    }
    setup.charMap['_'] = '-';
    const int item = itemShowPos(setup);
    const QString script = QStringLiteral(R"lua(
startup()
for i = 1, 10 do frame() end
rows(ITEM, 64, 5, 24)
put("caption", vram_hex(TITLE, 7))
put("indicator", vram_hex(INDICATOR, 3))
put("sprites", sprites())
put("ctrl", ram(0x2C0))
screenshot(SHOTS .. "custom_page1.png")
press({down = true})
put("spritesRow1", sprites())
)lua");
    const auto result = run(setup, QStringLiteral("custom_look"), script);
    const auto& v = result.values;

    for (int row = 0; row < 5; ++row) {
        EXPECT_EQ(v["row" + QString::number(row)], expectedRow(setup, row, item + row * 64, 24)) << row;
    }
    EXPECT_EQ(v["caption"], expectedText(setup, "MY MENU", setup.captionPpuAddr));
    EXPECT_EQ(v["indicator"], hex("1/3"));
    EXPECT_EQ(v["ctrl"], QString::number(0xA8)); // 8x16 sprites

    // Every frame writes all 64 sprites: the two of the list, the arrow's two used entries, 60 hidden
    auto countSprites = [](const QString& page, const QString& wanted) {
        int found = 0;
        for (int i = 0; i < 64; ++i) {
            found += page.mid(i * 8, 8) == wanted;
        }
        return found;
    };
    const QString page = v["sprites"];
    EXPECT_EQ(countSprites(page, "20410010"), 1);
    EXPECT_EQ(countSprites(page, "20420118"), 1);
    EXPECT_EQ(countSprites(page, "2F1A0020"), 1);
    EXPECT_EQ(countSprites(page, "371A8020"), 1);
    EXPECT_EQ(countSprites(page, "F80000F8"), 60);
    // One row further down is 16 pixels with an empty row between names
    EXPECT_EQ(countSprites(v["spritesRow1"], "3F1A0020"), 1);
    EXPECT_EQ(countSprites(v["spritesRow1"], "471A8020"), 1);
}

TEST_F(MenuInEmulator, StyleOneLook)
{
    MenuSetup setup;
    setup.style = 1;
    setup.pageSize = 20;
    setup.names = numberedNames(45);
    const int item = itemShowPos(setup);
    const QString script = QStringLiteral(R"lua(
startup()
for i = 1, 10 do frame() end
rows(ITEM, 32, 20, 26)
put("caption", vram_hex(TITLE, 24))
put("indicator", vram_hex(INDICATOR, 3))
put("sprite", string.format("%02X%02X%02X%02X", ram(0x400), ram(0x401), ram(0x402), ram(0x403)))
screenshot(SHOTS .. "style1_page1.png")
)lua");
    const auto result = run(setup, QStringLiteral("style1_look"), script);
    const auto& v = result.values;
    for (int row = 0; row < 20; ++row) {
        EXPECT_EQ(v["row" + QString::number(row)], expectedRow(setup, row, item + row * 32, 26)) << row;
    }
    EXPECT_EQ(v["caption"], expectedText(setup, "PUSH SEL OR START BUTTON", titleShowPos(setup)));
    EXPECT_EQ(v["indicator"], hex("1/3"));
    EXPECT_EQ(v["sprite"], QStringLiteral("2F1A0026"));
}

// Long names at four rows a frame would overrun the 192-byte command list; rows that do not fit wait for
// the next frame, and a bank's uncut first name is shortened to what the list can carry.
TEST_F(MenuInEmulator, LongNamesAtFullSpeedStayInsideTheCommandList)
{
    MenuSetup setup;
    setup.pageSize = 20;
    setup.turningSpeed = 4;
    for (int i = 0; i < 300; ++i) {
        setup.names << QStringLiteral("LONG LIST NAME NUMBER %1").arg(i, 4, 10, QLatin1Char('0'));
    }
    // 283 names of 26 characters fill the first name bank: game 282 opens the next one and keeps its length
    setup.names[282] = QString(70, QLatin1Char('W'));
    const int item = itemShowPos(setup);
    const QString script = QStringLiteral(R"lua(
startup()
frame({up = true})
local drawn = 0
repeat frame() drawn = drawn + 1 until ram(0x5D) == 0 or drawn > 100
idle()
put("redraw", drawn)
put("state", state())
rows(ITEM, 32, 20, 26)
put("spill", vram_hex(ITEM - 6 + 3 * 32, 6) .. vram_hex(ITEM - 6 + 4 * 32, 6) .. vram_hex(ITEM - 6 + 5 * 32, 6))
put("ctrl", ram(0x2C0))
put("palette", string.format("%02X%02X", ram(0x2E0), ram(0x2E1)))
press({down = true})
put("wrapped", state())
put("first", vram_hex(ITEM, 26))
)lua");
    const auto result = run(setup, QStringLiteral("long_names"), script);
    const auto& v = result.values;
    EXPECT_EQ(v["state"], QStringLiteral("299,280"));
    for (int row = 0; row < 20; ++row) {
        EXPECT_EQ(v["row" + QString::number(row)], expectedRow(setup, 280 + row, item + row * 32, 26)) << row;
    }
    // The long name runs on over the next two lines, left of the names there, and stops after 64 characters
    EXPECT_EQ(v["spill"], hex(QByteArray(12, 'W') + QByteArray(6, '\0')));
    EXPECT_EQ(v["ctrl"], QString::number(0x88));
    EXPECT_EQ(v["palette"], QStringLiteral("0F24"));
    EXPECT_GT(v["redraw"].toInt(), 5); // rows of 60 bytes: three a frame
    EXPECT_LE(v["redraw"].toInt(), 8);
    EXPECT_EQ(v["wrapped"], QStringLiteral("0,0"));
    EXPECT_EQ(v["first"], expectedRow(setup, 0, item, 26));
}

// The plain board code computes the registers on the console from offsets and sizes.
TEST_F(MenuInEmulator, PlainBoardCodeComputesTheRegisters)
{
    struct Case {
        int board;
        int game;
        const char* registers; // $80-$A5 when the code at SELECT_ADDR starts
    };
    // Game 13: PRG at 8 KB unit $E0 (16 KB unit $70), 128 KB, CHR 8 KB at unit $80D, NROM, vertical.
    // Game 12: PRG at 8 KB unit $D0, CHR RAM, mapper 4, horizontal.
    const Case cases[] = {
        {0, 13, "E080001DC69800100001E000080D080101000000000000000000000000000000000000000000"},
        {2, 12, "00000000000000000000D000080C08000004140004020406000000000002006878804000148B"},
    };
    for (const Case& c : cases) {
        MenuSetup setup;
        setup.board = c.board;
        setup.finalData = false;
        setup.names = numberedNames(30);
        const QString script = QStringLiteral(R"lua(
local zero = nil
memory.registerexecute(0x0500, function()
  if zero == nil then
    local t = {}
    for a = 0x80, 0xA5 do t[#t + 1] = string.format("%02X", memory.readbyte(a)) end
    zero = table.concat(t)
  end
end)
startup()
for i = 1, GAME do press({down = true}) end
frame({start = true})
for i = 1, 10 do frame() end
put("zero", zero)
)lua");
        const QString name = QStringLiteral("plain_board%1").arg(c.board);
        e2e::FceuxRun result = runInEmulator(build(setup, name), QStringLiteral("GAME = %1\n").arg(c.game) + script,
                                           name, {});
        EXPECT_EQ(result.values["zero"], QString::fromLatin1(c.registers)) << "board " << c.board;
    }
}

// Sound set 1 plays its effects on the two square channels; set 0 stays silent
class MenuSound : public MenuInEmulator, public ::testing::WithParamInterface<int> {};

TEST_P(MenuSound, EffectsOfMoveAndStart)
{
    const int music = GetParam();
    MenuSetup setup;
    setup.music = music;
    setup.names = numberedNames(30);
    const QString script = QStringLiteral(R"lua(
local function squares()
  local s = sound.get().rp2a03
  return string.format("%d:%.2f,%d:%.2f", s.square1.duty, s.square1.volume, s.square2.duty, s.square2.volume)
end
startup()
frame({down = true})
put("item", squares())
idle()
for i = 1, 30 do frame() end
frame({right = true})
put("page", squares())
idle()
for i = 1, 30 do frame() end
frame({start = true})
frame()
put("enter", squares())
)lua");
    const auto result = run(setup, QStringLiteral("sound_music%1").arg(music), script);
    const auto& v = result.values;
    if (music == 0) {
        for (const char* key : {"item", "page", "enter"}) {
            EXPECT_TRUE(v[key].endsWith(QStringLiteral(":0.00"))) << key << " " << v[key].toStdString();
            EXPECT_TRUE(v[key].contains(QStringLiteral(":0.00,"))) << key << " " << v[key].toStdString();
        }
        return;
    }
    EXPECT_TRUE(v["item"].startsWith(QStringLiteral("2:"))) << v["item"].toStdString(); // duty 50 %, decaying
    EXPECT_FALSE(v["item"].startsWith(QStringLiteral("2:0.00")));
    EXPECT_TRUE(v["page"].startsWith(QStringLiteral("0:1.00"))) << v["page"].toStdString(); // 12.5 %, full
    EXPECT_EQ(v["enter"], QStringLiteral("0:0.00,0:1.00")); // only the second channel
}

INSTANTIATE_TEST_SUITE_P(MusicSet, MenuSound, ::testing::Values(0, 1));

// The factory design as the designer exports it, through the build's own generators
TEST_F(MenuInEmulator, FactoryDesignThroughTheGenerators)
{
    PrivateSettings settings;
    MenuSetup setup;
    setup.custom = true;
    setup.pageSize = 20;
    setup.names = numberedNames(45);
    MenuWorkFolder work(setup, GeneratedBy::Generators);
    ASSERT_TRUE(work.ready());
    const auto assembly = work.assemble();
    ASSERT_EQ(assembly.exitCode, 0) << assembly.output.toStdString();
    const QString rom = outputFolder() + QStringLiteral("/factory_design.nes");
    QFile file(rom);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(assembly.rom);
    file.close();

    const QString script = QStringLiteral(R"lua(
startup()
for i = 1, 10 do frame() end
put("first", vram_hex(ITEM, 9))
put("last", vram_hex(ITEM + 19 * 32, 9))
put("indicator", vram_hex(INDICATOR, 3))
screenshot(SHOTS .. "factory_design_page1.png")
)lua");
    const auto result = runInEmulator(rom, script, QStringLiteral("factory_design"),
                                      {{QStringLiteral("ITEM"), static_cast<int>(kDefaultItemPpuAddr)},
                                       {QStringLiteral("INDICATOR"), static_cast<int>(kDefaultPageNumberPpuAddr)}});
    const auto& v = result.values;
    // The letters and digits of the names; the blank between shows whatever the design has there
    EXPECT_EQ(v["first"].left(8), hex("GAME"));
    EXPECT_EQ(v["first"].mid(10), hex("0000"));
    EXPECT_EQ(v["last"].mid(10), hex("0019"));
    EXPECT_EQ(v["indicator"], hex("1/3"));
}

// Start on game 13: the record is read into the game variables before the start-up code runs from RAM
class MenuStart : public MenuInEmulator, public ::testing::WithParamInterface<std::pair<int, int>> {};

TEST_P(MenuStart, GetGameConfigReadsTheRecord)
{
    const auto [board, music] = GetParam();
    MenuSetup setup;
    setup.board = board;
    setup.music = music;
    setup.prgSize = 16;
    setup.names = numberedNames(30);
    const QString script = QStringLiteral(R"lua(
local reached = -1
local zero = {}
memory.registerexecute(0x0500, function()
  if reached < 0 then
    reached = emu.framecount()
    for a = 0x80, 0xA5 do zero[#zero + 1] = string.format("%02X", memory.readbyte(a)) end
  end
end)
local restarted = false
local reset = memory.readbyte(0xFFFC) + 256 * memory.readbyte(0xFFFD)
startup()
for i = 1, 13 do press({down = true}) end
put("selected", state())
frame({start = true})
local pressed = emu.framecount()
for i = 1, 120 do
  frame()
  if reached >= 0 and not restarted then
    memory.registerexecute(reset, function() restarted = true end)
  end
end
put("delay", reached - pressed)
put("zero", table.concat(zero))
put("restarted", restarted)
)lua");
    const auto result = run(setup, QStringLiteral("start_board%1_music%2").arg(board).arg(music), script);
    const auto& v = result.values;
    EXPECT_EQ(v["selected"], QStringLiteral("13,10"));

    // $80-$A5 as the code at SELECT_ADDR finds them
    const QByteArray zero = QByteArray::fromHex(v["zero"].toLatin1());
    ASSERT_EQ(zero.size(), 0xA6 - 0x80);
    auto at = [&](int address) { return static_cast<std::uint8_t>(zero[address - 0x80]); };
    const auto record = finalRecordBytes(board, 13);
    if (board == 2) {
        const int offset = record[0] | record[1] << 8;
        EXPECT_EQ(at(0x8D), record[0]);
        EXPECT_EQ(at(0x8E), record[1]);
        EXPECT_EQ(at(0x8F), record[2]);
        EXPECT_EQ(at(0x90), record[3]);
        EXPECT_EQ(at(0x96), (offset >> 9) & 0xFF); // the base in 16 KB units
        EXPECT_EQ(at(0x97), (offset >> 1) & 0xFF);
        for (int reg = 2; reg < 8; ++reg) {
            EXPECT_EQ(at(0x96 + reg), 0) << reg;
        }
        for (int reg = 0; reg < 8; ++reg) {
            EXPECT_EQ(at(0x9E + reg), record[4 + reg]) << reg;
        }
    } else {
        EXPECT_EQ(at(0x90), record[0]);
        EXPECT_EQ(at(0x8F), record[1]);
        for (int reg = 0; reg < 4; ++reg) {
            EXPECT_EQ(at(0x96 + reg), record[2 + reg]) << reg;
            EXPECT_EQ(at(0x9E + reg), record[6 + reg]) << reg;
            EXPECT_EQ(at(0x9A + reg), 0) << reg;
            EXPECT_EQ(at(0xA2 + reg), 0) << reg;
        }
    }
    // The start sound is given its time before the game starts; without sound the game starts at once
    const int delay = v["delay"].toInt();
    if (music == 0) {
        EXPECT_LE(delay, 3);
    } else {
        EXPECT_GE(delay, 0x30);
        EXPECT_LE(delay, 0x30 + 3);
    }
    // The last stage jumps through the reset vector that the game's bank shows: here, the menu's own
    EXPECT_EQ(v["restarted"], QStringLiteral("true"));
}

INSTANTIATE_TEST_SUITE_P(Boards, MenuStart,
                         ::testing::Values(std::pair{0, 1}, std::pair{1, 0}, std::pair{2, 0}));

} // namespace
} // namespace zunbrix::testing
