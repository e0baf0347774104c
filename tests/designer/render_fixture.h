#pragma once

#include "designer/canvas_renderer.h"
#include "designer/design_editor.h"
#include "designer/gesture_marks.h"
#include "designer/placed_entry.h"
#include "designer/tile_atlas.h"

#include <gtest/gtest.h>

namespace zunbrix::testing {

// Colours of the console's master palette as RRGGBB, written out from its table.
inline constexpr Pixel kBlack0F = 0x000000;
inline constexpr Pixel kBlue21 = 0x3CBEFF;
inline constexpr Pixel kRed16 = 0xDB2800;
inline constexpr Pixel kGreen1A = 0x00AA00;
inline constexpr Pixel kPink24 = 0xF779FF;
inline constexpr Pixel kOrange27 = 0xFF9A38;
inline constexpr Pixel kLime2A = 0x4DDF49;
inline constexpr Pixel kViolet12 = 0x2038EF;
inline constexpr Pixel kRose15 = 0xE70059;
inline constexpr Pixel kGold28 = 0xF3BE3C;
inline constexpr Pixel kSky11 = 0x0071EF;
inline constexpr Pixel kIndigo01 = 0x24188E;
inline constexpr Pixel kCrimson06 = 0xA60000;
inline constexpr Pixel kGrey2D = 0x797979;

// A designer on blank tiles (every pixel value 0) with palettes whose entries all differ, so that each
// pixel of a picture tells which palette entry drew it.
class RenderFixture : public ::testing::Test {
protected:
    RenderFixture()
    {
        document_.BkgPalette = {0x0F, 0x21, 0x16, 0x1A, 0x0F, 0x24, 0x27, 0x2A,
                                0x0F, 0x12, 0x15, 0x28, 0x0F, 0x11, 0x01, 0x06};
        document_.SpritePalette = {0x2D, 0x16, 0x1A, 0x0F, 0x24, 0x27, 0x2A, 0x12,
                                   0x15, 0x28, 0x11, 0x01, 0x06, 0x30, 0x20, 0x21};
        editor_.beginEditing();
    }

    // Every pixel of the tile gets `value`.
    void fillTile(int bank, int tile, int value)
    {
        for (int y = 0; y < 8; ++y)
            for (int x = 0; x < 8; ++x)
                SetTilePixel(document_.tile(bank, tile), x, y, value);
    }

    Surface drawCanvas()
    {
        atlas_.RebuildAtlas(document_, 0, 4, 0, 4);
        Surface canvas;
        CanvasRenderer().draw(CaptureCanvasScene(editor_, marks_, atlas_), canvas);
        return canvas;
    }

    DesignDocument document_{std::span<const std::uint8_t>{}};
    DesignEditor editor_{document_};
    GestureMarks marks_;
    TileAtlas atlas_;
};

// The pixel as RRGGBB, for readable failures.
#define EXPECT_PIXEL(surface, x, y, rgb)                                                                        \
    EXPECT_EQ((surface).pixel((x), (y)), Pixel{rgb})                                                             \
        << std::hex << "at " << std::dec << (x) << ", " << (y) << std::hex << ": " << (surface).pixel((x), (y))

} // namespace zunbrix::testing
