#pragma once

#include "multicart/board_tables.h"
#include "multicart/layout.h"
#include "multicart/nes_image.h"
#include "frame/string_table.h"

#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

namespace zunbrix {

// Raise the sizes the layout reserves to what the boards can bank; the header sizes stay as read.
void normaliseChr(std::vector<NesImage>& images); // all boards: next of 0, 1, 2, 4, 8, 16, 32 KB×8
void normalisePrg(std::vector<NesImage>& images); // COOLBOY and MINDKIDS: every MMC3-style game gets 128 KB

// Why the board can't take the game, as the line its check gives ("" when it can take it).
QString unsupportedReason(const NesImage& image, BoardType board, Language language);

// Whether every game can go on the board. On failure `text` holds one line per bad game (at most 20),
// each ending in CR LF, in `language`. `problems`, when given, gets one entry per line: what is wrong with
// the file of that line's game, or nothing where the file is fine and the board can't take the game.
bool validateCoolboy(const std::vector<NesImage>& images, Language language, QString& text,
                     std::vector<FileProblem>* problems = nullptr);
bool validateCoolgirl(const std::vector<NesImage>& images, Language language, QString& text,
                      std::vector<FileProblem>* problems = nullptr);

// Whether an assembled menu can start the board: valid, no CHR, 128 KB to 2 MB of PRG in a power of two.
bool checkMenu(const NesImage& menu, Language language, QString& text);

// The most games the menu can start: its bank index tables hold one byte per game in 2 KB each, and the
// next table or the name table follows right behind.
inline constexpr std::size_t kMaxMenuGames = 2048;

// Whether the menu can index `games` games. On failure `text` names the limit.
bool checkGameCount(std::size_t games, Language language, QString& text);

// Whether the menu's data banks fit the room that a menu of this size leaves. `text` is always set.
bool checkOverflow(std::uint32_t menuLayoutBanks, std::uint32_t nameBanks, std::uint32_t dataBanks,
                   std::uint32_t finalBanks, Language language, QString& text);

// The largest ROM a board takes and the text that refuses a larger one. The COOLBOY and MINDKIDS registers
// reach 32 MB; the COOLGIRL menu hands a game's CHR place to the board in a word of 8 KB units, so 512 MB.
struct RomSizeLimit {
    std::uint64_t maxBytes;
    int refusalTextId;
};
RomSizeLimit romSizeLimit(BoardType boardType);

// Whether the ROM stays within the board's limit; otherwise `text` holds the refusal.
bool checkRomSize(const LayoutResult& layout, BoardType boardType, Language language, QString& text);

} // namespace zunbrix
