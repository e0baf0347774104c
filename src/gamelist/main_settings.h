#pragma once

#include "multicart/build_options.h"
#include "frame/string_table.h"

namespace zunbrix {

// The keys of the main window's settings in the settings store.
inline constexpr char kMainSettingsKey[] = "Software\\Zunbrix";
inline constexpr char kCoolboySettingsKey[] = "Software\\Zunbrix\\Coolboy";

// A 32-bit number of the store, or `defaultValue` when it was never written or is not a number.
int ReadSettingInt(const char* key, const char* name, int defaultValue);

// The settings a build reads, as the main window keeps them: each value from the store, with its default
// when it was never written or holds a value the window would not offer. The board is COOLBOY or MINDKIDS
// by the value CoolboyType.
BuildOptions ReadBuildOptions();

// What Export information makes when no build asks: 1 COOLGIRL else COOLBOY, and the menu's PRG in 16 KB banks.
struct ExportSettings {
    int romType = 0;
    int menuBanks = 8;
};
ExportSettings ReadExportSettings();

// The interface language: the stored choice, else Chinese on a Chinese system and English elsewhere.
Language ReadLanguage();

} // namespace zunbrix
