#include "designer/record_file.h"

#include "designer/design_file_filters.h"
#include "designer/design_file_io.h"
#include "designer/record_payloads.h"
#include "designer/design_editor.h"
#include "designer/undo_history.h"

namespace zunbrix {

namespace {

constexpr qsizetype kPpuImageBytes = 16384;
constexpr int kPpuBkgPaletteOffset = 16128;
constexpr int kPpuSpritePaletteOffset = 16144;
constexpr int kNameTableAt2000 = 8192;
constexpr int kNameTableAt2C00 = 11264;

struct RecordFileRules {
    RecordTypeSet reads;
    bool clearsSpritesAndCursor;
    bool clearsBkgTiles;
    CaptionTarget caption;
    // .qvm is written anew; the others are written over the old file, whose longer tail stays.
    Overwrite overwrite;
};

const RecordFileRules& rulesOf(RecordFileKind kind)
{
    using T = RecordType;
    static const RecordFileRules menu{
        {T::Attributes, T::BkgPalette, T::SpritePalette, T::ChrData, T::Text, T::Caption, T::CaptionPos,
         T::PageNumberPos, T::ItemPos, T::BkgTile, T::SpriteTile, T::ArrowTile, T::ArrowTileListEntry,
         T::CharMapData, T::BigCursor, T::BigSprite},
        true, true, CaptionTarget::CanvasAndField, Overwrite::Truncate};
    static const RecordFileRules nameTablePage{
        {T::Attributes, T::BkgPalette, T::SpritePalette, T::Text, T::Caption, T::CaptionPos, T::PageNumberPos,
         T::ItemPos, T::BkgTile, T::ArrowTile},
        false, true, CaptionTarget::CanvasOnly, Overwrite::KeepTail};
    static const RecordFileRules textList{
        {T::Text, T::Caption, T::CaptionPos}, false, false, CaptionTarget::CanvasOnly, Overwrite::KeepTail};
    switch (kind) {
    case RecordFileKind::Menu: return menu;
    case RecordFileKind::NameTablePage: return nameTablePage;
    case RecordFileKind::TextList: break;
    }
    return textList;
}

const char* savePatternOf(RecordFileKind kind)
{
    switch (kind) {
    case RecordFileKind::Menu: return file_filters::kSaveMenu[0].pattern;
    case RecordFileKind::NameTablePage: return file_filters::kNameTablePage[0].pattern;
    case RecordFileKind::TextList: break;
    }
    return file_filters::kTextList[0].pattern;
}

void appendMenu(QByteArray& out, const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    for (const TileEntry& entry : document.BkgTileList)
        appendTileRecord(out, RecordType::BkgTile, entry);
    for (const TileEntry& entry : document.SpriteTileList)
        appendTileRecord(out, RecordType::SpriteTile, entry);
    appendBytesRecord(out, RecordType::CharMapData, document.CharMapData);
    appendMenuLookRecords(out, editor);
    appendFlagRecord(out, RecordType::BigCursor, editor.BigCursor != 0);
    appendFlagRecord(out, RecordType::BigSprite, document.BigSprite != 0);
}

void appendNameTablePage(QByteArray& out, const DesignEditor& editor)
{
    const DesignDocument& document = editor.document();
    for (const TileEntry& entry : document.BkgTileList)
        appendTileRecord(out, RecordType::BkgTile, entry);
    appendBytesRecord(out, RecordType::Attributes, document.Attributes);
    appendCaptionAndPlaceRecords(out, editor);
    appendTileRecord(out, RecordType::ArrowTile, document.ArrowTile);
    appendTextRecords(out, document.CustomText);
}

void appendTextList(QByteArray& out, const DesignEditor& editor)
{
    appendPosRecord(out, RecordType::CaptionPos, editor.CaptionPos);
    appendCaptionRecord(out, editor.CaptionEdit);
    appendTextRecords(out, editor.document().CustomText);
}

template <std::size_t N>
void copyFromImage(QByteArrayView image, qsizetype offset, std::array<std::uint8_t, N>& field)
{
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(image.data()) + offset;
    std::copy_n(bytes, N, field.begin());
}

} // namespace

QByteArray RecordFileBytes(RecordFileKind kind, const DesignEditor& editor)
{
    QByteArray out;
    switch (kind) {
    case RecordFileKind::Menu: appendMenu(out, editor); break;
    case RecordFileKind::NameTablePage: appendNameTablePage(out, editor); break;
    case RecordFileKind::TextList: appendTextList(out, editor); break;
    }
    return out;
}

DesignResult ApplyRecordFile(RecordFileKind kind, DesignEditor& editor, QByteArrayView data, const QString& path)
{
    DesignDocument& document = editor.document();
    const RecordFileRules& rules = rulesOf(kind);
    if (DesignResult checked = CheckRecords(data, rules.reads, RecordTail::StopAtLastWholeRecord, path);
        !checked.ok())
        return checked;

    editor.resetCustomText();
    if (rules.clearsBkgTiles)
        editor.resetBkgTiles();
    if (rules.clearsSpritesAndCursor) {
        editor.resetSprites();
        document.ArrowTileList.clear();
    }
    for (const DesignRecord& record : WholeRecords(data)) {
        if (rules.reads.contains(record.type))
            ApplyDesignRecord(record, editor, rules.caption);
    }
    if (kind != RecordFileKind::TextList)
        editor.recomputeSelectedColor();
    return {};
}

void ApplyPpuMemoryImage(DesignEditor& editor, QByteArrayView data, int nameTableOffset)
{
    DesignDocument& document = editor.document();
    if (data.size() != kPpuImageBytes)
        return;
    editor.resetCustomText();
    editor.resetBkgTiles();
    editor.resetSprites();

    copyFromImage(data, 0, document.ChrData);
    copyFromImage(data, kPpuBkgPaletteOffset, document.BkgPalette);
    copyFromImage(data, kPpuSpritePaletteOffset, document.SpritePalette);
    copyFromImage(data, nameTableOffset + kNameTableBytes, document.Attributes);
    for (int cell = 0; cell < kNameTableBytes; ++cell) {
        const auto tile = static_cast<std::uint8_t>(data[nameTableOffset + cell]);
        if (tile == 0)
            continue;
        TileEntry entry;
        entry.id = editor.BkgTileCounter++;
        entry.tile = tile;
        entry.x = cell & 31;
        entry.y = cell >> 5;
        document.BkgTileList.push_back(entry);
    }
    editor.recomputeSelectedColor();
}

DesignResult SaveRecordFile(RecordFileKind kind, const DesignEditor& editor, const QString& path,
                            int /*filter: each kind offers one*/)
{
    const QString target = PathWithSaveExtension(path, savePatternOf(kind));
    DesignResult written = WriteDesignFile(target, RecordFileBytes(kind, editor), rulesOf(kind).overwrite);
    written.path = target;
    return written;
}

DesignResult LoadRecordFile(RecordFileKind kind, DesignEditor& editor, const QString& path, int filter)
{
    const bool ppuImage = kind == RecordFileKind::Menu &&
                          (filter == file_filters::kPpuImage2000 || filter == file_filters::kPpuImage2C00);
    QByteArray data;
    if (ppuImage) {
        // Only an image of the exact size is read; any other file changes nothing.
        qint64 size = 0;
        if (DesignResult sized = DesignFileSize(path, size); !sized.ok() || size != kPpuImageBytes)
            return sized;
        if (DesignResult read = ReadDesignFileStart(path, kPpuImageBytes, data); !read.ok())
            return read;
    } else if (DesignResult read = ReadWholeDesignFile(path, data); !read.ok()) {
        return read;
    }

    UndoBegin(editor, true);
    DesignResult applied;
    if (ppuImage)
        ApplyPpuMemoryImage(editor, data,
                            filter == file_filters::kPpuImage2C00 ? kNameTableAt2C00 : kNameTableAt2000);
    else
        applied = ApplyRecordFile(kind, editor, data, path);
    UndoCommit(editor, true);
    return applied;
}

} // namespace zunbrix
