#include "menu/menu_list_look.h"

namespace zunbrix {

namespace {

constexpr int kScreenRows = 30;
constexpr int kScreenColumns = 32;
constexpr std::uint32_t kNameTableAddr = 0x2000;

// The rows of ItemShowPos in menu.asm.
constexpr int kRowAddresses = 21;
constexpr int kRowAddressesWithBlankRows = 15;

// ITEM_SHOW_POS as menu.asm sets it for a built-in look; 0 where the look has no list.
constexpr std::uint32_t builtInItemPpuAddr(int showStyle, int pageSize)
{
    const bool knownPageSize = pageSize == 5 || pageSize == 10 || pageSize == 15 || pageSize == 20;
    if (!knownPageSize)
        return 0;
    if (showStyle == 0)
        return pageSize >= 15 ? 0x20A6 : 0x20C6;
    return showStyle == 1 ? 0x20C6 : 0;
}

std::uint32_t firstNameAddr(const ListLook& look)
{
    return look.custom ? look.customItemPpuAddr : builtInItemPpuAddr(look.showStyle, look.pageSize);
}

} // namespace

int listFirstRow(const ListLook& look)
{
    const std::int64_t offset = std::int64_t{firstNameAddr(look)} - kNameTableAddr;
    return static_cast<int>((offset < 0 ? offset - (kScreenColumns - 1) : offset) / kScreenColumns);
}

bool canDrawList(const ListLook& look)
{
    const int rowAddresses = look.nameInsertRow ? kRowAddressesWithBlankRows : kRowAddresses;
    if (look.pageSize < 1 || look.pageSize > rowAddresses)
        return false;
    const int firstRow = listFirstRow(look);
    const int lastRow = firstRow + (look.pageSize - 1) * (look.nameInsertRow ? 2 : 1);
    return firstRow >= 0 && lastRow < kScreenRows;
}

} // namespace zunbrix
