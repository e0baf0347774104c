#include "gamelist/small_dialog_settings.h"

#include "frame/registry_store.h"
#include "gamelist/main_settings.h"

namespace zunbrix {

namespace {

void storeNumber(const char* name, int value)
{
    RegistryStore::SetDword(QLatin1String(kMainSettingsKey), QLatin1String(name), static_cast<quint32>(value));
}

QString readText(const char* name)
{
    QString text;
    RegistryStore::GetString(QLatin1String(kMainSettingsKey), QLatin1String(name), text);
    return text;
}

} // namespace

ExportChoice ReadExportChoice()
{
    ExportChoice choice;
    choice.romType = ReadSettingInt(kMainSettingsKey, "ExportRomType", 0) == 1 ? 1 : 0;
    const int prgSize = ReadSettingInt(kMainSettingsKey, "ExportPrgSize", 0);
    choice.prgSize = prgSize >= 0 && prgSize <= 2 ? prgSize : 0;
    return choice;
}

void StoreExportRomType(int romType)
{
    storeNumber("ExportRomType", romType);
}

void StoreExportPrgSize(int prgSize)
{
    storeNumber("ExportPrgSize", prgSize);
}

QString ReadExternMenuPath()
{
    return readText("ExternMenuPath");
}

void StoreExternMenuPath(const QString& path)
{
    RegistryStore::SetString(QLatin1String(kMainSettingsKey), QStringLiteral("ExternMenuPath"), path);
}

void StoreCloseRemember(bool remember)
{
    storeNumber("Remember", remember ? 1 : 0);
}

void StoreCloseChoice(CloseChoice choice)
{
    storeNumber("CloseState", static_cast<int>(choice));
}

QString AboutLink()
{
    const QString stored = readText("AboutLink");
    return stored.isEmpty() ? QString::fromLatin1(kDefaultAboutLink) : stored;
}

} // namespace zunbrix
