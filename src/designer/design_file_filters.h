#pragma once

#include <array>

namespace zunbrix {

// The file types each Load and Save of the designer offers, in dialog order; a chosen filter is numbered
// from 1. On Save the pattern's extension is the one added to a path that lacks it.
struct FileFilter {
    const char* name;
    const char* pattern;
};

namespace file_filters {
inline constexpr std::array<FileFilter, 3> kLoadMenu = {{{"qvm", "*.qvm"}, {"bin_2000", "*.bin"}, {"bin_2C00", "*.bin"}}};
inline constexpr std::array<FileFilter, 1> kSaveMenu = {{{"qvm", "*.qvm"}}};
inline constexpr std::array<FileFilter, 1> kNameTablePage = {{{"qvc", "*.qvc"}}};
inline constexpr std::array<FileFilter, 1> kTextList = {{{"qvt", "*.qvt"}}};
inline constexpr std::array<FileFilter, 2> kLoadAttributes = {{{"attr", "*.attr"}, {"bin", "*.bin"}}};
inline constexpr std::array<FileFilter, 4> kSaveAttributes = {
    {{"attr", "*.attr"}, {"bin", "*.bin"}, {"attr(MMC5)", "*.attr"}, {"bin(MMC5)", "*.bin"}}};
inline constexpr std::array<FileFilter, 2> kTiles = {{{"chr", "*.chr"}, {"bin", "*.bin"}}};
inline constexpr std::array<FileFilter, 2> kNameTable = {{{"nam", "*.nam"}, {"bin", "*.bin"}}};
inline constexpr std::array<FileFilter, 2> kSprites = {{{"spl", "*.spl"}, {"bin", "*.bin"}}};
inline constexpr std::array<FileFilter, 2> kPalette = {{{"pal", "*.pal"}, {"bin", "*.bin"}}};
inline constexpr std::array<FileFilter, 1> kCharMap = {{{"bin", "*.bin"}}};

// Menu loads: the record file, or a PPU memory image with its name table at 0x2000 or at 0x2C00.
inline constexpr int kMenuRecords = 1;
inline constexpr int kPpuImage2000 = 2;
inline constexpr int kPpuImage2C00 = 3;
// Attribute saves: the table, nothing at all for the plain "bin" filter, or the MMC5 form.
inline constexpr int kAttributesTable = 1;
inline constexpr int kAttributesBinWritesNothing = 2;

// The pattern of filter `number` (from 1); the first filter's for a number out of range.
template <std::size_t N>
constexpr const char* patternOf(const std::array<FileFilter, N>& filters, int number)
{
    return number >= 1 && number <= int(N) ? filters[std::size_t(number - 1)].pattern : filters[0].pattern;
}
} // namespace file_filters

} // namespace zunbrix
