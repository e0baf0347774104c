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

} // namespace zunbrix::text
