#include "cli/cli_commands.h"
#include "cli/cli_inputs.h"
#include "cli/cli_options.h"
#include "cli/console_user.h"
#include "frame/text_format.h"
#include "gamelist/list_columns.h"
#include "frame/text_ids.h"

#include <algorithm>
#include <array>

namespace zunbrix::cli {

namespace {

// The list's columns up to the COOLGIRL fit; remark and path would only make the lines long.
constexpr int kShownColumns = 10;

using Row = std::array<QString, kShownColumns>;

QString lineOf(const Row& row, const std::array<qsizetype, kShownColumns>& widths)
{
    QString line;
    for (int column = 0; column < kShownColumns; ++column) {
        const QString& cell = row[static_cast<std::size_t>(column)];
        const int width = static_cast<int>(widths[static_cast<std::size_t>(column)]);
        const bool right = kListColumns[static_cast<std::size_t>(column)].alignment == ColumnAlignment::Right;
        if (column > 0)
            line += QStringLiteral("  ");
        line += right ? cell.rightJustified(width) : cell.leftJustified(column == kShownColumns - 1 ? 0 : width);
    }
    return line;
}

} // namespace

int RunCheckCommand(const CliRequest& request)
{
    const Language language = LanguageFor(request);
    const InputList inputs = ReadInputs(request.inputs, GameHeaders::Read, language);
    for (const QString& problem : inputs.problems)
        PrintError(problem);
    for (const GameEntry& entry : inputs.entries)
        if (entry.problem)
            PrintError(describeFileProblem(entry.problem, language));

    std::vector<Row> rows;
    Row header;
    for (int column = 0; column < kShownColumns; ++column)
        header[static_cast<std::size_t>(column)] =
            StringTable::Get(kListColumns[static_cast<std::size_t>(column)].titleTextId, language);
    rows.push_back(header);
    int checked = 0, coolboy = 0, coolgirl = 0, invalid = 0;
    for (std::size_t i = 0; i < inputs.entries.size(); ++i) {
        const GameEntry& entry = inputs.entries[i];
        Row row;
        for (int column = 0; column < kShownColumns; ++column)
            row[static_cast<std::size_t>(column)] = ListCellText(entry, static_cast<int>(i), column, language);
        rows.push_back(row);
        checked += entry.checked;
        coolboy += entry.coolboyFit;
        coolgirl += entry.coolgirlFit;
        invalid += !entry.valid();
    }

    std::array<qsizetype, kShownColumns> widths{};
    for (const Row& row : rows)
        for (std::size_t column = 0; column < widths.size(); ++column)
            widths[column] = std::max(widths[column], row[column].size());
    QString table;
    for (const Row& row : rows)
        table += lineOf(row, widths) + QLatin1Char('\n');
    PrintOutput(table);

    const int total = static_cast<int>(inputs.entries.size());
    PrintOutput(FormatText(StringTable::Get(text::SelectedAndAll, language), {checked, total}) +
                QStringLiteral("; COOLBOY %1/%2, COOLGIRL %3/%2, not valid %4")
                    .arg(coolboy)
                    .arg(total)
                    .arg(coolgirl)
                    .arg(invalid));
    return inputs.problems.isEmpty() && invalid == 0 ? kExitSuccess : kExitFailure;
}

} // namespace zunbrix::cli
