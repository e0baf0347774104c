#pragma once

// The numbered texts that code names by purpose, in one place, so that a number is spelled once.
// The texts themselves are in texts.tsv.
namespace zunbrix::text {

// Message titles.
inline constexpr int TitleTips = 146;
inline constexpr int TitleError = 147;
inline constexpr int TitleWarn = 169;

inline constexpr int SelectedAndAll = 132;
inline constexpr int ConfirmClear = 145;
inline constexpr int NoFilesSelected = 149;
inline constexpr int OperationFailed = 150;
inline constexpr int ListLimit = 192;
inline constexpr int ListFull = 193;
inline constexpr int Busy = 194;
inline constexpr int TooManyMoving = 196;
inline constexpr int TooManyGames = 197;

// Board validation.
inline constexpr int MapperNotSupported = 259;
inline constexpr int SizeNotSupported = 260;
inline constexpr int NotNesFile = 261;
inline constexpr int TrainerNotSupported = 262;

inline constexpr int MenuError = 277;
inline constexpr int InvalidExternalMenu = 279;
inline constexpr int MenuBanksOverflow = 280;
inline constexpr int FinalRomTooLarge = 353;

// The build's own words about the assembler and the menu's music.
inline constexpr int AssemblerNotStarted = 901;
inline constexpr int AssemblerStopped = 902;
inline constexpr int MusicUnavailable = 903;

// Lists longer than the menu can index.
inline constexpr int TooManyForMenu = 910;

// A page of the list that the menu cannot draw: the built-in look, the custom look, the custom look spaced.
inline constexpr int ListOffScreenBuiltIn = 915;
inline constexpr int ListOffScreenCustom = 916;
inline constexpr int ListOffScreenCustomSpaced = 917;

// Files and processes: an output that is one of the inputs, a work folder that cannot be made, a stop.
inline constexpr int OutputIsInput = 920;
inline constexpr int WorkFolderNotMade = 921;
inline constexpr int BuildStopped = 922;

// What is wrong with a file that the build reads or writes, and the COOLGIRL board's size limit.
inline constexpr int FileMissing = 930;
inline constexpr int FileNotRegular = 931;
inline constexpr int FileReadFailed = 932;
inline constexpr int FileNoInesMark = 933;
inline constexpr int FileTruncated = 934;
inline constexpr int FileChangedSinceRead = 935;
inline constexpr int FileWriteFailed = 936;
inline constexpr int RomBeyondBoardLimit = 937;

// The game list's own words.
inline constexpr int FilesSkipped = 960;

// The main window's own words: titles and filters of its file dialogs, and its refusals.
inline constexpr int OpenGamesTitle = 980;
inline constexpr int NesImagesFilter = 981;
inline constexpr int LoadListTitle = 982;
inline constexpr int SaveListTitle = 983;
inline constexpr int ListFilesFilter = 984;
inline constexpr int SaveRomTitle = 985;
inline constexpr int NesRomFilter = 986;
inline constexpr int UnifRomFilter = 987;
inline constexpr int BinRomFilter = 988;
inline constexpr int ExportFolderTitle = 989;
inline constexpr int ListNotWritten = 990;
inline constexpr int GameListName = 991;
// What a build of the checked games would write for a board: the ROM's size and the data in it.
inline constexpr int PlannedFlashUse = 992;

// A crash report that an earlier run left, named on the next start.
inline constexpr int CrashReportLeft = 1030;

// Find and replace: its dialog's words, and the refusals of a request before any name is touched.
inline constexpr int FindReplaceTitle = 201;
inline constexpr int SearchLabel = 203;
inline constexpr int ReplaceLabel = 204;
inline constexpr int PlainSearch = 205;
inline constexpr int ReplaceAllButton = 206;
inline constexpr int SearchModeGroup = 207;
inline constexpr int RegexSearch = 208;
inline constexpr int FindNextButton = 209;
inline constexpr int ReplaceButton = 210;
inline constexpr int OnlyCheckedRows = 211;
inline constexpr int SearchPatternUnusable = 1035;
inline constexpr int SearchTextEmpty = 1036;
inline constexpr int ReplacementHoldsSearch = 1037;
inline constexpr int ReplacementGrowsName = 1038;
inline constexpr int ReplaceAllNotUndoable = 1039;

// The update service.
inline constexpr int UpdateProgressTitle = 186;
inline constexpr int UpdateVersionsTitle = 187;
inline constexpr int NoticeTitle = 285;
inline constexpr int UpdateRecordUnreadable = 1080;
inline constexpr int UpdateDownloadFailed = 1081;

// The menu designer's window.
inline constexpr int DesignerTitle = 222;
inline constexpr int UndoButton = 294;
inline constexpr int RedoButton = 295;
inline constexpr int NameTableLabel = 227;
inline constexpr int ColorAttributeLabel = 228;
inline constexpr int BkgPaletteLabel = 229;
inline constexpr int SpritePaletteLabel = 230;
inline constexpr int PaletteLabel = 231;
inline constexpr int ChrLabel = 233;
inline constexpr int TargetLabel = 297;
inline constexpr int SourceLabel = 298;
inline constexpr int FillColorCheck = 224;
inline constexpr int DrawLineCheck = 225;
inline constexpr int DragTextCheck = 226;
inline constexpr int BigCursorCheck = 292;
inline constexpr int BigSpriteCheck = 299;
inline constexpr int QuickActionCheck = 301;
inline constexpr int MarkCursorCheck = 321;
inline constexpr int QuickFromBgCheck = 324;
inline constexpr int QuickToBgCheck = 322;
inline constexpr int QuickToSpCheck = 323;
inline constexpr int CaptionLabel = 223;
inline constexpr int TextLabel = 237;
inline constexpr int SpriteTileListLabel = 286;
inline constexpr int BkgTileListLabel = 290;
inline constexpr int AttributesLabel = 291;
inline constexpr int TextListLabel = 293;
inline constexpr int LoadButton = 234;
inline constexpr int SaveButton = 235;
inline constexpr int ResetButton = 236;
inline constexpr int AddButton = 238;
inline constexpr int SwapChrButton = 296;
inline constexpr int SwapSpriteHalvesButton = 300;
inline constexpr int SelectAllButton = 128;
inline constexpr int SelectInverseButton = 129;
inline constexpr int ExportButton = 352;
inline constexpr int VerticalFlipCheck = 245;
inline constexpr int HorizontalFlipCheck = 246;
inline constexpr int BehindBackgroundCheck = 247;
inline constexpr int FirstPageButton = 248;
inline constexpr int LastPageButton = 249;
inline constexpr int PreviousPageButton = 250;
inline constexpr int NextPageButton = 251;

// The designer's menu bar.
inline constexpr int FileMenu = 111;
inline constexpr int EditMenu = 112;
inline constexpr int TileToolMenu = 319;
inline constexpr int DisplayMenu = 339;
inline constexpr int ExitItem = 109;
inline constexpr int ClearUnusedBkgItem = 302;
inline constexpr int ClearUnusedSpriteItem = 303;
inline constexpr int AutoMapUsedItem = 304;
inline constexpr int RotateLeftWithBackgroundItem = 305;
inline constexpr int RotateRightWithBackgroundItem = 306;
inline constexpr int RotateLeftWithoutBackgroundItem = 307;
inline constexpr int RotateRightWithoutBackgroundItem = 308;
inline constexpr int RemoveColor1Item = 309;
inline constexpr int RemoveColor2Item = 310;
inline constexpr int RemoveColor3Item = 311;
inline constexpr int PixelsLeftItem = 312;
inline constexpr int PixelsRightItem = 313;
inline constexpr int PixelsUpItem = 314;
inline constexpr int PixelsDownItem = 315;
inline constexpr int SwapColors12Item = 316;
inline constexpr int SwapColors13Item = 317;
inline constexpr int SwapColors23Item = 318;
inline constexpr int OrganizeBkgItem = 335;
inline constexpr int OrganizeSpriteItem = 336;
inline constexpr int ShowBgTileItem = 337;
inline constexpr int ShowSpTileItem = 338;
inline constexpr int GlyphsToBkgItem = 340;
inline constexpr int GlyphsToSpriteItem = 341;
inline constexpr int AutoMapAllItem = 342;
inline constexpr int ShowListItem = 343;
inline constexpr int CopyBkgToSpriteItem = 344;
inline constexpr int CopySpriteToBkgItem = 345;
inline constexpr int SpritesToSingleHeightItem = 346;
inline constexpr int ExchangeOddEvenItem = 347;
inline constexpr int ShowCustomTextItem = 348;
inline constexpr int ShowCaptionItem = 349;
inline constexpr int BkgTilesToSpritesItem = 350;
inline constexpr int ShowCursorItem = 351;

// A design file refused, by its fault (DesignFault 1 to 7): %s the file, %d the record type.
inline constexpr int DesignFaultFirst = 1070;

} // namespace zunbrix::text
