#pragma once

#include "multicart/nes_image.h"

#include <QStringList>

#include <vector>

namespace zunbrix {

// Games read for the list and not yet in it.
struct GameFiles {
    std::vector<GameEntry> entries;
    int skipped = 0;              // files left out because they are no NES image, or a list file that can't be read
    bool exceedsCapacity = false; // the list had no room for them all: the rest was left out
};

// Reads what the user opened or dropped, in its order, for a list with room for `room` more entries. A .qvl
// file (in any case) gives its entries as they stand, a folder its .nes files by name, any other file an entry
// when it is an NES image. A game is listed by its path relative to the program's folder where there is one.
// Reads files only, so it may run off the window's thread.
GameFiles ReadGameFiles(const QStringList& names, int room);

} // namespace zunbrix
