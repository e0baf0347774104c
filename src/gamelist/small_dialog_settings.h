#pragma once

#include <QString>

namespace zunbrix {

// What the small dialogs of the main window keep in the settings store, and when. Each write is one value at
// the moment the user makes the choice; a read that fails keeps the default, a write that fails is ignored.

// The export settings dialog's two radio groups as stored: type 0 COOLBOY or 1 COOLGIRL, and the menu's PRG
// size as 0 (128 KB), 1 (256 KB) or 2 (512 KB). Values outside these read as 0.
struct ExportChoice {
    int romType = 0;
    int prgSize = 0;
};
ExportChoice ReadExportChoice();
void StoreExportRomType(int romType);
void StoreExportPrgSize(int prgSize);

// The user's own menu source; stored as typed, since the build judges it.
QString ReadExternMenuPath();
void StoreExternMenuPath(const QString& path);

// The close question: whether to ask again, and the answer that closing the main window then gives.
enum class CloseChoice { Minimize = 0, Exit = 1 };
void StoreCloseRemember(bool remember);
void StoreCloseChoice(CloseChoice choice);

// The maker's page behind the about box's link: the installation's value AboutLink, else our home page.
inline constexpr char kDefaultAboutLink[] = "https://gitee.com/zunbrix/zunbrix";
QString AboutLink();

} // namespace zunbrix
