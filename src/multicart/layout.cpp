#include "multicart/layout.h"

#include <algorithm>
#include <array>
#include <numeric>
#include <unordered_map>

namespace zunbrix {

namespace {

constexpr std::uint64_t kPrgGridBytes = 16384;
constexpr std::uint32_t kChrGridBytes = 8192;
constexpr std::uint32_t kCoolboyMenuEndBanks = 32; // the menu ends at 512 KB when it is smaller

// Free flash that a later image may take.
struct Hole {
    std::uint64_t offset;
    std::uint64_t size;
};

// The fields of one of the two data areas, so that PRG and CHR share the placing code.
struct Area {
    std::size_t index; // 0 PRG, 1 CHR
    bool NesImage::*placed;
    std::uint64_t NesImage::*offset;
    std::uint32_t NesImage::*crc;
    std::uint64_t NesImage::*dataBytes;
    std::uint64_t NesImage::*layoutBytes;
};

constexpr Area kPrg{0, &NesImage::prgPlaced, &NesImage::prgOffset, &NesImage::prgCrc32, &NesImage::prgBytes,
                    &NesImage::prgLayoutBytes};
constexpr Area kChr{1, &NesImage::chrPlaced, &NesImage::chrOffset, &NesImage::chrCrc32, &NesImage::chrBytes,
                    &NesImage::chrLayoutBytes};

std::uint64_t roundUp(std::uint64_t value, std::uint64_t step)
{
    return (value + step - 1) / step * step;
}

// Images that hold the same data: equal checksum over equal length, whatever room each reserves (an NROM
// game and an MMC3 game with the same PRG reserve 32 KB and 128 KB on COOLBOY). The group is placed as one
// copy in the room of its largest member; the smaller windows, whose sizes divide it, start at the same
// offset and find their data there, since a raised PRG window is filled with copies of it.
class ShareGroups {
public:
    ShareGroups(const std::vector<NesImage>& images, const Area& area)
        : groupOf_(images.size())
    {
        std::unordered_map<std::uint64_t, std::size_t> groupByData;
        for (std::size_t i = 0; i < images.size(); ++i) {
            const std::uint64_t key = (std::uint64_t(images[i].*area.crc) << 32) | images[i].*area.dataBytes;
            const auto [entry, isNew] = groupByData.try_emplace(key, members_.size());
            if (isNew) {
                members_.emplace_back();
                roomBytes_.push_back(0);
            }
            groupOf_[i] = entry->second;
            members_[entry->second].push_back(i);
            roomBytes_[entry->second] = std::max(roomBytes_[entry->second], images[i].*area.layoutBytes);
        }
    }

    const std::vector<std::size_t>& membersWith(std::size_t image) const { return members_[groupOf_[image]]; }

    // The flash that the copy of the image's data takes.
    std::uint64_t roomOf(std::size_t image) const { return roomBytes_[groupOf_[image]]; }

    std::uint64_t uniqueBytes() const
    {
        return std::accumulate(roomBytes_.begin(), roomBytes_.end(), std::uint64_t(0));
    }

private:
    std::vector<std::size_t> groupOf_;
    std::vector<std::vector<std::size_t>> members_;
    std::vector<std::uint64_t> roomBytes_;
};

// The images in a working order that the runs sort and swap; the images themselves never move.
class Packer {
public:
    explicit Packer(std::vector<NesImage>& images)
        : images_(images), order_(images.size()), groups_{ShareGroups(images, kPrg), ShareGroups(images, kChr)}
    {
        std::iota(order_.begin(), order_.end(), std::size_t(0));
    }

    // Largest room first over the first `count` positions.
    void sortLargestFirst(const Area& area, std::size_t count)
    {
        const ShareGroups& rooms = groups(area);
        std::stable_sort(order_.begin(), order_.begin() + std::ptrdiff_t(count),
                         [&](std::size_t a, std::size_t b) { return rooms.roomOf(a) > rooms.roomOf(b); });
    }
    void sortLargestFirst(const Area& area) { sortLargestFirst(area, order_.size()); }

    // Gives `offset` to the image at `position` and to every image with the same data; their copy takes
    // room(area, position) from there.
    void place(const Area& area, std::size_t position, std::uint64_t offset)
    {
        for (std::size_t member : groups(area).membersWith(order_[position])) {
            images_[member].*area.offset = offset;
            images_[member].*area.placed = true;
        }
    }

    // Each hole takes, in working order, every image whose room fits it at the room's alignment.
    void fillHoles(const Area& area, std::vector<Hole>& holes)
    {
        for (Hole& hole : holes) {
            if (hole.size == 0)
                continue;
            for (std::size_t position = 0; position < order_.size(); ++position) {
                NesImage& image = at(position);
                if (image.*area.placed)
                    continue;
                const std::uint64_t size = room(area, position);
                if (size == 0) {
                    image.*area.placed = true;
                } else if (size <= hole.size && hole.offset % size == 0) {
                    place(area, position, hole.offset);
                    hole.offset += size;
                    hole.size -= size;
                }
            }
        }
    }

    // PRG follows the menu; where no image fits the cursor's alignment, the gap becomes a hole for CHR.
    std::uint64_t placePrgRun(std::uint64_t cursor, std::vector<Hole>& holes)
    {
        for (std::size_t i = 0; i < order_.size(); ++i) {
            if (at(i).prgPlaced)
                continue;
            bool fits = isAligned(cursor, room(kPrg, i));
            for (std::size_t j = i + 1; !fits && j < order_.size(); ++j) {
                std::swap(order_[i], order_[j]);
                const std::uint64_t size = room(kPrg, i);
                fits = !at(i).prgPlaced && size != 0 && cursor % size == 0;
            }
            const std::uint64_t size = room(kPrg, i);
            if (!fits && size != 0) {
                const std::uint64_t aligned = roundUp(cursor, size);
                if (aligned != cursor)
                    holes.push_back({cursor, aligned - cursor});
                cursor = aligned;
            }
            if (!at(i).prgPlaced) {
                place(kPrg, i, cursor);
                cursor += size;
            }
        }
        return cursor;
    }

    // CHR follows the last PRG; its alignment gaps stay empty.
    void placeChrRun(std::uint64_t cursor)
    {
        for (std::size_t i = 0; i < order_.size(); ++i) {
            if (at(i).chrPlaced)
                continue;
            if (room(kChr, i) == 0) {
                at(i).chrPlaced = true;
                continue;
            }
            bool fits = cursor % room(kChr, i) == 0;
            for (std::size_t j = i + 1; !fits && j < order_.size(); ++j) {
                std::swap(order_[i], order_[j]);
                if (at(i).chrPlaced || room(kChr, i) == 0)
                    at(i).chrPlaced = true;
                else
                    fits = cursor % room(kChr, i) == 0;
            }
            const std::uint64_t size = room(kChr, i);
            if (!fits && size != 0)
                cursor = roundUp(cursor, size);
            if (!at(i).chrPlaced) {
                place(kChr, i, cursor);
                cursor += size;
            }
        }
    }

    std::vector<NesImage> imagesInWorkingOrder() const
    {
        std::vector<NesImage> result;
        result.reserve(order_.size());
        for (std::size_t index : order_)
            result.push_back(images_[index]);
        return result;
    }

    const ShareGroups& groups(const Area& area) const { return groups_[area.index]; }

private:
    static bool isAligned(std::uint64_t offset, std::uint64_t size) { return size == 0 || offset % size == 0; }

    NesImage& at(std::size_t position) { return images_[order_[position]]; }
    std::uint64_t room(const Area& area, std::size_t position) const { return groups(area).roomOf(order_[position]); }

    std::vector<NesImage>& images_;
    std::vector<std::size_t> order_;
    std::array<ShareGroups, 2> groups_;
};

std::uint64_t romBytesOf(const std::vector<NesImage>& images)
{
    std::uint64_t end = 0;
    for (const NesImage& image : images) {
        end = std::max(end, image.prgOffset + image.prgLayoutBytes);
        end = std::max(end, image.chrOffset + image.chrLayoutBytes);
    }
    return roundUp(end, kPrgGridBytes);
}

} // namespace

LayoutResult layoutRom(NesImage menu, std::vector<NesImage> games, BoardType boardType)
{
    if (menu.prgLayoutBanks == 0)
        return {};
    menu.isMenu = true;
    // COOLBOY and MINDKIDS keep a small menu at the end of the first 512 KB; COOLGIRL starts it at 0.
    const std::uint64_t menuEndBanks =
        boardType == BoardType::Coolgirl || menu.prgLayoutBanks > kCoolboyMenuEndBanks ? menu.prgLayoutBanks
                                                                                        : kCoolboyMenuEndBanks;
    const std::uint64_t menuOffset = (menuEndBanks - menu.prgLayoutBanks) * kPrgGridBytes;
    const std::uint64_t menuEnd = menuOffset + menu.prgLayoutBytes;

    std::vector<NesImage> images = std::move(games);
    images.push_back(std::move(menu));
    Packer packer(images);
    packer.sortLargestFirst(kPrg, images.size() - 1);
    packer.place(kPrg, images.size() - 1, menuOffset);

    // The space before the menu is filled first, PRG before CHR.
    std::vector<Hole> holes;
    if (menuOffset > 0)
        holes.push_back({0, menuOffset});
    packer.fillHoles(kPrg, holes);
    packer.fillHoles(kChr, holes);

    holes.clear();
    packer.sortLargestFirst(kPrg);
    const std::uint64_t prgEnd = packer.placePrgRun(menuEnd, holes);
    packer.sortLargestFirst(kChr);
    packer.fillHoles(kChr, holes);
    packer.placeChrRun(prgEnd);

    LayoutResult result;
    result.images = packer.imagesInWorkingOrder();
    result.uniquePrgBytes = packer.groups(kPrg).uniqueBytes();
    result.uniqueChrBytes = packer.groups(kChr).uniqueBytes();
    result.uniqueBytes = result.uniquePrgBytes + result.uniqueChrBytes;
    result.romBytes = romBytesOf(result.images);
    std::stable_sort(result.images.begin(), result.images.end(),
                     [](const NesImage& a, const NesImage& b) { return a.listIndex < b.listIndex; });
    return result;
}

} // namespace zunbrix
