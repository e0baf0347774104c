#pragma once

#include "multicart/nes_image.h"

#include <QString>

#include <vector>

namespace zunbrix {

// game_prg_chr_offset.txt: where each game's PRG and CHR lie on the flash, for people to read.
// The games are listed twice, by PRG offset and by CHR offset, lowest first.
bool writeOffsetReport(const std::vector<const NesImage*>& games, const QString& folder);

} // namespace zunbrix
