#pragma once

#include <QString>

#include <cstdint>
#include <span>

namespace zunbrix {

// One file of the menu's source tree, as the build writes it into the work folder. The list and the bytes
// are compiled into the program (see CMakeLists.txt beside this header for the rows and their order).
struct MenuSourceFile {
    const char* relativePath; // below the work folder, forward slashes: "menu/menu.asm"
    std::span<const std::uint8_t> bytes;
    bool executable;
};

// Places inside the work folder.
inline constexpr const char* kMenuMainSource = "menu/menu.asm";
inline constexpr const char* kMenuBuildFolder = "menu/build";
#ifdef Q_OS_WIN
inline constexpr const char* kMenuAssembler = "tools/nesasm.exe";
#else
inline constexpr const char* kMenuAssembler = "tools/nesasm";
#endif

// The rows, in the order they are written: the assembler, the five sources, the default pattern table.
std::span<const MenuSourceFile> MenuSourceFiles();

// How writing the tree ended; on failure, the folder or file that could not be made and the system's reason.
struct ExtractResult {
    bool ok = false;
    QString failedPath;
    QString reason;
};

// Writes every row below workFolder, creating folders (and menu/build for the generators) as needed. On the
// first failure it stops and removes the whole work folder.
ExtractResult ExtractMenuSources(const QString& workFolder);

// Deletes the work folder with its contents; an empty path is nothing to do and succeeds.
bool RemoveWorkFolder(const QString& workFolder);

// Music sets 2 to 5 are sound drivers of games that this program does not ship: the source keeps their hooks,
// but a build must refuse them.
constexpr bool isMenuMusicAvailable(int menuMusic)
{
    return menuMusic == 0 || menuMusic == 1;
}

} // namespace zunbrix
