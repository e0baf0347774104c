#include "multicart/board_tables.h"

#include <algorithm>

namespace zunbrix {

std::span<const std::uint16_t> boardMappers(BoardType board)
{
    if (board == BoardType::Coolgirl)
        return coolgirlMappers;
    return coolboyMappers;
}

bool boardSupportsMapper(BoardType board, std::uint32_t mapper)
{
    const auto mappers = boardMappers(board);
    return std::find(mappers.begin(), mappers.end(), mapper) != mappers.end();
}

const MapperSizeRow* findMapperSizeRow(std::uint32_t mapper)
{
    const auto row = std::find_if(mapperSizeTable.begin(), mapperSizeTable.end(),
                                  [mapper](const MapperSizeRow& r) { return r.mapper == mapper; });
    return row == mapperSizeTable.end() ? nullptr : &*row;
}

const CoolgirlMapperRow* findCoolgirlMapperRow(std::uint32_t mapper)
{
    const auto row = std::find_if(coolgirlMapperTable.begin(), coolgirlMapperTable.end(),
                                  [mapper](const CoolgirlMapperRow& r) { return r.mapper == mapper; });
    return row == coolgirlMapperTable.end() ? nullptr : &*row;
}

const CoolgirlMapperRow& coolgirlRowFor(std::uint32_t mapper)
{
    if (const CoolgirlMapperRow* row = findCoolgirlMapperRow(mapper))
        return *row;
    return *findCoolgirlMapperRow(4);
}

bool fitsCoolboy(std::uint32_t mapper, std::uint32_t prgBanks, std::uint32_t chrBanks)
{
    if (mapper == 0)
        return prgBanks <= 2 && chrBanks < 2;
    if (mapper != 4 && mapper != 74)
        return false;
    // Rows 4 and 74 hold the same PRG sizes. CHR does not decide this mark; the build's validation looks at it.
    return findMapperSizeRow(mapper)->prgBanks.contains(prgBanks);
}

bool fitsCoolgirl(std::uint32_t mapper, std::uint32_t prgBanks)
{
    const MapperSizeRow* row = findMapperSizeRow(mapper);
    return row != nullptr && row->prgBanks.contains(prgBanks);
}

} // namespace zunbrix
