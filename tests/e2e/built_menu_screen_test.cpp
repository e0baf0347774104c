// Menus that the real `zunbrix build` makes, started in FCEUX and read back from the PPU: names that hold the
// assembler's own quote and escape characters show as typed, and the looks of style 1 draw every page size in
// place, leaving the font in pattern memory as the menu uploaded it.
#include "e2e/menu_build_fixture.h"
#include "e2e/zunbrix_build.h"
#include "menu/menu_source_tree.h"

#include <QDir>

namespace zunbrix::e2e {
namespace {

constexpr int kTimeoutMs = 120000;
constexpr int kFirstNameRow = 0x20C6; // the built-in looks' list, but style 0 with 15 or 20 a page
constexpr int kRowWidth = 26;

class BuiltMenuScreen : public MenuBuildTest {
protected:
    QString build(const QStringList& arguments) { return zunbrixBuild(arguments, path(QStringLiteral("data"))); }

    FceuxRun run(const QString& rom, const QString& script)
    {
        const FceuxRun result = runFceux({rom, script, folder.path(), kTimeoutMs});
        EXPECT_TRUE(result.finished) << result.log.toStdString();
        return result;
    }
};

// Lua: the text of `rows` rows of the list from `first`, as the font's glyphs show it ("row<r>"), the
// first page's after 120 frames and the second's after Right ("next<r>"); and the pattern memory ("font").
QString readListScript(int first, int rows)
{
    return QStringLiteral(R"lua(
local function rowsAs(prefix)
  for row = 0, %2 - 1 do
    local text = {}
    for i = 0, %3 - 1 do
      local tile = vram(%1 + 32 * row + i)
      text[#text + 1] = (tile > 32 and tile < 127) and string.char(tile) or " "
    end
    put(prefix .. row, table.concat(text))
  end
end
frames(120)
rowsAs("row")
frames(2, {right = true})
frames(90)
rowsAs("next")
put("font", vram_hex(0, 8192))
)lua")
        .arg(first)
        .arg(rows)
        .arg(kRowWidth);
}

QString rowText(const QString& name)
{
    return name.leftJustified(kRowWidth);
}

// The menu's own pattern table, as the build embeds it.
QString menuFontHex()
{
    for (const MenuSourceFile& row : MenuSourceFiles())
        if (QByteArray(row.relativePath).endsWith("chr_data.bin"))
            return QString::fromLatin1(QByteArray(reinterpret_cast<const char*>(row.bytes.data()),
                                                  static_cast<qsizetype>(row.bytes.size()))
                                           .toHex()
                                           .toUpper());
    return {};
}

// The name table holds each name as typed, through the font's character map (the built-in look's is the
// identity): quotes and backslashes included, a backslash also as the last character. A letter the font
// lacks shows as "?".
TEST_F(BuiltMenuScreen, NamesWithQuotesAndBackslashesShowAsTyped)
{
    const QStringList names = {QStringLiteral("AC\\DC \"LIVE\""), QStringLiteral("ENDS IN \\"),
                               QStringLiteral("\u00DCnder \"\\\"")};
    ASSERT_TRUE(writeNamedGames(QStringLiteral("odd.qvl"), names));
    const QString rom = path(QStringLiteral("odd.nes"));
    const QString failure = build({QStringLiteral("-b"), QStringLiteral("coolboy"), QStringLiteral("--music"),
                                          QStringLiteral("0"), QStringLiteral("-o"), rom, path(QStringLiteral("odd.qvl"))});
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const FceuxRun result = run(rom, readListScript(kFirstNameRow, 3));
    EXPECT_EQ(result.values.value(QStringLiteral("row0")), rowText(QStringLiteral("AC\\DC \"LIVE\"")));
    EXPECT_EQ(result.values.value(QStringLiteral("row1")), rowText(QStringLiteral("ENDS IN \\")));
    EXPECT_EQ(result.values.value(QStringLiteral("row2")), rowText(QStringLiteral("?NDER \"\\\"")));
}

// Style 1 puts every page size on the rows from 6; with 5 and 15 a page its source had no list position. The
// second page of 20 games holds the rest, and no name lands in the font.
TEST_F(BuiltMenuScreen, StyleOneDrawsFiveAndFifteenAPageWithTheFontUntouched)
{
    QDir(folder.path()).mkpath(QStringLiteral("games"));
    constexpr int kGames = 20;
    for (int i = 1; i <= kGames; ++i)
        zunbrix::testing::writeRom(path(QStringLiteral("games/game%1.nes").arg(i, 2, 10, QLatin1Char('0'))),
                                   {.mapper = 0, .prgBanks = 1, .chrBanks = 1, .seed = static_cast<std::uint32_t>(i)});
    const QString font = menuFontHex();
    ASSERT_EQ(font.size(), 2 * 8192);

    for (int pageSize : {5, 15}) {
        SCOPED_TRACE(pageSize);
        const QString rom = path(QStringLiteral("style1_page%1.nes").arg(pageSize));
        const QString failure = build({QStringLiteral("-b"), QStringLiteral("coolboy"), QStringLiteral("--music"),
                                              QStringLiteral("0"), QStringLiteral("--style"), QStringLiteral("1"),
                                              QStringLiteral("--page-size"), QString::number(pageSize),
                                              QStringLiteral("-o"), rom, path(QStringLiteral("games"))});
        ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

        const FceuxRun result = run(rom, readListScript(kFirstNameRow, 15));
        for (int row = 0; row < 15; ++row) {
            const int first = row + 1;
            const int second = pageSize + row + 1;
            EXPECT_EQ(result.values.value(QStringLiteral("row%1").arg(row)),
                      rowText(row < pageSize ? QStringLiteral("GAME%1").arg(first, 2, 10, QLatin1Char('0')) : QString()))
                << "row " << row;
            EXPECT_EQ(result.values.value(QStringLiteral("next%1").arg(row)),
                      rowText(row < pageSize && second <= kGames
                                  ? QStringLiteral("GAME%1").arg(second, 2, 10, QLatin1Char('0'))
                                  : QString()))
                << "row " << row;
        }
        EXPECT_EQ(result.values.value(QStringLiteral("font")), font);
    }
}

} // namespace
} // namespace zunbrix::e2e
