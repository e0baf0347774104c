#include "gamelist/main_settings.h"

#include "frame/registry_store.h"

#include <QLocale>

#include <initializer_list>

namespace zunbrix {

namespace {

const QString kMainKey = QLatin1String(kMainSettingsKey);
const QString kCoolboyKey = QStringLiteral("Software\\Zunbrix\\Coolboy");

// The commands that choose a language; the store keeps the command's number.
constexpr quint32 kChineseCommand = 40022;
constexpr quint32 kEnglishCommand = 40023;

int readInt(const QString& key, const char* name, int defaultValue)
{
    quint32 value = 0;
    return RegistryStore::GetDword(key, QLatin1String(name), value) ? static_cast<int>(value) : defaultValue;
}

// A value the menu offers, else the default: the window's radio groups treat any other value so.
int readChoice(const char* name, std::initializer_list<int> offered, int defaultValue)
{
    const int value = readInt(kMainKey, name, defaultValue);
    for (int candidate : offered)
        if (candidate == value)
            return value;
    return defaultValue;
}

bool readFlag(const QString& key, const char* name)
{
    return readInt(key, name, 0) != 0;
}

} // namespace

BuildOptions ReadBuildOptions()
{
    BuildOptions options;
    options.boardType = readInt(kCoolboyKey, "CoolboyType", 0) == 1 ? BoardType::Mindkids : BoardType::Coolboy;
    options.menuSize = readChoice("MenuSize", {8, 16, 32, 64, 128}, 8);
    options.menuMusic = readChoice("Music", {0, 1, 2, 3, 4, 5}, 1);
    options.pageTurningSpeed = readChoice("PageTurningSpeed", {1, 2, 3, 4}, 1);
    options.showStyle = readChoice("ShowStyle", {0, 1}, 0);
    options.pageSize = readChoice("PageSize", {5, 10, 15, 20}, 10);
    options.pageNumber = readFlag(kMainKey, "PageNumber");
    options.showNumberOrder = readFlag(kMainKey, "ShowNumberOrder");
    options.showNumberDot = readFlag(kMainKey, "ShowNumberDot");
    options.showNumberFill = readFlag(kMainKey, "ShowNumberFill");
    options.nameInsertRow = readFlag(kMainKey, "NameInsertRow");
    options.customEnable = readFlag(kMainKey, "CustomEnable");
    options.externMenuEnable = readFlag(kMainKey, "ExternMenuEnable");
    RegistryStore::GetString(kMainKey, QStringLiteral("ExternMenuPath"), options.externMenuPath);
    return options;
}

ExportSettings ReadExportSettings()
{
    constexpr int kMenuBanksByChoice[] = {8, 16, 32};
    ExportSettings settings;
    settings.romType = readInt(kMainKey, "ExportRomType", 0) == 1 ? 1 : 0;
    settings.menuBanks = kMenuBanksByChoice[readChoice("ExportPrgSize", {0, 1, 2}, 0)];
    return settings;
}

Language ReadLanguage()
{
    switch (static_cast<quint32>(readInt(kMainKey, "Language", 0))) {
    case kChineseCommand:
        return Language::Chinese;
    case kEnglishCommand:
        return Language::English;
    default:
        return QLocale::system().language() == QLocale::Chinese ? Language::Chinese : Language::English;
    }
}

} // namespace zunbrix
