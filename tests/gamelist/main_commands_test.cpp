#include "frame/registry_store.h"
#include "gamelist/main_command_state.h"
#include "gamelist/main_commands.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

#include <set>

using namespace zunbrix;
namespace cmd = zunbrix::command;

namespace {

const QString kMain = QStringLiteral("Software\\Zunbrix");

void store(const char* name, quint32 value, const QString& key = kMain)
{
    ASSERT_TRUE(RegistryStore::SetDword(key, QLatin1String(name), value));
}

int stored(const char* name, const QString& key = kMain)
{
    quint32 value = 0;
    return RegistryStore::GetDword(key, QLatin1String(name), value) ? static_cast<int>(value) : -1;
}

MainCommandState replayed(bool chineseSystem)
{
    MainCommandState state;
    for (int id : MainCommandState::StartupReplay(chineseSystem))
        state.run(id, MainCommandState::Origin::Replay);
    return state;
}

} // namespace

TEST(MainCommands, MenusNameEveryCommandOnceWithTextsInBothLanguages)
{
    std::multiset<int> inMenu;
    for (const MenuItem& item : MainMenu()) {
        if (item.commandId == 0) {
            EXPECT_FALSE(StringTable::Get(item.textId, Language::English).isEmpty()) << item.textId;
            EXPECT_FALSE(StringTable::Get(item.textId, Language::Chinese).isEmpty()) << item.textId;
        } else {
            EXPECT_NE(FindMainCommand(item.commandId), nullptr) << item.commandId;
            inMenu.insert(item.commandId);
        }
    }
    for (const MainCommand& row : MainCommands()) {
        EXPECT_EQ(inMenu.count(row.id), 1u) << row.id;
        if (row.textId != 0) {
            EXPECT_FALSE(StringTable::Get(row.textId, Language::English).isEmpty()) << row.id;
            EXPECT_FALSE(StringTable::Get(row.textId, Language::Chinese).isEmpty()) << row.id;
        }
        EXPECT_EQ(row.setting == nullptr, row.kind == CommandKind::Action) << row.id;
    }
    EXPECT_STREQ(FindMainCommand(cmd::Open)->shortcut, "Ctrl+O");
    EXPECT_STREQ(FindMainCommand(cmd::FindReplace)->shortcut, "Ctrl+F");
    const std::vector<int> shortMenu(ShortMenu().begin(), ShortMenu().end());
    EXPECT_EQ(shortMenu, (std::vector<int>{cmd::Open, cmd::Load, cmd::Save, cmd::Topmost, cmd::Exit}));
}

TEST(MainCommands, FreshStoreReplaysTheDefaultsAndTheSystemLanguage)
{
    zunbrix::testing::PrivateSettings settings;
    EXPECT_EQ(MainCommandState::StartupReplay(false),
              (std::vector<int>{cmd::PageSize10, cmd::StyleDefault, cmd::TypeCoolboy, cmd::MenuSize8,
                                cmd::TurningSpeed1, cmd::MusicDefault, cmd::LanguageEnglish}));
    const MainCommandState state = replayed(true);
    EXPECT_EQ(state.language(), Language::Chinese);
    EXPECT_TRUE(state.checked(cmd::PageSize10) && state.checked(cmd::MusicDefault) && state.checked(cmd::MenuSize8));
    EXPECT_FALSE(state.checked(cmd::Topmost) || state.checked(cmd::NumberOrder));
    EXPECT_FALSE(state.enabled(cmd::NumberFill));
    EXPECT_EQ(stored("Language"), -1) << "the replay writes nothing";
}

TEST(MainCommands, StoredValuesReplayWithFallbacksAndAreNotRewritten)
{
    zunbrix::testing::PrivateSettings settings;
    store("PageSize", 7);
    store("Music", 9);
    store("PageTurningSpeed", 9);
    store("MenuSize", 64);
    store("ShowStyle", 5);
    store("ShowNumberOrder", 1);
    store("ShowNumberFill", 1);
    store("Topmost", 1);
    store("Language", cmd::LanguageChinese);
    store("CustomEnable", 1);
    store("CoolboyType", 1, QStringLiteral("Software\\Zunbrix\\Coolboy"));

    EXPECT_EQ(MainCommandState::StartupReplay(false),
              (std::vector<int>{cmd::NumberFill, cmd::NumberOrder, cmd::PageSize10, cmd::TypeMindkids, cmd::MenuSize8,
                                cmd::TurningSpeed1, cmd::MusicDefault, cmd::LanguageEnglish, cmd::Topmost,
                                cmd::LanguageChinese, cmd::CustomEnable}));
    const MainCommandState state = replayed(false);
    EXPECT_EQ(state.language(), Language::Chinese) << "the stored language wins";
    EXPECT_TRUE(state.topmost());
    EXPECT_TRUE(state.checked(cmd::MenuSize8));
    EXPECT_FALSE(state.checked(cmd::MenuSize64));
    EXPECT_FALSE(state.checked(cmd::StyleDefault) || state.checked(cmd::StyleWhite));
    EXPECT_EQ(state.options().menuSize, 64) << "the field stays as stored";
    EXPECT_EQ(state.options().pageSize, 10);
    EXPECT_EQ(state.options().boardType, BoardType::Mindkids);
    EXPECT_TRUE(state.options().customEnable && state.options().showNumberFill);
    EXPECT_FALSE(state.enabled(cmd::NumberFill)) << "no dot stored: Fill numbers stays greyed";
    EXPECT_EQ(stored("PageSize"), 7);
    EXPECT_EQ(stored("MenuSize"), 64);
    EXPECT_EQ(stored("Music"), 9);
}

TEST(MainCommands, UserCommandsSetMarksFieldsAndWriteAtOnce)
{
    zunbrix::testing::PrivateSettings settings;
    MainCommandState state = replayed(false);

    state.run(cmd::PageSize15, MainCommandState::Origin::User);
    EXPECT_TRUE(state.checked(cmd::PageSize15));
    EXPECT_FALSE(state.checked(cmd::PageSize10));
    EXPECT_EQ(state.options().pageSize, 15);
    EXPECT_EQ(stored("PageSize"), 15);

    state.run(cmd::NumberOrder, MainCommandState::Origin::User);
    EXPECT_TRUE(state.enabled(cmd::NumberFill));
    EXPECT_EQ(stored("ShowNumberOrder"), 1);
    state.run(cmd::NumberOrder, MainCommandState::Origin::User);
    EXPECT_FALSE(state.enabled(cmd::NumberFill));
    EXPECT_FALSE(state.options().showNumberOrder);
    EXPECT_EQ(stored("ShowNumberOrder"), 0);

    state.run(cmd::TypeMindkids, MainCommandState::Origin::User);
    EXPECT_EQ(state.options().boardType, BoardType::Mindkids);
    EXPECT_EQ(stored("CoolboyType", QStringLiteral("Software\\Zunbrix\\Coolboy")), 1);
    state.run(cmd::MenuSize128, MainCommandState::Origin::User);
    EXPECT_EQ(state.options().menuSize, 128);
    EXPECT_EQ(stored("MenuSize"), 128);
    state.run(cmd::LanguageChinese, MainCommandState::Origin::User);
    EXPECT_EQ(stored("Language"), cmd::LanguageChinese);
    EXPECT_EQ(state.language(), Language::Chinese);
}

TEST(MainCommands, ChoicesThatGiveAListOffTheScreenAreGreyed)
{
    zunbrix::testing::PrivateSettings settings;
    MainCommandState state = replayed(false);
    const auto user = MainCommandState::Origin::User;
    EXPECT_TRUE(state.enabled(cmd::NameInsertRow) && state.enabled(cmd::PageSize15) && state.enabled(cmd::PageSize20));
    // The built-in look has 15 row addresses for names with blank rows between them.
    state.run(cmd::NameInsertRow, user);
    EXPECT_FALSE(state.enabled(cmd::PageSize15) || state.enabled(cmd::PageSize20));
    EXPECT_TRUE(state.enabled(cmd::PageSize5) && state.enabled(cmd::PageSize10));
    state.run(cmd::NameInsertRow, user);
    state.run(cmd::PageSize20, user);
    EXPECT_FALSE(state.enabled(cmd::NameInsertRow));

    // The designer's list from row 20 leaves room for 10 names a page.
    state.setCustomListAddress(0x2280);
    EXPECT_FALSE(state.enabled(cmd::CustomEnable));
    state.run(cmd::PageSize10, user);
    EXPECT_TRUE(state.enabled(cmd::CustomEnable));
    state.run(cmd::CustomEnable, user);
    EXPECT_FALSE(state.enabled(cmd::PageSize15) || state.enabled(cmd::NameInsertRow));
    EXPECT_TRUE(state.enabled(cmd::StyleWhite));

    // A menu of one's own lays out its list itself.
    state.run(cmd::ExternMenuEnable, user);
    EXPECT_TRUE(state.enabled(cmd::PageSize20) && state.enabled(cmd::NameInsertRow));
}
