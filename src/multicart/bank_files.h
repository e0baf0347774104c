#pragma once

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zunbrix {

// A bank holds at most 8 KB of assembled data; its first two bytes are the `.WORD` of its first game.
inline constexpr int kDataBankBytes = 8192;
inline constexpr int kDataBankStartBytes = 2;

// One kind of generated bank: the names, the game data or the final data.
struct BankKind {
    std::string_view fileStem;  // game_list -> game_list_0.asm .. and game_list_bank.asm
    std::string_view labelStem; // game_name -> game_name_begin_000, game_name_list_000, game_name_000
    int maintainedBanks = 0;    // bank files below this number are deleted when a run needs fewer
    std::string_view preamble;  // text in front of a bank's opening lines
};

// Which bank each game's entry lies in, decided before any text is formed.
struct BankPlan {
    std::vector<int> firstGameOfBank;
    std::vector<int> bankOfGame;

    int bankCount() const { return static_cast<int>(firstGameOfBank.size()); }
    // True for the game that overflowed its bank and so starts the next one.
    bool opensBank(int game) const;
};

// cost(game, opensBank): the assembled bytes of a game's entry, pointer included.
using EntryCost = std::function<int(int game, bool opensBank)>;
// entry(text, game, opensBank): appends the entry behind its label, line ends included.
using EntryText = std::function<void(std::string& text, int game, bool opensBank)>;

// Fills banks in list order: a game that would take a bank over 8 KB opens the next one.
BankPlan planBanks(int gameCount, const EntryCost& cost);

// Writes every bank of the plan, then deletes the maintained bank files that this run leaves unused,
// so that nothing of an earlier, larger build remains. False when a bank file does not open.
bool writeBankFiles(const BankKind& kind, const BankPlan& plan, const QString& folder, const EntryText& entry);

// Writes the index: one byte per game, the number of the bank holding its entry.
bool writeBankIndex(const BankKind& kind, const BankPlan& plan, const QString& folder);

} // namespace zunbrix
