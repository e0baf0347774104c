#include "gamelist/list_order.h"

#include <algorithm>
#include <numeric>

namespace zunbrix {

namespace {

ListOrder unchangedOrder(std::size_t size)
{
    ListOrder order(size);
    std::iota(order.begin(), order.end(), std::size_t(0));
    return order;
}

bool isTextKey(ListSortKey key)
{
    return key == ListSortKey::Name || key == ListSortKey::Remark || key == ListSortKey::Path;
}

const QString& textKey(const GameEntry& entry, ListSortKey key)
{
    return key == ListSortKey::Name ? entry.name : key == ListSortKey::Remark ? entry.remark : entry.path;
}

std::uint32_t numberKey(const GameEntry& entry, ListSortKey key)
{
    switch (key) {
    case ListSortKey::PrgBanks:
        return entry.prgBanks();
    case ListSortKey::ChrBanks:
        return entry.chrBanks();
    case ListSortKey::Mapper:
        return entry.mapper();
    case ListSortKey::Mirroring:
        return entry.verticalMirroring();
    case ListSortKey::Battery:
        return entry.battery();
    case ListSortKey::Trainer:
        return entry.hasTrainer();
    default:
        return 0;
    }
}

// Sorts `order` by one key per entry, worked out once rather than in every comparison.
template <typename Key>
void sortByKeys(ListOrder& order, const std::vector<Key>& keys)
{
    std::stable_sort(order.begin(), order.end(), [&keys](std::size_t a, std::size_t b) { return keys[a] < keys[b]; });
}

} // namespace

std::optional<CheckedRows> FindCheckedRows(const std::vector<GameEntry>& entries)
{
    std::optional<CheckedRows> rows;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (!entries[i].checked)
            continue;
        if (!rows)
            rows = CheckedRows{i, i, 0};
        rows->last = i;
        ++rows->count;
    }
    return rows;
}

ListOrder CheckedMovedUp(const std::vector<GameEntry>& entries, const CheckedRows& checked)
{
    ListOrder order = unchangedOrder(entries.size());
    for (std::size_t i = checked.first; i <= checked.last; ++i)
        if (entries[order[i]].checked)
            std::swap(order[i], order[i - 1]);
    return order;
}

ListOrder CheckedMovedDown(const std::vector<GameEntry>& entries, const CheckedRows& checked)
{
    ListOrder order = unchangedOrder(entries.size());
    for (std::size_t i = checked.last + 1; i-- > checked.first;)
        if (entries[order[i]].checked)
            std::swap(order[i], order[i + 1]);
    return order;
}

ListOrder CheckedGathered(const std::vector<GameEntry>& entries, bool atTop)
{
    ListOrder order = unchangedOrder(entries.size());
    std::stable_partition(order.begin(), order.end(),
                          [&](std::size_t row) { return entries[row].checked == atTop; });
    return order;
}

ListOrder SortedBy(const std::vector<GameEntry>& entries, ListSortKey key, bool descending)
{
    ListOrder order = unchangedOrder(entries.size());
    if (isTextKey(key)) {
        std::vector<QString> keys;
        keys.reserve(entries.size());
        for (const GameEntry& entry : entries)
            keys.push_back(textKey(entry, key).toUpper());
        sortByKeys(order, keys);
    } else if (key != ListSortKey::None) {
        std::vector<std::uint32_t> keys;
        keys.reserve(entries.size());
        for (const GameEntry& entry : entries)
            keys.push_back(numberKey(entry, key));
        sortByKeys(order, keys);
    }
    if (descending)
        std::reverse(order.begin(), order.end());
    return order;
}

} // namespace zunbrix
