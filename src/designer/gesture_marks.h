#pragma once

// What a mouse gesture under way shows in the pictures: the rubber band and a custom text being dragged.
// The gesture logic keeps it; the views only read it.

#include "designer/design_editor.h"
#include "designer/surface.h"
#include "designer/text_entry.h"

#include <algorithm>

namespace zunbrix {

// Start and end of a rubber band, in the pixels of its canvas.
struct RubberBandAnchors {
    Position start;
    Position end;

    PixelRect rect() const
    {
        return {std::min(start.x, end.x), std::min(start.y, end.y), std::max(start.x, end.x),
                std::max(start.y, end.y)};
    }
};

struct GestureMarks {
    bool RubberBand = false;
    RubberBandAnchors nameTableBand;
    RubberBandAnchors bgChrBand;
    RubberBandAnchors spChrBand;
    TextEntry ScratchText; // shown while it holds text
};

} // namespace zunbrix
