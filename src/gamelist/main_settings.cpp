#include "gamelist/main_settings.h"

#include "frame/registry_store.h"
#include "gamelist/small_dialog_settings.h"

#include <QLocale>

#include <initializer_list>

namespace zunbrix {

namespace {


// The commands that choose a language; the store keeps the command's number.
constexpr quint32 kChineseCommand = 40022;
constexpr quint32 kEnglishCommand = 40023;

// A value the menu offers, else the default: the window's radio groups treat any other value so.
int readChoice(const char* name, std::initializer_list<int> offered, int defaultValue)
{
    const int value = ReadSettingInt(kMainSettingsKey, name, defaultValue);
    for (int candidate : offered)
        if (candidate == value)
            return value;
    return defaultValue;
}

bool readFlag(const char* key, const char* name)
{
    return ReadSettingInt(key, name, 0) != 0;
}

} // namespace

int ReadSettingInt(const char* key, const char* name, int defaultValue)
{
    quint32 value = 0;
    return RegistryStore::GetDword(QLatin1String(key), QLatin1String(name), value) ? static_cast<int>(value)
                                                                                   : defaultValue;
}

BuildOptions ReadBuildOptions()
{
    BuildOptions options;
    const bool mindkids = ReadSettingInt(kCoolboySettingsKey, "CoolboyType", 0) == 1;
    options.boardType = mindkids ? BoardType::Mindkids : BoardType::Coolboy;
    options.menuSize = readChoice("MenuSize", {8, 16, 32, 64, 128}, 8);
    options.menuMusic = readChoice("Music", {0, 1, 2, 3, 4, 5}, 1);
    options.pageTurningSpeed = readChoice("PageTurningSpeed", {1, 2, 3, 4}, 1);
    options.showStyle = readChoice("ShowStyle", {0, 1}, 0);
    options.pageSize = readChoice("PageSize", {5, 10, 15, 20}, 10);
    options.pageNumber = readFlag(kMainSettingsKey, "PageNumber");
    options.showNumberOrder = readFlag(kMainSettingsKey, "ShowNumberOrder");
    options.showNumberDot = readFlag(kMainSettingsKey, "ShowNumberDot");
    options.showNumberFill = readFlag(kMainSettingsKey, "ShowNumberFill");
    options.nameInsertRow = readFlag(kMainSettingsKey, "NameInsertRow");
    options.customEnable = readFlag(kMainSettingsKey, "CustomEnable");
    options.externMenuEnable = readFlag(kMainSettingsKey, "ExternMenuEnable");
    options.externMenuPath = ReadExternMenuPath();
    return options;
}

ExportSettings ReadExportSettings()
{
    constexpr int kMenuBanksByChoice[] = {8, 16, 32};
    const ExportChoice choice = ReadExportChoice();
    ExportSettings settings;
    settings.romType = choice.romType;
    settings.menuBanks = kMenuBanksByChoice[choice.prgSize];
    return settings;
}

Language ReadLanguage()
{
    switch (static_cast<quint32>(ReadSettingInt(kMainSettingsKey, "Language", 0))) {
    case kChineseCommand:
        return Language::Chinese;
    case kEnglishCommand:
        return Language::English;
    default:
        return QLocale::system().language() == QLocale::Chinese ? Language::Chinese : Language::English;
    }
}

} // namespace zunbrix
