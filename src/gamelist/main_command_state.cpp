#include "gamelist/main_command_state.h"

#include "frame/registry_store.h"
#include "gamelist/main_commands.h"
#include "gamelist/main_settings.h"
#include "menu/menu_list_look.h"

#include <initializer_list>
#include <utility>

namespace zunbrix {

namespace {

const char* keyPath(SettingKey key)
{
    return key == SettingKey::Coolboy ? kCoolboySettingsKey : kMainSettingsKey;
}

// The radio command whose value equals the stored one, else `fallback` (0 for none).
int radioFor(int stored, std::initializer_list<std::pair<int, int>> valueToCommand, int fallback)
{
    for (const auto& [value, id] : valueToCommand)
        if (value == stored)
            return id;
    return fallback;
}

} // namespace

MainCommandState::MainCommandState()
    : options_(ReadBuildOptions())
    // As the replay leaves it: a stored zero of either the numbers or their dot greys Fill numbers.
    , fillEnabled_(options_.showNumberOrder && options_.showNumberDot)
{
}

std::vector<int> MainCommandState::StartupReplay(bool chineseSystem)
{
    const auto main = [](const char* name, int defaultValue) {
        return ReadSettingInt(kMainSettingsKey, name, defaultValue);
    };
    std::vector<int> sent;
    const auto sendWhen = [&](bool condition, int id) {
        if (condition)
            sent.push_back(id);
    };
    using namespace command;
    sendWhen(main("ShowNumberFill", 0) != 0, NumberFill);
    sendWhen(main("NameInsertRow", 0) != 0, NameInsertRow);
    sendWhen(main("ShowNumberOrder", 0) != 0, NumberOrder);
    sendWhen(main("ShowNumberDot", 0) != 0, NumberDot);
    sendWhen(main("PageNumber", 0) != 0, PageNumber);
    sent.push_back(radioFor(main("PageSize", 10),
                            {{5, PageSize5}, {10, PageSize10}, {15, PageSize15}, {20, PageSize20}}, PageSize10));
    const int style = radioFor(main("ShowStyle", 0), {{0, StyleDefault}, {1, StyleWhite}}, 0);
    sendWhen(style != 0, style);
    const int type = radioFor(ReadSettingInt(kCoolboySettingsKey, "CoolboyType", 0),
                              {{0, TypeCoolboy}, {1, TypeMindkids}}, 0);
    sendWhen(type != 0, type);
    // 64 and 128 can be chosen but are not kept: the menu's source has bank tables for 8, 16 and 32 only.
    sent.push_back(radioFor(main("MenuSize", 8), {{8, MenuSize8}, {16, MenuSize16}, {32, MenuSize32}}, MenuSize8));
    sent.push_back(radioFor(main("PageTurningSpeed", 1),
                            {{1, TurningSpeed1}, {2, TurningSpeed2}, {3, TurningSpeed3}, {4, TurningSpeed4}},
                            TurningSpeed1));
    sent.push_back(radioFor(main("Music", 1),
                            {{0, MusicDisable}, {1, MusicDefault}, {2, MusicNinjaGaiden}, {3, MusicFinalMission},
                             {4, MusicContra}, {5, MusicSuperContra}},
                            MusicDefault));
    sendWhen(main("ExternMenuEnable", 0) != 0, ExternMenuEnable);

    std::vector<int> replay = std::move(sent);
    replay.push_back(chineseSystem ? LanguageChinese : LanguageEnglish);
    if (main("Topmost", 0) != 0)
        replay.push_back(Topmost);
    const int language = main("Language", 0);
    if (language != 0)
        replay.push_back(language);
    if (main("CustomEnable", 0) != 0)
        replay.push_back(CustomEnable);
    return replay;
}

void MainCommandState::reloadExternMenuPath()
{
    options_.externMenuPath = ReadBuildOptions().externMenuPath;
}

bool* MainCommandState::toggleField(int id)
{
    switch (id) {
    case command::Topmost: return &topmost_;
    case command::NumberOrder: return &options_.showNumberOrder;
    case command::NumberDot: return &options_.showNumberDot;
    case command::NumberFill: return &options_.showNumberFill;
    case command::PageNumber: return &options_.pageNumber;
    case command::NameInsertRow: return &options_.nameInsertRow;
    case command::CustomEnable: return &options_.customEnable;
    case command::ExternMenuEnable: return &options_.externMenuEnable;
    default: return nullptr;
    }
}

void MainCommandState::setRadioField(int id, int value)
{
    const MainCommand* row = FindMainCommand(id);
    switch (row->group) {
    case CommandGroup::Language:
        language_ = value == command::LanguageChinese ? Language::Chinese : Language::English;
        break;
    case CommandGroup::Style: options_.showStyle = value; break;
    case CommandGroup::PageSize: options_.pageSize = value; break;
    case CommandGroup::TurningSpeed: options_.pageTurningSpeed = value; break;
    case CommandGroup::CoolboyType:
        options_.boardType = value == 1 ? BoardType::Mindkids : BoardType::Coolboy;
        break;
    case CommandGroup::MenuSize: options_.menuSize = value; break;
    case CommandGroup::Music: options_.menuMusic = value; break;
    case CommandGroup::None: break;
    }
}

void MainCommandState::run(int id, Origin origin)
{
    const MainCommand* row = FindMainCommand(id);
    if (row == nullptr || row->kind == CommandKind::Action)
        return;
    int written = 0;
    if (row->kind == CommandKind::Toggle) {
        const bool on = !checked(id);
        if (on)
            checked_.insert(id);
        else
            checked_.erase(id);
        *toggleField(id) = on;
        if (id == command::NumberOrder && origin == Origin::User)
            fillEnabled_ = on;
        written = on ? 1 : 0;
    } else {
        for (const MainCommand& other : MainCommands())
            if (other.group == row->group)
                checked_.erase(other.id);
        checked_.insert(id);
        // The replay leaves the fields as read: a stored menu size of 64 stays 64 under the mark of 8.
        if (origin == Origin::User || row->group == CommandGroup::Language)
            setRadioField(id, row->value);
        written = row->value;
    }
    if (origin == Origin::User)
        RegistryStore::SetDword(QLatin1String(keyPath(row->key)), QLatin1String(row->setting),
                                static_cast<quint32>(written));
}

bool MainCommandState::checked(int id) const
{
    return checked_.contains(id);
}

std::optional<BuildOptions> MainCommandState::lookAfter(int id) const
{
    const MainCommand* row = FindMainCommand(id);
    if (row == nullptr)
        return std::nullopt;
    BuildOptions after = options_;
    if (row->group == CommandGroup::Style)
        after.showStyle = row->value;
    else if (row->group == CommandGroup::PageSize)
        after.pageSize = row->value;
    else if (id == command::NameInsertRow)
        after.nameInsertRow = !checked(id);
    else if (id == command::CustomEnable)
        after.customEnable = !checked(id);
    else
        return std::nullopt;
    return after;
}

bool MainCommandState::enabled(int id) const
{
    if (id == command::NumberFill)
        return fillEnabled_;
    const std::optional<BuildOptions> after = lookAfter(id);
    return !after || after->externMenuEnable ||
           canDrawList({after->showStyle, after->pageSize, after->nameInsertRow, after->customEnable,
                        customListAddress_});
}

} // namespace zunbrix
