#pragma once

#include "multicart/nes_image.h"
#include "frame/string_table.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace zunbrix::cli {

struct InputList {
    std::vector<GameEntry> entries;
    QStringList problems;     // inputs that could not be read, one line each, naming the input and why
    bool exceedsCapacity = false; // more entries than a list holds: the rest were dropped
};

// Whether the headers of games named on the command line are read into their entries. A build or an
// export reads every game itself, so they leave the files alone here; entries from a list file always come
// with their headers.
enum class GameHeaders { Read, LeftUnread };

// The games that the command line's inputs name, in their order: a .qvl list file gives its entries with
// their check marks, a .nes file one checked entry, a folder its .nes files by name, all checked. An input
// that is neither a folder nor a regular file is a problem, in `language`, and is never opened.
InputList ReadInputs(const QStringList& inputs, GameHeaders headers, Language language);

} // namespace zunbrix::cli
