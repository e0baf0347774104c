#include "gamelist/history.h"

#include "frame/ini_file.h"
#include "frame/registry_store.h"
#include "gamelist/list_file.h"

namespace zunbrix {

namespace {

const QString kHistoryKey = QStringLiteral("Software\\Zunbrix\\History");
const QString kDataValue = QStringLiteral("Data");
const QString kColumnSection = QStringLiteral("list_view");

QString widthKey(int column)
{
    return QStringLiteral("list_view_col_%1_width").arg(column, 5, 10, QLatin1Char('0'));
}

} // namespace

bool SaveHistory(const std::vector<GameEntry>& entries, const ColumnWidths& widths)
{
    IniFile ini(QString(), true);
    WriteListEntries(ini, entries);
    for (int column = 0; column < kListColumnCount; ++column)
        ini.SetInt(kColumnSection, widthKey(column), widths[static_cast<std::size_t>(column)]);
    return RegistryStore::SetBinary(kHistoryKey, kDataValue, ini.ToText().toUtf8());
}

HistoryLoadResult LoadHistory(std::vector<GameEntry>& entries)
{
    HistoryLoadResult result;
    result.widths.fill(-1);
    QByteArray data;
    if (!RegistryStore::GetBinary(kHistoryKey, kDataValue, data))
        return result;
    result.found = true;
    IniFile ini(QString(), true);
    ini.Parse(data);
    result.exceedsCapacity = LoadListFile(ini, entries).exceedsCapacity;
    for (int column = 0; column < kListColumnCount; ++column)
        result.widths[static_cast<std::size_t>(column)] = ini.GetInt(kColumnSection, widthKey(column), -1);
    return result;
}

} // namespace zunbrix
