// Filling the document from the settings store.

#include "designer/big_cursor.h"
#include "designer/design_record.h"
#include "designer/design_settings.h"
#include "designer/record_payloads.h"
#include "designer/document.h"
#include "frame/registry_store.h"

#include <QtEndian>

#include <algorithm>

namespace zunbrix {
namespace {

QString key()
{
    return QString::fromLatin1(design_settings::kKey);
}

// A binary value read into a field of fixed size: a longer value fails and leaves the field, a shorter
// one fills its start and leaves the rest.
bool readFixed(const char* name, std::span<std::uint8_t> field)
{
    QByteArray value;
    if (!RegistryStore::GetBinary(key(), QString::fromLatin1(name), value) || static_cast<std::size_t>(value.size()) > field.size())
        return false;
    std::copy(value.begin(), value.end(), field.begin());
    return true;
}

// A PPU address as the designer stores it, four bytes, or as a number. One that is no cell of the screen
// would have the menu write past its name table, so it is passed over like an unreadable value.
void readPpuAddress(const char* name, std::uint32_t& address)
{
    std::array<std::uint8_t, 4> bytes{};
    qToLittleEndian(address, bytes.data());
    std::uint32_t stored = 0;
    if (readFixed(name, bytes))
        stored = qFromLittleEndian<std::uint32_t>(bytes.data());
    else if (!RegistryStore::GetDword(key(), QString::fromLatin1(name), stored))
        return;
    if (stored >= PpuAddress(0, 0) && stored < PpuAddress(0, kScreenRows))
        address = stored;
}

void readTileList(const char* name, TileList& list)
{
    QByteArray value;
    if (RegistryStore::GetBinary(key(), QString::fromLatin1(name), value))
        list = tileListFromBytes(value);
}

// Text records back to back. A text too long for its field is passed over; the others are kept.
void readCustomText(TextList& list)
{
    QByteArray value;
    if (!RegistryStore::GetBinary(key(), QString::fromLatin1(design_settings::kCustomText), value))
        return;
    for (const DesignRecord& record : SplitRecords(value)) {
        if (record.type != static_cast<std::uint32_t>(RecordType::Text))
            continue;
        auto entry = TextEntryFromPayload(record.payload);
        if (!entry)
            continue;
        entry->id = static_cast<std::int32_t>(list.size());
        list.push_back(std::move(*entry));
    }
}

} // namespace

bool DesignDocument::LoadDesign()
{
    ArrowTile.tile = kSmallCursorTile;
    auto arrowBytes = ArrowTile.toBytes();
    if (readFixed(design_settings::kArrowTile, arrowBytes))
        ArrowTile = TileEntry::fromBytes(arrowBytes);

    if (CustomText.empty())
        readCustomText(CustomText);
    if (BkgTileList.empty())
        readTileList(design_settings::kBkgTileList, BkgTileList);
    if (SpriteTileList.empty())
        readTileList(design_settings::kSpriteTileList, SpriteTileList);
    loadArrowTileList();

    if (!loadDefaultChr())
        return false;

    quint32 chrSize = 0;
    if (RegistryStore::GetSize(key(), QString::fromLatin1(design_settings::kChrData), chrSize))
        readFixed(design_settings::kChrData, ChrData);
    else
        ChrData = DefaultChr;

    ClampCursorSprite(ArrowTile);

    ResetCharMap();
    readFixed(design_settings::kCharMapData, CharMapData);
    readFixed(design_settings::kBigSprite, std::span<std::uint8_t>(&BigSprite, 1));

    readFixed(design_settings::kAttributes, Attributes);
    readFixed(design_settings::kBkgPalette, BkgPalette);
    readFixed(design_settings::kSpritePalette, SpritePalette);
    readPpuAddress(design_settings::kCaptionPpuAddr, CaptionPpuAddr);
    readPpuAddress(design_settings::kPageNumberPpuAddr, PageNumberPpuAddr);
    readPpuAddress(design_settings::kItemPpuAddr, ItemPpuAddr);
    RegistryStore::GetString(key(), QString::fromLatin1(design_settings::kCaptionText), CaptionText);
    return true;
}

void DesignDocument::loadArrowTileList()
{
    if (ArrowTileList.size() >= kBigCursorSprites)
        return;
    ArrowTileList.clear();
    readTileList(design_settings::kArrowTileList, ArrowTileList);
    for (TileEntry& entry : ArrowTileList)
        ResetCursorSpriteOutOfRange(entry);
    // The stored small cursor, read above, stands in for the list's position here.
    if (ArrowTileList.size() < kBigCursorSprites)
        ArrowTileList = LoadTimeDefaultBigCursor(ArrowTile);
}

bool DesignDocument::loadDefaultChr()
{
    if (defaultChrLoaded_)
        return true;
    if (menuChr_.empty())
        return false;
    std::copy_n(menuChr_.begin(), std::min<std::size_t>(menuChr_.size(), kChrBytes), DefaultChr.begin());
    defaultChrLoaded_ = true;
    return true;
}

} // namespace zunbrix
