// The designer's Load and Save buttons: each asks for a file through the window's questions and runs the
// engine's reading or writing of that file kind. A refused file is named in a message with its problem; the
// design stays as it was. A load of a file that can't be opened or is empty does nothing, without a word.
#include "app/design_dialog.h"

#include "designer/design_file_filters.h"
#include "designer/plain_design_files.h"
#include "designer/record_file.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"

#include <QDir>

#include <map>
#include <span>

namespace zunbrix {

namespace {

namespace c = design_command;
namespace f = file_filters;

struct FileCommand {
    int command;
    bool save;
    std::span<const FileFilter> filters;
    // Loads and the record files' saves start where the last dialog of the same button ended; the plain
    // saves start at their first file type each time.
    bool remembersFilter;
    DesignResult (*run)(DesignEditor& editor, const QString& path, int filter);
};

constexpr bool kLoad = false;
constexpr bool kSave = true;

const FileCommand kFileCommands[] = {
    {c::LoadMenu, kLoad, f::kLoadMenu, true,
     [](DesignEditor& e, const QString& p, int n) { return LoadRecordFile(RecordFileKind::Menu, e, p, n); }},
    {c::SaveMenu, kSave, f::kSaveMenu, true,
     [](DesignEditor& e, const QString& p, int n) { return SaveRecordFile(RecordFileKind::Menu, e, p, n); }},
    {c::LoadNameTablePage, kLoad, f::kNameTablePage, true,
     [](DesignEditor& e, const QString& p, int n) { return LoadRecordFile(RecordFileKind::NameTablePage, e, p, n); }},
    {c::SaveNameTablePage, kSave, f::kNameTablePage, true,
     [](DesignEditor& e, const QString& p, int n) { return SaveRecordFile(RecordFileKind::NameTablePage, e, p, n); }},
    {c::LoadTextList, kLoad, f::kTextList, true,
     [](DesignEditor& e, const QString& p, int n) { return LoadRecordFile(RecordFileKind::TextList, e, p, n); }},
    {c::SaveTextList, kSave, f::kTextList, true,
     [](DesignEditor& e, const QString& p, int n) { return SaveRecordFile(RecordFileKind::TextList, e, p, n); }},
    {c::LoadAttributes, kLoad, f::kLoadAttributes, true,
     [](DesignEditor& e, const QString& p, int) { return LoadAttributes(e, p); }},
    {c::SaveAttributes, kSave, f::kSaveAttributes, false,
     [](DesignEditor& e, const QString& p, int n) { return SaveAttributes(e, p, n); }},
    {c::LoadBkgChr, kLoad, f::kTiles, true,
     [](DesignEditor& e, const QString& p, int) { return LoadTiles(e, TileBank::Background, p); }},
    {c::SaveBkgChr, kSave, f::kTiles, false,
     [](DesignEditor& e, const QString& p, int n) { return SaveTiles(e, TileBank::Background, p, n); }},
    {c::LoadSpriteChr, kLoad, f::kTiles, true,
     [](DesignEditor& e, const QString& p, int) { return LoadTiles(e, TileBank::Sprites, p); }},
    {c::SaveSpriteChr, kSave, f::kTiles, false,
     [](DesignEditor& e, const QString& p, int n) { return SaveTiles(e, TileBank::Sprites, p, n); }},
    {c::LoadNameTable, kLoad, f::kNameTable, true,
     [](DesignEditor& e, const QString& p, int) { return LoadNameTable(e, p); }},
    {c::SaveNameTable, kSave, f::kNameTable, false,
     [](DesignEditor& e, const QString& p, int n) { return SaveNameTable(e, p, n); }},
    {c::LoadSprites, kLoad, f::kSprites, true,
     [](DesignEditor& e, const QString& p, int) { return LoadSprites(e, p); }},
    {c::SaveSprites, kSave, f::kSprites, false,
     [](DesignEditor& e, const QString& p, int n) { return SaveSprites(e, p, n); }},
    {c::LoadBkgPalette, kLoad, f::kPalette, true,
     [](DesignEditor& e, const QString& p, int) { return LoadPalette(e, PaletteKind::Background, p); }},
    {c::SaveBkgPalette, kSave, f::kPalette, false,
     [](DesignEditor& e, const QString& p, int n) { return SavePalette(e, PaletteKind::Background, p, n); }},
    {c::LoadSpritePalette, kLoad, f::kPalette, true,
     [](DesignEditor& e, const QString& p, int) { return LoadPalette(e, PaletteKind::Sprites, p); }},
    {c::SaveSpritePalette, kSave, f::kPalette, false,
     [](DesignEditor& e, const QString& p, int n) { return SavePalette(e, PaletteKind::Sprites, p, n); }},
    {c::ExportCharMap, kSave, f::kCharMap, false,
     [](DesignEditor& e, const QString& p, int) { return SaveCharMap(e, p); }},
};

// The file type last chosen with each button, for the life of the process.
std::map<int, int>& rememberedFilters()
{
    static std::map<int, int> filters;
    return filters;
}

QStringList dialogFilters(std::span<const FileFilter> filters)
{
    QStringList shown;
    for (const FileFilter& filter : filters)
        shown << QStringLiteral("%1 (%2)").arg(QLatin1String(filter.name), QLatin1String(filter.pattern));
    return shown;
}

} // namespace

bool CDesignDialog::runFileCommand(int command)
{
    const auto* file = std::ranges::find(kFileCommands, command, &FileCommand::command);
    if (file == std::end(kFileCommands))
        return false;
    const QStringList filters = dialogFilters(file->filters);
    const int startFilter = file->remembersFilter ? rememberedFilters().try_emplace(command, 1).first->second : 1;
    const ChosenDesignFile chosen =
        file->save ? questions_->chooseFileToSave(this, filters, editor_.CurrentFilePath, startFilter)
                   : questions_->chooseFileToLoad(this, filters, editor_.CurrentFilePath, startFilter);
    if (chosen.path.isEmpty())
        return true;
    if (file->remembersFilter)
        rememberedFilters()[command] = chosen.filter;
    editor_.CurrentFilePath = chosen.path;

    const DesignResult result = file->run(editor_, chosen.path, chosen.filter);
    if (!file->save)
        redrawEverything();
    const bool quietlyNothing =
        !file->save && (result.fault == DesignFault::CannotOpen || result.fault == DesignFault::FileEmpty);
    if (!result.ok() && !quietlyNothing) {
        const QString text = FormatText(StringTable::Get(text::DesignFaultFirst + result.number() - 1, language_),
                                         {QDir::toNativeSeparators(result.path), qint64{result.recordType}});
        questions_->showRefusal(this, text, StringTable::Get(text::TitleError, language_));
    }
    return true;
}

} // namespace zunbrix
