#include "multicart/export_information.h"

#include "frame/generated_text.h"
#include "multicart/generation_settings.h"
#include "multicart/layout.h"
#include "multicart/validation.h"
#include "designer/export.h"

namespace zunbrix {

namespace {

void writeGameList(const QStringList& names, const QString& folder)
{
    QByteArray text;
    for (const QString& name : names)
        text += name.toUtf8() + "\r\n";
    writeWholeFile(filePathIn(folder, "game_list.txt"), std::string_view(text.constData(), text.size()));
}

} // namespace

// The names as the menu lists them. The dot follows the number only with showNumberDot here, while a build
// always puts it there.
QStringList displayNames(const QStringList& names, const BuildOptions& options)
{
    const int width = options.showNumberFill ? static_cast<int>(QString::number(names.size()).size()) : 0;
    QStringList shown;
    shown.reserve(names.size());
    for (qsizetype i = 0; i < names.size(); ++i) {
        if (!options.showNumberOrder) {
            shown.push_back(options.showNumberDot ? QLatin1Char('.') + names[i] : names[i]);
            continue;
        }
        const QString number = QStringLiteral("%1").arg(i + 1, width, 10, QLatin1Char('0'));
        shown.push_back(number + (options.showNumberDot ? QStringLiteral(".") : QString()) + names[i]);
    }
    return shown;
}

ExportInformationResult exportInformation(const ExportSources& sources, int romType, int menuBanks, QString folder,
                                          const FolderQuestion& askFolder)
{
    const BuildOptions& options = sources.options;
    DesignDocument& design = sources.design;
    const bool coolgirl = romType == 1;
    const BoardType board = coolgirl ? BoardType::Coolgirl : BoardType::Coolboy;

    ExportInformationResult result;
    if (!checkGameCount(checkedCount(sources.entries), sources.language, result.message))
        return result;

    std::vector<NesImage> images;
    QStringList names;
    for (const GameEntry& entry : sources.entries) {
        if (!entry.checked)
            continue;
        images.emplace_back(entry.path);
        images.back().listIndex = static_cast<std::uint32_t>(names.size());
        names.push_back(entry.name);
    }
    const QStringList shownNames = displayNames(names, options);
    writeGameList(names, folder);

    normaliseChr(images);
    const bool valid = coolgirl ? validateCoolgirl(images, sources.language, result.message, &result.problems)
                                : validateCoolboy(images, sources.language, result.message, &result.problems);
    if (!valid)
        return result;
    if (!coolgirl)
        normalisePrg(images);

    NesImage menu;
    menu.setPrgBanks(static_cast<std::uint32_t>(menuBanks));
    menu.setPrgLayoutBanks(static_cast<std::uint32_t>(menuBanks));
    design.CaptionText = DefaultCaption(names.size());
    design.LoadDesign();
    const int nameColumn = nameColumnFor(options, design);

    // Counting run: the banks must fit the room the menu leaves before anything is asked or written.
    const BankCounts counted = generateGameSources(shownNames, images, folder, board, nameColumn, false);
    QString overflow;
    if (!checkOverflow(menu.prgLayoutBanks, static_cast<std::uint32_t>(counted.names),
                       static_cast<std::uint32_t>(counted.data), static_cast<std::uint32_t>(counted.finalData),
                       sources.language, overflow)) {
        result.message = overflow;
        return result;
    }

    if (askFolder) {
        const std::optional<QString> chosen = askFolder(folder);
        if (!chosen)
            return result;
        folder = *chosen;
    }
    result.folder = folder;

    const LayoutResult layout = layoutRom(menu, images, board);
    exportMenuData(design, folder, options.customEnable);
    const BankCounts written = generateGameSources(shownNames, layout.images, folder, board, nameColumn, true);
    result.ok = writeGameConfig(folder, gameConfigFor(options, design, board, static_cast<int>(menu.prgBanks),
                                                      static_cast<int>(shownNames.size()), written));
    return result;
}

} // namespace zunbrix
