#include "gamelist/main_commands.h"

#include <algorithm>
#include <array>

namespace zunbrix {

namespace {

using enum CommandKind;
using enum CommandGroup;
constexpr SettingKey kMain = SettingKey::Main;
constexpr SettingKey kNone = SettingKey::None;

// One row a command, in the order of the settings menu within each group.
constexpr std::array kCommands = std::to_array<MainCommand>({
    {command::Open, 106, nullptr, Action, None, kNone, nullptr, 0, "Ctrl+O"},
    {command::Load, 107, nullptr, Action, None, kNone, nullptr, 0, "Ctrl+L"},
    {command::Save, 108, nullptr, Action, None, kNone, nullptr, 0, "Ctrl+S"},
    {command::Exit, 109, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::BuildCoolboy, 144, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::BuildCoolgirl, 258, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::FindReplace, 202, nullptr, Action, None, kNone, nullptr, 0, "Ctrl+F"},
    {command::Topmost, 114, nullptr, Toggle, None, kMain, "Topmost", 0, ""},
    {command::LanguageChinese, 117, nullptr, Radio, Language, kMain, "Language", command::LanguageChinese, ""},
    {command::LanguageEnglish, 118, nullptr, Radio, Language, kMain, "Language", command::LanguageEnglish, ""},
    {command::NumberOrder, 199, nullptr, Toggle, None, kMain, "ShowNumberOrder", 0, ""},
    {command::NumberDot, 330, nullptr, Toggle, None, kMain, "ShowNumberDot", 0, ""},
    {command::NumberFill, 200, nullptr, Toggle, None, kMain, "ShowNumberFill", 0, ""},
    {command::StyleDefault, 217, nullptr, Radio, Style, kMain, "ShowStyle", 0, ""},
    {command::StyleWhite, 218, nullptr, Radio, Style, kMain, "ShowStyle", 1, ""},
    {command::PageSize5, 289, nullptr, Radio, PageSize, kMain, "PageSize", 5, ""},
    {command::PageSize10, 215, nullptr, Radio, PageSize, kMain, "PageSize", 10, ""},
    {command::PageSize15, 288, nullptr, Radio, PageSize, kMain, "PageSize", 15, ""},
    {command::PageSize20, 216, nullptr, Radio, PageSize, kMain, "PageSize", 20, ""},
    {command::PageNumber, 214, nullptr, Toggle, None, kMain, "PageNumber", 0, ""},
    {command::NameInsertRow, 287, nullptr, Toggle, None, kMain, "NameInsertRow", 0, ""},
    {command::TurningSpeed1, 0, "1", Radio, TurningSpeed, kMain, "PageTurningSpeed", 1, ""},
    {command::TurningSpeed2, 0, "2", Radio, TurningSpeed, kMain, "PageTurningSpeed", 2, ""},
    {command::TurningSpeed3, 0, "3", Radio, TurningSpeed, kMain, "PageTurningSpeed", 3, ""},
    {command::TurningSpeed4, 0, "4", Radio, TurningSpeed, kMain, "PageTurningSpeed", 4, ""},
    {command::CustomEnable, 221, nullptr, Toggle, None, kMain, "CustomEnable", 0, ""},
    {command::Design, 220, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::TypeCoolboy, 331, nullptr, Radio, CoolboyType, SettingKey::Coolboy, "CoolboyType", 0, ""},
    {command::TypeMindkids, 0, "MINDKIDS", Radio, CoolboyType, SettingKey::Coolboy, "CoolboyType", 1, ""},
    {command::MenuSize8, 0, "128 KB", Radio, MenuSize, kMain, "MenuSize", 8, ""},
    {command::MenuSize16, 0, "256 KB", Radio, MenuSize, kMain, "MenuSize", 16, ""},
    {command::MenuSize32, 0, "512 KB", Radio, MenuSize, kMain, "MenuSize", 32, ""},
    {command::MenuSize64, 0, "1 MB", Radio, MenuSize, kMain, "MenuSize", 64, ""},
    {command::MenuSize128, 0, "2 MB", Radio, MenuSize, kMain, "MenuSize", 128, ""},
    {command::MusicDisable, 242, nullptr, Radio, Music, kMain, "Music", 0, ""},
    {command::MusicDefault, 243, nullptr, Radio, Music, kMain, "Music", 1, ""},
    {command::MusicNinjaGaiden, 244, nullptr, Radio, Music, kMain, "Music", 2, ""},
    {command::MusicFinalMission, 252, nullptr, Radio, Music, kMain, "Music", 3, ""},
    {command::MusicContra, 253, nullptr, Radio, Music, kMain, "Music", 4, ""},
    {command::MusicSuperContra, 256, nullptr, Radio, Music, kMain, "Music", 5, ""},
    {command::ExternMenuEnable, 273, nullptr, Toggle, None, kMain, "ExternMenuEnable", 0, ""},
    {command::ExternMenuSettings, 274, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::ExportInfo, 267, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::ExportSettings, 268, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::About, 110, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::Update, 188, nullptr, Action, None, kNone, nullptr, 0, ""},
    {command::RomInfo, 155, nullptr, Action, None, kNone, nullptr, 0, ""},
});

// The menu bar, item by item as it opens.
constexpr std::array kMenu = std::to_array<MenuItem>({
    {0, 111, 0}, // File
    {1, 0, command::Open},
    {1, 0, command::Load},
    {1, 0, command::Save},
    {1, 0, command::Exit},
    {0, 112, 0}, // Edit
    {1, 0, command::BuildCoolboy},
    {1, 0, command::BuildCoolgirl},
    {1, 0, command::FindReplace},
    {0, 113, 0}, // Settings
    {1, 0, command::Topmost},
    {1, 115, 0}, // Language
    {2, 0, command::LanguageChinese},
    {2, 0, command::LanguageEnglish},
    {1, 195, 0}, // Multicart menu
    {2, 198, 0}, // Display of the numbers
    {3, 0, command::NumberOrder},
    {3, 0, command::NumberDot},
    {3, 0, command::NumberFill},
    {2, 212, 0}, // Style
    {3, 0, command::StyleDefault},
    {3, 0, command::StyleWhite},
    {2, 213, 0}, // Page size
    {3, 0, command::PageSize5},
    {3, 0, command::PageSize10},
    {3, 0, command::PageSize15},
    {3, 0, command::PageSize20},
    {2, 0, command::PageNumber},
    {2, 0, command::NameInsertRow},
    {2, 329, 0}, // Page turning speed
    {3, 0, command::TurningSpeed1},
    {3, 0, command::TurningSpeed2},
    {3, 0, command::TurningSpeed3},
    {3, 0, command::TurningSpeed4},
    {1, 219, 0}, // Custom menu
    {2, 0, command::CustomEnable},
    {2, 0, command::Design},
    {1, 239, 0}, // Coolboy type
    {2, 0, command::TypeCoolboy},
    {2, 0, command::TypeMindkids},
    {1, 240, 0}, // Menu size
    {2, 0, command::MenuSize8},
    {2, 0, command::MenuSize16},
    {2, 0, command::MenuSize32},
    {2, 0, command::MenuSize64},
    {2, 0, command::MenuSize128},
    {1, 241, 0}, // Music
    {2, 0, command::MusicDisable},
    {2, 0, command::MusicDefault},
    {2, 0, command::MusicNinjaGaiden},
    {2, 0, command::MusicFinalMission},
    {2, 0, command::MusicContra},
    {2, 0, command::MusicSuperContra},
    {1, 272, 0}, // External menu
    {2, 0, command::ExternMenuEnable},
    {2, 0, command::ExternMenuSettings},
    {0, 254, 0}, // Tools
    {1, 0, command::ExportInfo},
    {1, 0, command::ExportSettings},
    {0, 116, 0}, // Help
    {1, 0, command::About},
    {1, 0, command::Update},
    {1, 0, command::RomInfo},
});

constexpr std::array kListButtons = std::to_array<ListButton>({
    {listButton::MoveUp, 124},
    {listButton::MoveDown, 125},
    {listButton::MoveTop, 126},
    {listButton::MoveBottom, 127},
    {listButton::SelectAll, 128},
    {listButton::SelectInverse, 129},
    {listButton::Remove, 130},
    {listButton::Clear, 131},
});

constexpr std::array kShortMenu = {command::Open, command::Load, command::Save, command::Topmost, command::Exit};

} // namespace

std::span<const MainCommand> MainCommands()
{
    return kCommands;
}

const MainCommand* FindMainCommand(int id)
{
    const auto row = std::find_if(kCommands.begin(), kCommands.end(),
                                  [id](const MainCommand& candidate) { return candidate.id == id; });
    return row == kCommands.end() ? nullptr : &*row;
}

std::span<const MenuItem> MainMenu()
{
    return kMenu;
}

std::span<const ListButton> ListButtons()
{
    return kListButtons;
}

std::span<const int> ShortMenu()
{
    return kShortMenu;
}

} // namespace zunbrix
