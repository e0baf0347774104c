#pragma once

// The designer window's command numbers: its controls below 2000, the items of its menu bar above. A control
// and its menu item carry the same number, so tests and the window reach a command the same way.

namespace zunbrix::design_command {

// Check boxes.
inline constexpr int FillColor = 1056;
inline constexpr int DrawLine = 1057;
inline constexpr int DragText = 1060;
inline constexpr int BigCursor = 1119;
inline constexpr int BigSprite = 1130;
inline constexpr int QuickFromBg = 1133;
inline constexpr int QuickToBg = 1134;
inline constexpr int QuickToSp = 1135;
inline constexpr int QuickStamp = 1136;
inline constexpr int MarkCursor = 1140;
inline constexpr int VerticalFlip = 1077;
inline constexpr int HorizontalFlip = 1078;
inline constexpr int BehindBackground = 1079;

inline constexpr int Undo = 1124;
inline constexpr int Redo = 1125;

// Load, Save and Reset of each part of the design.
inline constexpr int LoadMenu = 1068;
inline constexpr int SaveMenu = 1072;
inline constexpr int ResetMenu = 1067;
inline constexpr int LoadNameTablePage = 1087;
inline constexpr int SaveNameTablePage = 1088;
inline constexpr int ResetNameTablePage = 1086;
inline constexpr int LoadTextList = 1121;
inline constexpr int SaveTextList = 1122;
inline constexpr int ResetTextList = 1120;
inline constexpr int LoadAttributes = 1116;
inline constexpr int SaveAttributes = 1117;
inline constexpr int ResetAttributes = 1105;
inline constexpr int LoadBkgChr = 1071;
inline constexpr int SaveBkgChr = 1073;
inline constexpr int ResetBkgChr = 1075;
inline constexpr int SwapChr = 1126;
inline constexpr int LoadSpriteChr = 1080;
inline constexpr int SaveSpriteChr = 1082;
inline constexpr int ResetSpriteChr = 1085;
inline constexpr int LoadBkgPalette = 1090;
inline constexpr int SaveBkgPalette = 1091;
inline constexpr int ResetBkgPalette = 1089;
inline constexpr int LoadSpritePalette = 1093;
inline constexpr int SaveSpritePalette = 1094;
inline constexpr int ResetSpritePalette = 1092;
inline constexpr int LoadNameTable = 1109;
inline constexpr int SaveNameTable = 1110;
inline constexpr int SelectAllBkgTiles = 1106;
inline constexpr int InvertBkgTiles = 1107;
inline constexpr int ResetBkgTiles = 1108;
inline constexpr int LoadSprites = 1096;
inline constexpr int SaveSprites = 1097;
inline constexpr int SelectAllSprites = 1103;
inline constexpr int InvertSprites = 1104;
inline constexpr int ResetSprites = 1095;
inline constexpr int SwapSpriteHalves = 1131;
inline constexpr int ExportCharMap = 1146;
inline constexpr int ResetCharMap = 1147;

// The arrows of the background, attribute and sprite groups.
inline constexpr int BkgLeft = 1113;
inline constexpr int BkgRight = 1114;
inline constexpr int BkgUp = 1111;
inline constexpr int BkgDown = 1112;
inline constexpr int AttrLeft = 1143;
inline constexpr int AttrRight = 1144;
inline constexpr int AttrUp = 1138;
inline constexpr int AttrDown = 1145;
inline constexpr int SpriteLeft = 1101;
inline constexpr int SpriteRight = 1102;
inline constexpr int SpriteUp = 1099;
inline constexpr int SpriteDown = 1100;

inline constexpr int CaptionField = 1058;
inline constexpr int TextField = 1069;
inline constexpr int AddText = 1074;

// Pages of the sample list.
inline constexpr int FirstPage = 1083;
inline constexpr int PreviousPage = 1076;
inline constexpr int NextPage = 1081;
inline constexpr int LastPage = 1084;

// The menu bar.
inline constexpr int Exit = 40001;
inline constexpr int ClearUnusedBkgTiles = 40124;
inline constexpr int ClearUnusedSpriteTiles = 40123;
inline constexpr int AutoMapUsedCharacters = 40125;
inline constexpr int AutoMapAllCharacters = 40196;
inline constexpr int OrganizeBkgTiles = 40170;
inline constexpr int OrganizeSpriteTiles = 40171;
inline constexpr int GlyphsToBkgTiles = 40192;
inline constexpr int GlyphsToSpriteTiles = 40194;
inline constexpr int CopyBkgToSprite = 40201;
inline constexpr int CopySpriteToBkg = 40202;
inline constexpr int SpritesToSingleHeight = 40204;
inline constexpr int ExchangeOddEven = 40206;
inline constexpr int BkgTilesToSprites = 40214;
inline constexpr int RotateLeftWithBackground = 40153;
inline constexpr int RotateRightWithBackground = 40154;
inline constexpr int RotateLeftWithoutBackground = 40149;
inline constexpr int RotateRightWithoutBackground = 40150;
inline constexpr int RemoveColor0 = 40135; // no menu item; 40136 to 40138 remove colours 1 to 3
inline constexpr int RemoveColor3 = 40138;
inline constexpr int PixelsUp = 40140;
inline constexpr int PixelsDown = 40141;
inline constexpr int PixelsLeft = 40142;
inline constexpr int PixelsRight = 40143;
inline constexpr int SwapColors12 = 40147;
inline constexpr int SwapColors13 = 40146;
inline constexpr int SwapColors23 = 40148;
inline constexpr int ShowBgTile = 40174;
inline constexpr int ShowSpTile = 40175;
inline constexpr int ShowList = 40198;
inline constexpr int ShowCustomText = 40210;
inline constexpr int ShowCaption = 40212;
inline constexpr int ShowCursor = 40218;

} // namespace zunbrix::design_command
