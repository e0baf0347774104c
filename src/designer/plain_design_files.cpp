#include "designer/plain_design_files.h"

#include "designer/design_editor.h"
#include "designer/design_file_filters.h"
#include "designer/design_file_io.h"
#include "designer/undo_history.h"
#include "designer/visible_name_table.h"

#include <algorithm>

namespace zunbrix {

namespace {

constexpr int kSpriteFileSlots = 64;
constexpr int kSpriteBytes = 4;
constexpr int kMostSprites = 255;
constexpr int kSpriteRows = 240;
constexpr char kEmptySpriteSlot = static_cast<char>(0xF8);

std::span<std::uint8_t, kBankBytes> bankOf(DesignDocument& document, TileBank bank)
{
    return std::span<std::uint8_t, kBankBytes>(document.ChrData.data() + static_cast<int>(bank) * kBankBytes, kBankBytes);
}

std::span<const std::uint8_t, kBankBytes> bankOf(const DesignDocument& document, TileBank bank)
{
    return std::span<const std::uint8_t, kBankBytes>(document.ChrData.data() + static_cast<int>(bank) * kBankBytes,
                                                     kBankBytes);
}

const TileMarks& marksOf(const DesignDocument& document, TileBank bank)
{
    return bank == TileBank::Background ? document.SelectedBkgTiles : document.SelectedSpriteTiles;
}

PaletteBytes& paletteOf(DesignDocument& document, PaletteKind kind)
{
    return kind == PaletteKind::Background ? document.BkgPalette : document.SpritePalette;
}

QByteArrayView bytesOf(std::span<const std::uint8_t> bytes)
{
    return QByteArrayView(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
}

// Reads the start of a file and applies it as one undo step.
template <typename Apply>
DesignResult loadStart(DesignEditor& editor, const QString& path, qint64 maxBytes, Apply apply)
{
    QByteArray data;
    if (DesignResult read = ReadDesignFileStart(path, maxBytes, data); !read.ok())
        return read;
    UndoBegin(editor, true);
    apply(data);
    UndoCommit(editor, true);
    return {};
}

DesignResult save(const QString& path, const char* pattern, QByteArrayView bytes, Overwrite overwrite)
{
    const QString target = PathWithSaveExtension(path, pattern);
    DesignResult written = WriteDesignFile(target, bytes, overwrite);
    written.path = target;
    return written;
}

bool inSpriteRange(const TileEntry& entry)
{
    return entry.y >= 0 && entry.y < kSpriteRows && entry.x >= 0 && entry.x <= 255;
}

} // namespace

DesignResult LoadTiles(DesignEditor& editor, TileBank bank, const QString& path)
{
    const Position& selected = bank == TileBank::Background ? editor.BkgChrPos : editor.SpChrPos;
    const int firstTile = editor.ShiftDown ? SelectedTile(selected) : 0;
    const qint64 room = std::max(kTilesPerBank - firstTile, 0) * qint64{kTileBytes};
    if (room == 0)
        return {};
    return loadStart(editor, path, room, [&](const QByteArray& data) {
        auto target = bankOf(editor.document(), bank).subspan(static_cast<std::size_t>(firstTile) * kTileBytes);
        std::copy_n(reinterpret_cast<const std::uint8_t*>(data.constData()), data.size(), target.begin());
    });
}

DesignResult SaveTiles(const DesignEditor& editor, TileBank bank, const QString& path, int filter)
{
    const DesignDocument& document = editor.document();
    const auto tiles = bankOf(document, bank);
    const TileMarks& marks = marksOf(document, bank);
    const bool someMarked = std::any_of(marks.begin(), marks.end(), [](std::uint8_t mark) { return mark != 0; });
    QByteArray bytes;
    if (editor.ShiftDown && someMarked) {
        for (int tile = 0; tile < kTilesPerBank; ++tile) {
            if (marks[static_cast<std::size_t>(tile)] != 0)
                bytes.append(bytesOf(tiles.subspan(static_cast<std::size_t>(tile) * kTileBytes, kTileBytes)));
        }
    } else {
        bytes = bytesOf(tiles).toByteArray();
    }
    return save(path, file_filters::patternOf(file_filters::kTiles, filter), bytes, Overwrite::Truncate);
}

DesignResult LoadNameTable(DesignEditor& editor, const QString& path)
{
    return loadStart(editor, path, kNameTableBytes, [&](const QByteArray& data) {
        if (!editor.ShiftDown)
            editor.resetBkgTiles();
        for (int cell = 0; cell < data.size(); ++cell) {
            const auto tile = static_cast<std::uint8_t>(data[cell]);
            if (tile == 0)
                continue;
            TileEntry entry;
            entry.tile = tile;
            entry.x = cell & 31;
            entry.y = cell >> 5;
            editor.addBkgTile(entry);
        }
    });
}

DesignResult SaveNameTable(const DesignEditor& editor, const QString& path, int filter)
{
    const NameTable table = ComposeVisibleNameTable(editor);
    return save(path, file_filters::patternOf(file_filters::kNameTable, filter), bytesOf(table), Overwrite::Truncate);
}

DesignResult LoadSprites(DesignEditor& editor, const QString& path)
{
    QByteArray data;
    if (DesignResult read = ReadWholeDesignFile(path, data); !read.ok())
        return read;
    UndoBegin(editor, true);
    DesignDocument& document = editor.document();
    editor.resetSprites();
    for (qsizetype at = 0; at + kSpriteBytes <= data.size() && document.SpriteTileList.size() < kMostSprites;
         at += kSpriteBytes) {
        TileEntry entry;
        entry.id = editor.SpriteTileCounter++;
        entry.y = static_cast<std::uint8_t>(data[at]);
        entry.tile = static_cast<std::uint8_t>(data[at + 1]);
        ApplySpriteAttributeByte(entry, static_cast<std::uint8_t>(data[at + 2]));
        entry.x = static_cast<std::uint8_t>(data[at + 3]);
        // Slots below the screen hold no sprite: the filler of a saved file.
        if (entry.y < kSpriteRows)
            document.SpriteTileList.push_back(entry);
    }
    UndoCommit(editor, true);
    return {};
}

DesignResult SaveSprites(const DesignEditor& editor, const QString& path, int filter)
{
    const TileList& sprites = editor.document().SpriteTileList;
    // With Shift and a selection, the sprites whose tile number is odd are the ones written.
    const bool oddTilesOnly = editor.ShiftDown && std::any_of(sprites.begin(), sprites.end(),
                                                              [](const TileEntry& e) { return e.isSelected(); });
    QByteArray bytes(kSpriteFileSlots * kSpriteBytes, kEmptySpriteSlot);
    int slot = 0;
    for (const TileEntry& entry : sprites) {
        if (!inSpriteRange(entry) || (oddTilesOnly && (entry.tile & 1) == 0))
            continue;
        if (slot == kSpriteFileSlots)
            return DesignResult::failure(DesignFault::TooManySprites, path);
        const auto memory = SpriteMemoryBytes(entry);
        std::copy(memory.begin(), memory.end(), bytes.begin() + slot * kSpriteBytes);
        ++slot;
    }
    return save(path, file_filters::patternOf(file_filters::kSprites, filter), bytes, Overwrite::Truncate);
}

DesignResult LoadPalette(DesignEditor& editor, PaletteKind kind, const QString& path)
{
    return loadStart(editor, path, kPaletteBytes, [&](const QByteArray& data) {
        std::copy_n(data.constData(), data.size(), paletteOf(editor.document(), kind).begin());
    });
}

DesignResult SavePalette(const DesignEditor& editor, PaletteKind kind, const QString& path, int filter)
{
    const DesignDocument& document = editor.document();
    const PaletteBytes& palette = kind == PaletteKind::Background ? document.BkgPalette : document.SpritePalette;
    return save(path, file_filters::patternOf(file_filters::kPalette, filter), bytesOf(palette), Overwrite::KeepTail);
}

DesignResult LoadAttributes(DesignEditor& editor, const QString& path)
{
    return loadStart(editor, path, kAttributeBytes, [&](const QByteArray& data) {
        std::copy_n(data.constData(), data.size(), editor.document().Attributes.begin());
        editor.recomputeSelectedColor();
    });
}

DesignResult SaveAttributes(const DesignEditor& editor, const QString& path, int filter)
{
    const char* pattern = file_filters::patternOf(file_filters::kSaveAttributes, filter);
    const AttributeTable& attributes = editor.document().Attributes;
    switch (filter) {
    case file_filters::kAttributesTable:
        return save(path, pattern, bytesOf(attributes), Overwrite::KeepTail);
    case file_filters::kAttributesBinWritesNothing:
        return save(path, pattern, {}, Overwrite::KeepTail);
    default: {
        std::array<std::uint8_t, kExAttributeBytes> expanded{};
        ExpandExAttributes(attributes, expanded);
        return save(path, pattern, bytesOf(expanded), Overwrite::KeepTail);
    }
    }
}

DesignResult SaveCharMap(const DesignEditor& editor, const QString& path)
{
    return save(path, file_filters::kCharMap[0].pattern, bytesOf(editor.document().CharMapData), Overwrite::Truncate);
}

} // namespace zunbrix
