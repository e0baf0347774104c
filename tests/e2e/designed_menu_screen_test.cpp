// What the designer shows is what the console shows: a design saved as the designer saves it, built with the
// real `zunbrix build --custom-menu` and started in FCEUX. The screen is rebuilt from the PPU's memory with our
// master palette and compared pixel for pixel with the designer's picture of the screen; the sprites are
// compared with the menu's sprite page.
#include "designer/canvas_renderer.h"
#include "designer/design_editor.h"
#include "designer/design_persistence.h"
#include "designer/gesture_marks.h"
#include "designer/master_palette.h"
#include "designer/placed_entry.h"
#include "designer/tile_atlas.h"
#include "e2e/menu_build_fixture.h"
#include "e2e/zunbrix_build.h"

#include <QImage>

#include <algorithm>
#include <array>

namespace zunbrix::e2e {
namespace {

constexpr int kTimeoutMs = 120000;
constexpr int kPageSize = 10;
constexpr int kSpritePage = 0x0400; // the menu's copy of sprite memory, sent to the PPU each frame
constexpr int kSprites = 64;

std::uint8_t byteAt(const QByteArray& bytes, int index)
{
    return static_cast<std::uint8_t>(bytes.at(index));
}

// The PPU's memory as the menu left it.
struct PpuMemory {
    QByteArray patterns; // both pattern tables, $0000-$1FFF
    QByteArray names;    // the first name table with its attribute table, $2000-$23FF
    QByteArray palettes; // $3F00-$3F1F

    // The tile of a cell of the first name table, and the attribute byte over it.
    int tileAt(int column, int row) const { return byteAt(names, row * 32 + column); }
    int attributeAt(int column, int row) const { return byteAt(names, 0x3C0 + (row / 4) * 8 + column / 4); }
};

// The background as the PPU draws it from the first pattern table: a pixel of value 0 takes the colour at
// $3F00 whatever its palette, the others entry `value` of the cell's palette.
Surface ConsoleScreen(const PpuMemory& ppu)
{
    Surface screen(kScreenWidth, kScreenHeight);
    for (int y = 0; y < kScreenHeight; ++y) {
        for (int x = 0; x < kScreenWidth; ++x) {
            const int column = x / 8;
            const int row = y / 8;
            const int tile = ppu.tileAt(column, row);
            const int attribute = ppu.attributeAt(column, row);
            const int palette = (attribute >> (((row / 2) & 1) * 4 + ((column / 2) & 1) * 2)) & 3;
            const int bit = 7 - x % 8;
            const int low = (byteAt(ppu.patterns, tile * 16 + y % 8) >> bit) & 1;
            const int high = (byteAt(ppu.patterns, tile * 16 + 8 + y % 8) >> bit) & 1;
            const int value = low | (high << 1);
            const int colour = byteAt(ppu.palettes, value == 0 ? 0 : palette * 4 + value) & 0x3F;
            screen.setPixel(x, y, kMasterPalette[static_cast<std::size_t>(colour)]);
        }
    }
    return screen;
}

bool SavePng(const Surface& surface, const QString& path)
{
    return QImage(reinterpret_cast<const uchar*>(surface.data()), surface.width(), surface.height(),
                  surface.bytesPerLine(), QImage::Format_RGB32)
        .save(path);
}

// Where the two pictures first differ, with the console's tile and attribute there; empty when they agree.
QString FirstDifference(const Surface& designer, const Surface& console, const PpuMemory& ppu)
{
    for (int y = 0; y < kScreenHeight; ++y) {
        for (int x = 0; x < kScreenWidth; ++x) {
            if (designer.pixel(x, y) == console.pixel(x, y))
                continue;
            const int column = x / 8;
            const int row = y / 8;
            return QStringLiteral("first difference at pixel (%1, %2), cell (%3, %4): designer %5, console %6; "
                                  "the console's tile there is $%7 and its attribute byte $%8")
                .arg(x)
                .arg(y)
                .arg(column)
                .arg(row)
                .arg(designer.pixel(x, y), 6, 16, QLatin1Char('0'))
                .arg(console.pixel(x, y), 6, 16, QLatin1Char('0'))
                .arg(ppu.tileAt(column, row), 2, 16, QLatin1Char('0'))
                .arg(ppu.attributeAt(column, row), 2, 16, QLatin1Char('0'));
        }
    }
    return {};
}

using SpriteBytes = std::array<std::uint8_t, 4>; // y, tile, attribute byte, x

// The sprites in order as hex text, one "y tile attribute x" group each, for a readable comparison.
std::string SortedSprites(std::vector<SpriteBytes> sprites)
{
    std::sort(sprites.begin(), sprites.end());
    QStringList groups;
    for (const SpriteBytes& sprite : sprites)
        groups << QByteArray(reinterpret_cast<const char*>(sprite.data()), 4).toHex(' ');
    return groups.join(QStringLiteral(", ")).toStdString();
}

using zunbrix::testing::Placed;

class DesignedMenuScreen : public MenuBuildTest {
protected:
    // The designer opened with the main window's caption and sample list, then the design below: painted
    // tiles in both banks (also the glyph of "A"), palettes, attributes, background tiles, texts, the caption,
    // the list's place, sprites and the small cursor. Closing saves it all to the settings store.
    void designAndClose(const QStringList& names)
    {
        editor.SetCaption(DefaultCaption(static_cast<int>(names.size())));
        ASSERT_TRUE(editor.SetList(names, kPageSize, false));
        editor.SetShowPageNumber(false);
        ASSERT_TRUE(OpenDesigner(editor));

        for (const auto& [x, y, value] : {std::tuple{0, 0, 1}, {3, 2, 2}, {7, 7, 3}, {5, 4, 1}})
            SetTilePixel(document.tile(kBkgBank, 0x80), x, y, value);
        SetTilePixel(document.tile(kBkgBank, 0x81), 6, 1, 3);
        SetTilePixel(document.tile(kBkgBank, 'A'), 0, 7, 3);
        SetTilePixel(document.tile(kSpriteBank, 0x90), 2, 2, 1);

        // Entry 0 of every palette is the backdrop's colour: the PPU draws value 0 in the colour at $3F00,
        // which the sprite palette's entry 0 overwrites, while the canvas draws the tile's own entry 0.
        document.BkgPalette = {0x0C, 0x16, 0x2A, 0x30, 0x0C, 0x21, 0x27, 0x14,
                               0x0C, 0x12, 0x38, 0x1A, 0x0C, 0x11, 0x06, 0x3C};
        document.SpritePalette = {0x0C, 0x20, 0x27, 0x16, 0x0F, 0x24, 0x2A, 0x11,
                                  0x0F, 0x28, 0x16, 0x30, 0x0F, 0x02, 0x19, 0x25};
        document.Attributes[0] = 0xE4;  // the four quadrants of the first byte in palettes 0, 1, 2, 3
        document.Attributes[6] = 0x1B;
        document.Attributes[49] = 0xFF; // screen rows 24 to 27, columns 4 to 7

        // The list takes rows 6 to 15 from column 9 and the menu blanks them: nothing else goes there.
        editor.addBkgTile(Placed(0, 0, 0x80));
        editor.addBkgTile(Placed(3, 1, 0x80));
        editor.addBkgTile(Placed(25, 1, 0x81));
        TileEntry marked = Placed(5, 25, 0x80);
        marked.flags = TileEntry::kSelected; // the selection frame is the designer's alone
        editor.addBkgTile(marked);
        editor.addBkgTile(Placed(31, 29, 0x80));
        editor.addBkgTile(Placed(40, 3, 0x80)); // off the grid: drawn by neither
        editor.addText({-1, 2, 20, QStringLiteral("A BAD")});
        editor.addText({-1, -2, 26, QStringLiteral("XYZAP")});
        editor.addText({-1, 28, 28, QStringLiteral("EDGE")});
        editor.SetCaption(QStringLiteral("MY GAMES"));
        editor.CaptionPos = {11, 3};
        editor.ItemPos = {9, 6};

        editor.addSprite(Placed(40, 100, 0x90, 1, TileEntry::kFlipVertical));
        editor.addSprite(Placed(200, 30, 0x91, 2, TileEntry::kFlipHorizontal | TileEntry::kBehindBackground));
        editor.addSprite(Placed(0, 239, 0x90, 3));
        editor.addSprite(Placed(120, 0, 0x90)); // y 0: not on the console
        document.ArrowTile = Placed(60, 48, 0x1F);
        editor.MarkCursor = true;
        ASSERT_TRUE(CloseDesigner(editor));
    }

    // The designer's picture of the screen, from a second designer opened on what was saved.
    Surface designerScreen(const QStringList& names)
    {
        DesignDocument reopened;
        DesignEditor view(reopened);
        view.SetCaption(DefaultCaption(static_cast<int>(names.size())));
        EXPECT_TRUE(view.SetList(names, kPageSize, false));
        view.SetShowPageNumber(false);
        EXPECT_TRUE(OpenDesigner(view));
        TileAtlas atlas;
        atlas.RebuildAtlas(reopened, 0, 4, 0, 4);
        Surface screen;
        CanvasRenderer().drawScreen(CaptureCanvasScene(view, GestureMarks{}, atlas), screen);
        return screen;
    }

    DesignDocument document;
    DesignEditor editor{document};
};

TEST_F(DesignedMenuScreen, TheConsoleShowsTheDesignersPictureAndSprites)
{
    // The games are named as the designer's sample list, so that the menu prints the same lines.
    const QStringList names = {QStringLiteral("ALPHA"), QStringLiteral("BRAVO 2"), QStringLiteral("CHARLIE")};
    ASSERT_TRUE(writeNamedGames(QStringLiteral("games.qvl"), names));
    designAndClose(names);
    ASSERT_FALSE(HasFailure());

    const QString rom = path(QStringLiteral("designed.nes"));
    const QString failure = zunbrixBuild(
        {QStringLiteral("-b"), QStringLiteral("coolboy"), QStringLiteral("--music"), QStringLiteral("0"),
         QStringLiteral("--custom-menu"), QStringLiteral("--page-size"), QString::number(kPageSize),
         QStringLiteral("--no-page-number"), QStringLiteral("--no-numbers"), QStringLiteral("--no-name-insert-row"),
         QStringLiteral("-o"), rom, path(QStringLiteral("games.qvl"))},
        path(QStringLiteral("data")));
    ASSERT_TRUE(failure.isEmpty()) << failure.toStdString();

    const FceuxRun run = runFceux({rom, QStringLiteral(R"lua(
frames(180)
put("patterns", vram_hex(0, 8192))
put("names", vram_hex(0x2000, 1024))
put("palettes", vram_hex(0x3F00, 32))
put("sprites", ram_hex(%1, 256))
)lua").arg(kSpritePage),
                                   folder.path(), kTimeoutMs});
    ASSERT_TRUE(run.finished) << run.log.toStdString();
    const PpuMemory ppu{QByteArray::fromHex(run.values.value(QStringLiteral("patterns")).toLatin1()),
                        QByteArray::fromHex(run.values.value(QStringLiteral("names")).toLatin1()),
                        QByteArray::fromHex(run.values.value(QStringLiteral("palettes")).toLatin1())};
    ASSERT_EQ(ppu.patterns.size(), 8192);
    ASSERT_EQ(ppu.names.size(), 1024);
    ASSERT_EQ(ppu.palettes.size(), 32);

    // Both pattern tables are the designer's tiles as painted.
    EXPECT_EQ(ppu.patterns, QByteArray(reinterpret_cast<const char*>(document.ChrData.data()), kChrBytes));

    const Surface designer = designerScreen(names);
    const Surface console = ConsoleScreen(ppu);
    const QString difference = FirstDifference(designer, console, ppu);
    if (!difference.isEmpty()) {
        EXPECT_TRUE(SavePng(designer, path(QStringLiteral("designer.png"))));
        EXPECT_TRUE(SavePng(console, path(QStringLiteral("console.png"))));
        folder.setAutoRemove(false);
        ADD_FAILURE() << difference.toStdString() << "\nboth pictures are in " << folder.path().toStdString();
    }

    // The menu's sprite page: the exportable sprites as stored, the cursor on the first line one line up
    // (its y is written one less), the rest hidden at y $F8. The menu turns where the list starts each
    // frame, so the order is free.
    const QByteArray page = QByteArray::fromHex(run.values.value(QStringLiteral("sprites")).toLatin1());
    ASSERT_EQ(page.size(), 4 * kSprites);
    std::vector<SpriteBytes> shown;
    for (int i = 0; i < kSprites; ++i)
        shown.push_back({byteAt(page, 4 * i), byteAt(page, 4 * i + 1), byteAt(page, 4 * i + 2),
                         byteAt(page, 4 * i + 3)});
    // The sprite at y 0 is left out of the list but counted in its length, so the menu also takes the four
    // bytes after the list: the bank's filler, $FF, a sprite below the screen.
    std::vector<SpriteBytes> expected = {{100, 0x90, 0x81, 40}, {30, 0x91, 0x62, 200}, {239, 0x90, 0x03, 0},
                                         {0xFF, 0xFF, 0xFF, 0xFF}, {47, 0x1F, 0x00, 60}};
    expected.resize(kSprites, {0xF8, 0x00, 0x00, 0xF8});
    EXPECT_EQ(SortedSprites(shown), SortedSprites(expected));
}

} // namespace
} // namespace zunbrix::e2e
