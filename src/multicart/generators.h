#pragma once

#include "multicart/registers.h"

#include <QString>
#include <QStringList>

#include <vector>

namespace zunbrix {

// What a generator did: the banks it wrote (or, with writing off, counted), and whether every file it
// tried to write opened. The count is valid even when a file failed; a dry run into a folder that does
// not exist yet fails on its index file and still gives the count.
struct GeneratorResult {
    bool filesWritten = false;
    int banks = 0;
};

// The game names the menu lists, in banks game_list_N.asm, with the index game_list_bank.asm and the
// default caption game_title.asm. `nameColumn` is where a name starts on the screen's row of 32.
GeneratorResult generateNames(const QStringList& names, const QString& folder, int nameColumn, bool write);

// Offsets, sizes and header facts of each game, in banks game_data_N.asm, with the index
// game_data_bank.asm and the report game_prg_chr_offset.txt. The menu's own image is left out.
GeneratorResult generateGameData(const std::vector<NesImage>& images, const QString& folder, bool write);

// The board registers of each game, precomputed, in banks game_final_data_N.asm with the index
// game_final_data_bank.asm. Boards 0 and 1 take the COOLBOY record, any other the COOLGIRL one.
GeneratorResult generateFinalData(const std::vector<GameFinalData>& finalData, const QString& folder, BoardType boardType,
                                  bool write);

struct BankCounts {
    int names = 0;
    int data = 0;
    int finalData = 0;
};

// The names, the game data and the final data of the same games, as a build runs them: with writing off
// to count the banks before anything exists, with writing on once the layout has placed the images.
BankCounts generateGameSources(const QStringList& names, const std::vector<NesImage>& images, const QString& folder,
                               BoardType boardType, int nameColumn, bool write);

} // namespace zunbrix
