// The assembler as a build uses it: a menu-shaped source of about 1 MB, and the cost of one process run.
#include "tools/nesasm/assembler.h"

#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstdio>
#include <filesystem>
#include <string>

using namespace zunbrix::nesasm;

namespace {

constexpr int kGames = 2048;
constexpr int kNameBanks = 16;
constexpr int kDataBanks = 12;
constexpr std::size_t kSourceBytes = 1 << 20;

void writeText(const std::filesystem::path& path, const std::string& text)
{
    std::filesystem::create_directories(path.parent_path());
    std::FILE* file = std::fopen(path.string().c_str(), "wb");
    std::fwrite(text.data(), 1, text.size(), file);
    std::fclose(file);
}

std::string hex(int value, int digits)
{
    char text[16];
    std::snprintf(text, sizeof text, "$%0*X", digits, value);
    return text;
}

// One bank in the generated form: the first game's index, a pointer per game, then the records.
std::string bankFile(const char* kind, int bankNumber, int firstGame, int games, bool names)
{
    std::string text = "  .BANK (" + std::string(kind) + "_BANK + " + std::to_string(bankNumber) + ") & BANK_DATA_MASK\r\n"
                       "  .ORG $A000\r\n  .WORD " + std::to_string(firstGame) + "\r\n";
    for (int game = firstGame; game < firstGame + games; ++game)
        text += "  .WORD " + std::string(kind) + "_" + std::to_string(game) + "\r\n";
    for (int game = firstGame; game < firstGame + games; ++game) {
        text += std::string(kind) + "_" + std::to_string(game);
        if (names)
            text += " .STR \"GAME NUMBER " + std::to_string(game) + " - A LONGER TITLE (HACK) \\x21\"\r\n";
        else
            text += " .DB " + hex(game & 0xFF, 2) + "," + hex(game >> 8, 2) + ",%00010000,$00,$3F,$00,$00,$80\r\n";
    }
    return text;
}

// Code in the menu's style: local loops under each routine, zero-page forcing, LOW/HIGH, forward calls.
std::string routine(int number)
{
    const std::string name = "Routine_" + std::to_string(number);
    return name + ":                 ; 子程序 " + std::to_string(number) + "\r\n"
           "  LDA #LOW(PAGE_INDER_SHOW_POS) - 2\r\n"
           "  STA <QV_Addr_L\r\n"
           "  LDA #HIGH(PAGE_INDER_SHOW_POS)\r\n"
           "  STA <QV_Addr_H\r\n"
           "  LDX #08\r\n"
           ".loop:\r\n"
           "  LDA [QV_Data_L],Y\r\n"
           "  STA PPU_DATA\r\n"
           "  INY\r\n"
           "  DEX\r\n"
           "  BNE .loop\r\n"
           "  LDA <Gamepad_0_Value,X\r\n"
           "  AND #BTN_A | BTN_B\r\n"
           "  BEQ .done\r\n"
           "  JSR Routine_" + std::to_string(number + 1) + "\r\n"
           ".done\r\n"
           "  RTS\r\n";
}

// Writes the tree and returns the main source's path.
std::filesystem::path writeMenuTree(const std::filesystem::path& folder)
{
    writeText(folder / "build/game_config.asm", "MENU_PRG_SIZE = 32\r\nGAMES_TOTAL = " + std::to_string(kGames) +
                                                     "\r\nPAGE_SIZE   =  20\r\n");
    std::string menu = "  INCLUDE \"build/game_config.asm\"\r\n"
                       "  .INESPRG MENU_PRG_SIZE\r\n  .INESCHR 0\r\n  .INESMAP 4\r\n  .INESMIR 1\r\n"
                       "BANK_DATA_MASK = MENU_PRG_SIZE * 2 - 1\r\n"
                       "game_data_BANK = $03\r\ngame_name_BANK = $18\r\n"
                       "PAGE_INDER_SHOW_POS = $234E\r\nPPU_DATA = $2007\r\nBTN_A = $80\r\nBTN_B = $40\r\n"
                       "  .RSSET $40\r\nQV_Addr_L .RS 1\r\nQV_Addr_H .RS 1\r\nQV_Data_L .RS 2\r\nGamepad_0_Value .RS 2\r\n";
    const int perName = kGames / kNameBanks;
    for (int bank = 0; bank < kNameBanks; ++bank) {
        const std::string file = "build/game_list_" + std::to_string(bank) + ".asm";
        writeText(folder / file, bankFile("game_name", bank, bank * perName, perName, true));
        menu += "  .IF GAMES_TOTAL > " + std::to_string(bank * perName) + "\r\n  INCLUDE \"" + file + "\"\r\n  .ENDIF\r\n";
    }
    const int perData = (kGames + kDataBanks - 1) / kDataBanks;
    for (int bank = 0; bank < kDataBanks; ++bank) {
        const std::string file = "build/game_data_" + std::to_string(bank) + ".asm";
        const int first = bank * perData;
        writeText(folder / file, bankFile("game_data", bank, first, std::min(perData, kGames - first), false));
        menu += "  INCLUDE \"" + file + "\"\r\n";
    }
    std::size_t total = menu.size();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        total += entry.is_regular_file() ? entry.file_size() : 0;
    int routines = 0;
    int codeBank = 40;
    while (total + menu.size() < kSourceBytes) {
        if (routines % 250 == 0)
            menu += "  .BANK " + std::to_string(codeBank++) + "\r\n  .ORG $8000\r\n";
        menu += routine(routines++);
    }
    menu += "Routine_" + std::to_string(routines) + ":\r\n  RTS\r\n";
    menu += "  .BANK 63\r\n  .ORG $FFFA\r\n  .DW Routine_0, Routine_0, Routine_0\r\n";
    writeText(folder / "menu.asm", menu);
    return folder / "menu.asm";
}

void AssembleMenuShapedSource(benchmark::State& state)
{
    const QTemporaryDir folder;
    const std::filesystem::path main = writeMenuTree(folder.path().toStdString());
    // The build runs the tool in the folder of the main source.
    const std::filesystem::path previousFolder = std::filesystem::current_path();
    std::filesystem::current_path(main.parent_path());
    std::size_t bytes = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(main.parent_path()))
        bytes += entry.is_regular_file() ? entry.file_size() : 0;
    for (auto _ : state) {
        DiskFileSource files;
        const AssemblyResult result = assemble("menu.asm", {}, files);
        if (result.errorCount != 0 || result.output.size() != 16 + 64 * 0x2000)
            state.SkipWithError(result.messages.c_str());
        benchmark::DoNotOptimize(result.output.data());
    }
    std::filesystem::current_path(previousFolder);
    state.SetLabel(std::to_string(bytes / 1024) + " KB of source, " + std::to_string(kGames) + " names in " +
                   std::to_string(kNameBanks) + " banks");
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * bytes));
}
BENCHMARK(AssembleMenuShapedSource)->Unit(benchmark::kMillisecond);

// From start to exit of the tool on a small file, as each build runs it.
void ProcessStartToExitSmallFile(benchmark::State& state)
{
    const QTemporaryDir folder;
    writeText(folder.filePath("small.asm").toStdString(), routine(0) + "Routine_1: RTS\r\n  .ORG $FFFA\r\n  .DW Routine_0\r\n"
                                                           "QV_Addr_L = $40\r\nQV_Addr_H = $41\r\nQV_Data_L = $42\r\n"
                                                           "Gamepad_0_Value = $44\r\nPPU_DATA = $2007\r\nBTN_A = $80\r\n"
                                                           "BTN_B = $40\r\nPAGE_INDER_SHOW_POS = $234E\r\n");
    for (auto _ : state) {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.start(NESASM_EXECUTABLE, {"small.asm"});
        if (!process.waitForFinished(10000) || process.exitCode() != 0)
            state.SkipWithError(process.readAll().constData());
    }
}
BENCHMARK(ProcessStartToExitSmallFile)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace
