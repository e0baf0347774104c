#include "designer/design_persistence.h"

#include "designer/design_editor.h"
#include "designer/design_record.h"
#include "designer/design_settings.h"
#include "designer/record_payloads.h"
#include "designer/snapshot.h"
#include "frame/registry_store.h"

#include <QtEndian>

#include <algorithm>
#include <optional>

namespace zunbrix {

namespace {

// Values that only the designer reads; the document's own names are in design_settings.h.
constexpr char kShowBgTile[] = "Show_Bg_Tile";
constexpr char kShowSpTile[] = "Show_Sp_Tile";
constexpr char kShowList[] = "Show_List";
constexpr char kShowCustomText[] = "Show_Custom_Text";
constexpr char kShowCaption[] = "Show_Caption";
constexpr char kShowCursor[] = "Show_Cursor";
constexpr char kFillColor[] = "FillColor";
constexpr char kDrawLine[] = "DrawLine";
constexpr char kDragText[] = "DragText";
constexpr char kBkgPalettePos[] = "BkgPalettePos";
constexpr char kSpPalettePos[] = "SpPalettePos";
constexpr char kCaptionPos[] = "CaptionPos";
constexpr char kPageNumberPos[] = "PageNumberPos";
constexpr char kItemPos[] = "ItemPos";
constexpr char kCustomTextEdit[] = "CustomTextEdit";
constexpr char kLastWorkState[] = "LastWorkState";
constexpr char kHistoryDataList[] = "HistoryDataList";
constexpr char kHistoryDataIndex[] = "HistoryDataIndex";

// The outer header of a stored history entry differs from the snapshot's own in its second word.
constexpr std::uint32_t kHistoryEntryReserved = 0xFFFFFFFF;

const QString& key()
{
    static const QString path = QString::fromLatin1(design_settings::kKey);
    return path;
}

QString name(const char* value)
{
    return QString::fromLatin1(value);
}

// A binary value that fits a field of `fieldBytes`; a longer one is passed over as if it were not there.
std::optional<QByteArray> readWithin(const char* value, qsizetype fieldBytes)
{
    QByteArray bytes;
    if (!RegistryStore::GetBinary(key(), name(value), bytes) || bytes.size() > fieldBytes)
        return std::nullopt;
    return bytes;
}

// A binary read into a field of fixed size: a longer value fails and leaves the field, a shorter one fills
// its start.
bool readFixed(const char* value, std::uint8_t* field, qsizetype fieldBytes)
{
    const std::optional<QByteArray> bytes = readWithin(value, fieldBytes);
    if (!bytes)
        return false;
    std::copy_n(reinterpret_cast<const std::uint8_t*>(bytes->constData()), bytes->size(), field);
    return true;
}

template <std::size_t N>
bool readFixed(const char* value, std::array<std::uint8_t, N>& field)
{
    return readFixed(value, field.data(), qsizetype(N));
}

bool readFlag(const char* value, bool& flag)
{
    std::uint8_t byte = flag ? 1 : 0;
    if (!readFixed(value, &byte, 1))
        return false;
    flag = byte != 0;
    return true;
}

void readPos(const char* value, Position& pos)
{
    if (const std::optional<QByteArray> bytes = readWithin(value, kPositionBytes))
        readPosPayload(*bytes, pos);
}

void writeBytes(const char* value, QByteArrayView bytes)
{
    RegistryStore::SetBinary(key(), name(value), bytes.toByteArray());
}

template <std::size_t N>
void writeBytes(const char* value, const std::array<std::uint8_t, N>& field)
{
    writeBytes(value, QByteArrayView(reinterpret_cast<const char*>(field.data()), qsizetype(N)));
}

void writeFlag(const char* value, bool flag)
{
    const char byte = flag ? 1 : 0;
    writeBytes(value, QByteArrayView(&byte, 1));
}

void writeU32(const char* value, std::uint32_t number)
{
    char bytes[4];
    qToLittleEndian(number, bytes);
    writeBytes(value, QByteArrayView(bytes, 4));
}

void writePos(const char* value, const Position& pos)
{
    writeBytes(value, PositionBytes(pos));
}

void writeTileList(const char* value, const TileList& list)
{
    if (list.empty()) {
        RegistryStore::DeleteValue(key(), name(value));
        return;
    }
    TileList numbered = list;
    for (std::size_t i = 0; i < numbered.size(); ++i)
        numbered[i].id = static_cast<std::int32_t>(i);
    writeBytes(value, tileListToBytes(numbered));
}

// A text that can't show a single character on the screen.
bool liesOffScreen(const TextEntry& text)
{
    return text.y < 0 || text.y >= kScreenRows || text.x >= kScreenColumns ||
           (text.x < 0 && -static_cast<qint64>(text.x) >= text.text.size());
}

struct StoredFlag {
    const char* value;
    bool DesignEditor::*flag;
};

// What is shown on the canvas; a missing value shows it.
constexpr StoredFlag kShowFlags[] = {
    {kShowBgTile, &DesignEditor::Show_Bg_Tile},       {kShowSpTile, &DesignEditor::Show_Sp_Tile},
    {kShowList, &DesignEditor::Show_List},            {kShowCustomText, &DesignEditor::Show_Custom_Text},
    {kShowCaption, &DesignEditor::Show_Caption},      {kShowCursor, &DesignEditor::Show_Cursor},
};

// The drawing modes; a missing value leaves the mode as it is.
constexpr StoredFlag kModeFlags[] = {
    {kFillColor, &DesignEditor::FillColor},
    {kDrawLine, &DesignEditor::DrawLine},
    {kDragText, &DesignEditor::DragText},
};

struct StoredPlace {
    const char* value;
    Position DesignEditor::*pos;
};

constexpr StoredPlace kStoredPlaces[] = {
    {kBkgPalettePos, &DesignEditor::BkgPalettePos}, {kSpPalettePos, &DesignEditor::SpPalettePos},
    {kCaptionPos, &DesignEditor::CaptionPos},       {kPageNumberPos, &DesignEditor::PageNumberPos},
    {kItemPos, &DesignEditor::ItemPos},
};

void restoreHistory(DesignEditor& editor)
{
    UndoHistory& history = editor.history;
    // Read first: a stored list that loses a damaged snapshot moves the index with it.
    std::array<std::uint8_t, 4> index{};
    if (readFixed(kHistoryDataIndex, index))
        history.HistoryIndex = qFromLittleEndian<std::uint32_t>(index.data());
    if (history.HistoryList.empty()) {
        QByteArray stored;
        if (RegistryStore::GetBinary(key(), name(kHistoryDataList), stored) && !stored.isEmpty())
            history.HistoryList = ReadHistoryDataList(stored, history.HistoryIndex);
    }
    QByteArray lastWorkState;
    if (RegistryStore::GetBinary(key(), name(kLastWorkState), lastWorkState) && !lastWorkState.isEmpty())
        ApplySnapshot(editor, lastWorkState);

    if (!history.HistoryList.empty() && history.HistoryIndex >= history.HistoryList.size())
        history.HistoryIndex = static_cast<std::uint32_t>(history.HistoryList.size() - 1);
    RefreshUndoRedoEnabled(history);
}

} // namespace

QByteArray HistoryDataListBytes(const std::vector<QByteArray>& snapshots)
{
    qsizetype total = 0;
    for (const QByteArray& snapshot : snapshots)
        total += kRecordHeaderBytes + snapshot.size();
    QByteArray out;
    out.reserve(total);
    for (const QByteArray& snapshot : snapshots)
        AppendRecord(out, RecordType::Container, snapshot, kHistoryEntryReserved);
    return out;
}

std::vector<QByteArray> ReadHistoryDataList(QByteArrayView data, std::uint32_t& shownIndex)
{
    std::vector<QByteArray> snapshots;
    const std::uint32_t storedIndex = shownIndex;
    std::uint32_t place = 0;
    for (const DesignRecord& entry : WholeRecords(data)) {
        if (entry.type != static_cast<std::uint32_t>(RecordType::Container))
            break;
        if (IsWholeSnapshot(entry.payload))
            snapshots.push_back(entry.payload.toByteArray());
        else if (place < storedIndex)
            --shownIndex;
        ++place;
    }
    return snapshots;
}

bool OpenDesigner(DesignEditor& editor)
{
    DesignDocument& document = editor.document();
    for (const StoredFlag& show : kShowFlags) {
        if (!readFlag(show.value, editor.*show.flag))
            editor.*show.flag = true;
    }
    for (const StoredFlag& mode : kModeFlags)
        readFlag(mode.value, editor.*mode.flag);
    for (const StoredPlace& place : kStoredPlaces)
        readPos(place.value, editor.*place.pos);
    readFixed(design_settings::kBigCursor, &editor.BigCursor, 1);
    readFixed(design_settings::kBigSprite, &document.BigSprite, 1);

    // The caption the main window handed over stays unless one is stored.
    const bool loaded = document.LoadDesign();
    editor.SetCaption(document.CaptionText);
    editor.beginEditing();

    RegistryStore::GetString(key(), name(kCustomTextEdit), editor.CustomTextEdit);
    restoreHistory(editor);
    editor.recomputeSelectedColor();
    return loaded;
}

bool CloseDesigner(DesignEditor& editor)
{
    DesignDocument& document = editor.document();
    StoreBigCursor(editor);
    StoreBigSprite(document);
    writeBytes(design_settings::kCharMapData, document.CharMapData);
    for (const StoredFlag& show : kShowFlags)
        writeFlag(show.value, editor.*show.flag);

    writeBytes(kLastWorkState, TakeSnapshot(editor));
    if (!editor.history.HistoryList.empty())
        writeBytes(kHistoryDataList, HistoryDataListBytes(editor.history.HistoryList));
    writeU32(kHistoryDataIndex, editor.history.HistoryIndex);

    if (!RegistryStore::CreateKey(key()))
        return false;

    for (const StoredPlace& place : kStoredPlaces)
        writePos(place.value, editor.*place.pos);
    for (const StoredFlag& mode : kModeFlags)
        writeFlag(mode.value, editor.*mode.flag);
    const auto arrowTile = document.ArrowTile.toBytes();
    writeBytes(design_settings::kArrowTile, arrowTile);
    writeBytes(design_settings::kAttributes, document.Attributes);
    writeBytes(design_settings::kBkgPalette, document.BkgPalette);
    writeBytes(design_settings::kSpritePalette, document.SpritePalette);

    editor.storePpuAddresses();
    writeU32(design_settings::kCaptionPpuAddr, document.CaptionPpuAddr);
    writeU32(design_settings::kPageNumberPpuAddr, document.PageNumberPpuAddr);
    writeU32(design_settings::kItemPpuAddr, document.ItemPpuAddr);

    document.CaptionText = editor.CaptionEdit;
    RegistryStore::SetString(key(), name(design_settings::kCaptionText), document.CaptionText);

    writeTileList(design_settings::kBkgTileList, document.BkgTileList);
    writeTileList(design_settings::kSpriteTileList, document.SpriteTileList);
    writeTileList(design_settings::kArrowTileList, document.ArrowTileList);
    writeBytes(design_settings::kChrData, document.ChrData);
    RegistryStore::SetString(key(), name(kCustomTextEdit), editor.CustomTextEdit);

    std::erase_if(document.CustomText, liesOffScreen);
    QByteArray texts;
    appendTextRecords(texts, document.CustomText);
    writeBytes(design_settings::kCustomText, texts);
    return true;
}

void StoreBigCursor(const DesignEditor& editor)
{
    writeFlag(design_settings::kBigCursor, editor.BigCursor != 0);
}

void StoreBigSprite(const DesignDocument& document)
{
    writeBytes(design_settings::kBigSprite, QByteArrayView(reinterpret_cast<const char*>(&document.BigSprite), 1));
}

} // namespace zunbrix
