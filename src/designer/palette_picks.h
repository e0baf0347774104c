#pragma once

// What the pointer picks on the name table's regions, the attribute byte and the three palette views, while
// the button is held and once more where it is let go.

#include "designer/design_editor.h"

#include <chrono>
#include <functional>
#include <optional>

namespace zunbrix {

class TileAtlas;

class PalettePicks {
public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;
    // Each change of the master palette rebuilds tile images, so it is taken at most once in this time.
    static constexpr std::chrono::milliseconds kMasterPaletteInterval{20};

    PalettePicks(DesignEditor& editor, TileAtlas& atlas, Clock clock);

    // The selected colour taken anew from the attribute byte at AttrCellPos; the palette views pick again
    // even the entry they picked last.
    void rereadAttribute();

    // A 2 by 2 region of the name table (one quadrant of an attribute byte) is selected; with `paint` it
    // takes the palette of the selected background palette entry instead.
    void pickRegion(Position region, bool paint);
    // A quadrant of the selected attribute byte.
    void pickQuadrant(Position quadrant);
    // A background palette entry, which the selected quadrant then uses.
    void pickBkgPaletteEntry(Position entry);
    // A sprite palette entry, which the marked sprites and cursor sprites then use.
    void pickSpritePaletteEntry(Position entry);
    // A master colour into the palette entry that has the focus; false when refused for coming too soon
    // after the last one.
    bool pickColor(Position color);

private:
    void colorFollows(const PaletteBytes& palette, Position entry);
    // The selected attribute byte with quadrant `quadrant` set to `palette`, stored back.
    void storeQuadrant(int quadrant, int palette);

    DesignEditor& editor_;
    TileAtlas& atlas_;
    Clock clock_;
    std::optional<std::chrono::steady_clock::time_point> lastColorChange_;
    Position lastBkgEntry_{-1, -1};
    Position lastSpriteEntry_{-1, -1};
};

} // namespace zunbrix
