#pragma once

#include <array>
#include <cstdint>
#include <initializer_list>
#include <span>

namespace zunbrix {

// The board family a build targets; the number is also BOARD_TYPE in the menu's source.
enum class BoardType : std::uint8_t { Coolboy = 0, Mindkids = 1, Coolgirl = 2 };

// A set of allowed sizes, written in the tables as a plain list.
class SizeSet {
public:
    constexpr SizeSet(std::initializer_list<std::uint8_t> sizes)
    {
        for (std::uint8_t size : sizes)
            sizes_[count_++] = size;
    }

    constexpr bool contains(std::uint32_t size) const
    {
        for (std::size_t i = 0; i < count_; ++i)
            if (sizes_[i] == size)
                return true;
        return false;
    }

private:
    std::array<std::uint8_t, 9> sizes_{};
    std::size_t count_ = 0;
};

// What a mapper's games may measure: PRG in 16 KB banks, CHR in 8 KB banks.
struct MapperSizeRow {
    std::uint16_t mapper;
    SizeSet prgBanks;
    SizeSet chrBanks;
};

// How the COOLGIRL board is set up to run a mapper's games.
struct CoolgirlMapperRow {
    std::uint16_t mapper;
    std::uint8_t boardMapper; // mapper logic inside the board, 6 bits
    std::uint8_t mapperFlags; // option bits of that logic, 3 bits
    std::uint8_t prgMode;     // 3 bits
    std::uint8_t chrMode;     // 3 bits
};

inline constexpr std::array<std::uint16_t, 3> coolboyMappers{0, 4, 74};

inline constexpr std::array<std::uint16_t, 51> coolgirlMappers{
    0,  1,  2,  3,  5,  7,  9,  4,  74,  10,  11,  18,  21,  22,  23,  25,  30,
    32, 33, 34, 36, 38, 42, 48, 65, 66,  67,  69,  70,  71,  73,  75,  78,  79,
    83, 87, 89, 90, 93, 97, 112, 118, 133, 146, 152, 163, 184, 189, 206, 228, 241,
};

inline constexpr std::array<MapperSizeRow, 51> mapperSizeTable{{
    {0, {1, 2}, {0, 1}},
    {1, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {2, {1, 2, 4, 8, 16, 32}, {0}},
    {3, {1, 2}, {0, 1, 2, 4, 8, 16}},
    {4, {1, 2, 4, 8, 16, 32, 64, 128}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {5, {1, 2, 4, 8, 16, 32, 64}, {1, 2, 4, 8, 16, 32}},
    {7, {1, 2, 4, 8, 16, 32}, {0}},
    {9, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {10, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16}},
    {11, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {18, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {21, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {22, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {23, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {25, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {30, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4}},
    {32, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {33, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {34, {1, 2, 4, 8}, {0}},
    {36, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {38, {1, 2, 4, 8}, {0, 1, 2, 4}},
    {42, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {48, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {65, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {66, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16}},
    {67, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16}},
    {69, {1, 2, 4, 8, 16, 32, 64, 128}, {0, 1, 2, 4, 8, 16, 32}},
    {70, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {71, {1, 2, 4, 8, 16}, {0}},
    {73, {1, 2, 4, 8}, {0}},
    {74, {1, 2, 4, 8, 16, 32, 64, 128}, {0, 1, 2, 4, 8, 16, 32}},
    {75, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {78, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {79, {1, 2, 4}, {0, 1, 2, 4, 8}},
    {83, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16, 32}},
    {87, {1, 2}, {0, 1, 2}},
    {89, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {90, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32}},
    {93, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32}},
    {97, {1, 2, 4, 8, 16}, {0, 1, 2, 4, 8, 16, 32}},
    {112, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16, 32}},
    {118, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {133, {1, 2, 4}, {0, 1, 2, 4}},
    {146, {1, 2, 4}, {0, 1, 2, 4, 8}},
    {152, {1, 2, 4, 8}, {0, 1, 2, 4, 8, 16}},
    {163, {1, 2, 4, 8, 16, 32, 64, 128}, {0}},
    {184, {1, 2}, {0, 1, 2, 4, 8, 16, 32}},
    {189, {1, 2, 4, 8, 16, 32}, {0, 1, 2, 4, 8, 16, 32}},
    {206, {1, 2, 4, 8}, {0, 1, 2, 4, 8}},
    {228, {1, 2, 4, 8, 16, 32, 64, 96, 128}, {0, 1, 2, 4, 8, 16, 32, 64}},
    {241, {1, 2, 4, 8, 16, 32, 64, 128}, {0, 1, 2, 4}},
}};

// Mapper 74 has no row of its own: it runs on mapper 4's logic.
inline constexpr std::array<CoolgirlMapperRow, 50> coolgirlMapperTable{{
    // mapper, boardMapper, mapperFlags, prgMode, chrMode
    {0, 0, 0, 0, 0},
    {1, 16, 0, 0, 0},
    {2, 1, 0, 0, 0},
    {3, 2, 0, 0, 0},
    {4, 20, 0, 4, 2},
    {5, 15, 0, 4, 7},
    {7, 8, 0, 7, 0},
    {9, 17, 0, 4, 5},
    {10, 17, 1, 0, 5},
    {11, 10, 0, 7, 0},
    {18, 7, 0, 4, 7},
    {21, 24, 0, 4, 7},
    {22, 24, 3, 4, 7},
    {23, 24, 4, 4, 7},
    {25, 24, 5, 4, 7},
    {30, 1, 0, 0, 0},
    {32, 26, 0, 4, 7},
    {33, 22, 0, 4, 2},
    {34, 8, 1, 7, 0},
    {36, 29, 0, 7, 0},
    {38, 32, 0, 7, 0},
    {42, 23, 0, 7, 0},
    {48, 22, 1, 4, 2},
    {65, 14, 0, 4, 7},
    {66, 11, 0, 7, 0},
    {67, 36, 0, 0, 6},
    {69, 25, 0, 4, 7},
    {70, 18, 0, 0, 0},
    {71, 1, 1, 0, 0},
    {73, 19, 0, 0, 0},
    {75, 34, 0, 4, 4},
    {78, 3, 0, 0, 0},
    {79, 27, 0, 7, 0},
    {83, 35, 0, 4, 7},
    {87, 12, 0, 0, 0},
    {89, 37, 0, 0, 0},
    {90, 13, 0, 4, 7},
    {93, 5, 0, 0, 0},
    {97, 4, 0, 1, 0},
    {112, 21, 0, 4, 2},
    {118, 20, 1, 4, 2},
    {133, 28, 0, 7, 0},
    {146, 27, 0, 7, 0},
    {152, 18, 0, 0, 0},
    {163, 6, 0, 7, 0},
    {184, 31, 0, 0, 4},
    {189, 20, 2, 7, 2},
    {206, 20, 4, 4, 2},
    {228, 9, 0, 7, 0},
    {241, 8, 1, 7, 0},
}};

// The mappers a board family can run: COOLBOY and MINDKIDS share one list.
std::span<const std::uint16_t> boardMappers(BoardType board);
bool boardSupportsMapper(BoardType board, std::uint32_t mapper);

// The row of a mapper, or nullptr when the table has none.
const MapperSizeRow* findMapperSizeRow(std::uint32_t mapper);
const CoolgirlMapperRow* findCoolgirlMapperRow(std::uint32_t mapper);

// The row that sets up the COOLGIRL board for a mapper: mapper 4's row stands in for any mapper without one.
const CoolgirlMapperRow& coolgirlRowFor(std::uint32_t mapper);

// Whether a game of these header sizes can go on each board at all (the list's fit marks).
bool fitsCoolboy(std::uint32_t mapper, std::uint32_t prgBanks, std::uint32_t chrBanks);
bool fitsCoolgirl(std::uint32_t mapper, std::uint32_t prgBanks);

} // namespace zunbrix
