#pragma once

#include "designer/text_tiles.h"

namespace zunbrix {

class DesignEditor;

// The name table as the designer shows it, for a name table file: the background tiles (only the selected
// ones when Shift is held and some are selected), then, as far as they are shown, the sample list, the
// custom texts and the caption, all mapped through the character map with blanks drawn. The menu program
// prints the list and caption itself, so the export composes differently.
NameTable ComposeVisibleNameTable(const DesignEditor& editor);

} // namespace zunbrix
