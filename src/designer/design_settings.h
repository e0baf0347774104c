#pragma once

// Where the design lives in the settings store, and the names of its values.

namespace zunbrix::design_settings {

inline constexpr char kKey[] = "Software\\Zunbrix\\MenuV2";

inline constexpr char kArrowTile[] = "ArrowTile";
inline constexpr char kArrowTileList[] = "ArrowTileList";
inline constexpr char kBkgTileList[] = "BkgTileList";
inline constexpr char kSpriteTileList[] = "SpriteTileList";
inline constexpr char kCustomText[] = "CustomText";
inline constexpr char kChrData[] = "ChrData";
inline constexpr char kCharMapData[] = "CharMapData";
inline constexpr char kBigSprite[] = "BigSprite";
inline constexpr char kBigCursor[] = "BigCursor";
inline constexpr char kCaptionText[] = "CaptionText";
inline constexpr char kAttributes[] = "Attributes";
inline constexpr char kBkgPalette[] = "BkgPalette";
inline constexpr char kSpritePalette[] = "SpritePalette";
inline constexpr char kCaptionPpuAddr[] = "CaptionPpuAddr";
inline constexpr char kPageNumberPpuAddr[] = "PageNumberPpuAddr";
inline constexpr char kItemPpuAddr[] = "ItemPpuAddr";

} // namespace zunbrix::design_settings
