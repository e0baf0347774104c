#include "frame/registry_store.h"
#include "gamelist/main_settings.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

using namespace zunbrix;

namespace {

void store(const char* name, quint32 value, const char* key = "Software\\Zunbrix")
{
    ASSERT_TRUE(RegistryStore::SetDword(QLatin1String(key), QLatin1String(name), value));
}

} // namespace

TEST(MainSettings, StoredValuesAreReadAndUnofferedOnesFallBack)
{
    zunbrix::testing::PrivateSettings settings;
    store("CoolboyType", 1, "Software\\Zunbrix\\Coolboy");
    store("MenuSize", 32);
    store("ShowNumberOrder", 1);
    store("ShowNumberFill", 1);
    store("ExternMenuEnable", 1);
    RegistryStore::SetString(QStringLiteral("Software\\Zunbrix"), QStringLiteral("ExternMenuPath"),
                             QStringLiteral("/m/menu.asm"));
    store("PageSize", 7);
    store("Music", 9);
    store("PageTurningSpeed", 9);
    store("ExportRomType", 1);
    store("ExportPrgSize", 2);
    store("Language", 40022);

    const BuildOptions options = ReadBuildOptions();
    EXPECT_EQ(options.boardType, BoardType::Mindkids);
    EXPECT_EQ(options.menuSize, 32);
    EXPECT_TRUE(options.showNumberOrder && options.showNumberFill && options.externMenuEnable);
    EXPECT_EQ(options.externMenuPath, QStringLiteral("/m/menu.asm"));
    EXPECT_EQ(options.pageSize, 10);
    EXPECT_EQ(options.menuMusic, 1);
    EXPECT_EQ(options.pageTurningSpeed, 1);
    EXPECT_EQ(ReadExportSettings().romType, 1);
    EXPECT_EQ(ReadExportSettings().menuBanks, 32);
    EXPECT_EQ(ReadLanguage(), Language::Chinese);
    store("Language", 40023);
    EXPECT_EQ(ReadLanguage(), Language::English);
}
