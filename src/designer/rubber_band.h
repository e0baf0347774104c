#pragma once

// The selection that the rubber bands make: placed tiles and sprites on the name table, tiles in the two tile
// views. A band marks what it touches; what it does not touch loses its mark, unless the band only adds.

namespace zunbrix {

class DesignEditor;
struct GestureMarks;

void SelectByRubberBands(DesignEditor& editor, const GestureMarks& marks, bool onlyAdd);

} // namespace zunbrix
