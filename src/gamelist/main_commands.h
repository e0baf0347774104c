#pragma once

#include <span>

namespace zunbrix {

// The main window's command numbers. Menus, shortcuts, the right-click menu and the start-up replay all
// speak in these.
namespace command {
inline constexpr int Open = 40002;
inline constexpr int Load = 40007;
inline constexpr int Save = 40008;
inline constexpr int Exit = 40001;
inline constexpr int BuildCoolboy = 40025;
inline constexpr int BuildCoolgirl = 40093;
inline constexpr int FindReplace = 40037;
inline constexpr int Topmost = 40013;
inline constexpr int LanguageChinese = 40022;
inline constexpr int LanguageEnglish = 40023;
inline constexpr int NumberOrder = 40036;
inline constexpr int NumberDot = 40163;
inline constexpr int NumberFill = 40035;
inline constexpr int StyleDefault = 40057;
inline constexpr int StyleWhite = 40058;
inline constexpr int PageSize5 = 40111;
inline constexpr int PageSize10 = 40060;
inline constexpr int PageSize15 = 40112;
inline constexpr int PageSize20 = 40061;
inline constexpr int PageNumber = 40059;
inline constexpr int NameInsertRow = 40108;
inline constexpr int TurningSpeed1 = 40158;
inline constexpr int TurningSpeed2 = 40159;
inline constexpr int TurningSpeed3 = 40160;
inline constexpr int TurningSpeed4 = 40161;
inline constexpr int CustomEnable = 40066;
inline constexpr int Design = 40065;
inline constexpr int TypeCoolboy = 40069;
inline constexpr int TypeMindkids = 40070;
inline constexpr int MenuSize8 = 40072;
inline constexpr int MenuSize16 = 40073;
inline constexpr int MenuSize32 = 40074;
inline constexpr int MenuSize64 = 40215;
inline constexpr int MenuSize128 = 40216;
inline constexpr int MusicDisable = 40076;
inline constexpr int MusicDefault = 40077;
inline constexpr int MusicNinjaGaiden = 40080;
inline constexpr int MusicFinalMission = 40083;
inline constexpr int MusicContra = 40084;
inline constexpr int MusicSuperContra = 40090;
inline constexpr int ExternMenuEnable = 40103;
inline constexpr int ExternMenuSettings = 40105;
inline constexpr int ExportInfo = 40098;
inline constexpr int ExportSettings = 40100;
inline constexpr int About = 40005;
inline constexpr int Update = 40027;
inline constexpr int RomInfo = 40096;
} // namespace command

// The control ids of the eight buttons beside the list.
namespace listButton {
inline constexpr int MoveUp = 1002;
inline constexpr int MoveDown = 1003;
inline constexpr int MoveTop = 1004;
inline constexpr int MoveBottom = 1005;
inline constexpr int Remove = 1006;
inline constexpr int Clear = 1007;
inline constexpr int SelectAll = 1010;
inline constexpr int SelectInverse = 1011;
} // namespace listButton

// How a command keeps its state: an action only runs; a toggle inverts its check mark; a radio checks itself
// and clears the others of its group.
enum class CommandKind { Action, Toggle, Radio };

// The radio groups of the settings menu; a toggle or action has none.
enum class CommandGroup { None, Language, Style, PageSize, TurningSpeed, CoolboyType, MenuSize, Music };

// Where a command's state lives in the settings store.
enum class SettingKey { None, Main, Coolboy };

// One row of the command table. `textId` names the numbered text of the menu item; where the item's words are
// a name or a number that no language translates (MINDKIDS, 256 KB), `textId` is 0 and `label` holds them.
// `shortcut` is in the portable form of a key sequence ("Ctrl+O"), or empty.
struct MainCommand {
    int id;
    int textId;
    const char* label;
    CommandKind kind;
    CommandGroup group;
    SettingKey key;
    const char* setting; // the value written when the command runs; nullptr for none
    int value;           // what a radio stores
    const char* shortcut;
};

std::span<const MainCommand> MainCommands();
// The row of `id`, or nullptr for a number that is not a main-window command.
const MainCommand* FindMainCommand(int id);

// The menu bar as a flat outline: each item sits `depth` levels down; an item with a `commandId` of 0 opens a
// submenu holding the deeper items that follow it.
struct MenuItem {
    int depth;
    int textId;
    int commandId;
};
std::span<const MenuItem> MainMenu();

// The eight buttons at the right of the list, top to bottom: control id and numbered text.
struct ListButton {
    int id;
    int textId;
};
std::span<const ListButton> ListButtons();

// The short menu of the right mouse button and the tray icon: the first three of File, the first of Settings,
// then the fourth of File.
std::span<const int> ShortMenu();

} // namespace zunbrix
