#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <array>
#include <ostream>
#include <cstdint>
#include <vector>

namespace zunbrix::testing {

// A menu build as the generators would set it up: the values of game_config.asm, the list of names, and the
// designer's look. Tests write its files in the line forms the generators use and assemble them with the
// menu's own sources.
struct MenuSetup {
    int board = 0;       // BOARD_TYPE: 0 COOLBOY, 1 MINDKIDS, 2 COOLGIRL
    int prgSize = 8;     // MENU_PRG_SIZE in 16 KB units
    int style = 0;       // MENU_SHOW_STYLE
    int pageSize = 10;   // PAGE_SIZE
    bool custom = false; // CUSTOM_MENU_ENABLE
    bool bigCursor = false;
    bool bigSprite = false;
    bool nameInsertRow = false;
    bool showPageNumber = true;
    bool finalData = true; // FINAL_DATA_ENABLE; 0 assembles the boards' plain start-up code
    int music = 0;
    int turningSpeed = 1;
    QStringList names; // GAMES_TOTAL is their count
    QByteArray caption = "MY MENU";           // the designer's caption, custom look only
    int itemPpuAddr = 0x20C6;                 // custom look positions
    int captionPpuAddr = 0x206C;
    int pageNumberPpuAddr = 0x234E;
    QByteArray nameTable = QByteArray(960, 0); // the stored name table
    std::array<std::uint8_t, 256> charMap = identityCharMap();

    static std::array<std::uint8_t, 256> identityCharMap();
};

// "GAME 0000", "GAME 0001", ...
QStringList numberedNames(int count);

// The ten or twelve bytes of a final record that the fixture gives game `game`: distinct per game and
// field, so a test can tell which record was read.
std::vector<std::uint8_t> finalRecordBytes(int board, int game);

// The stored name table's byte under column `column` of the text at PPU address `ppuAddr`.
std::uint8_t backgroundTile(const MenuSetup& setup, int ppuAddr, int column);

// Equates that menu.asm computes from the setup, as the menu's contract defines them.
int itemShowPos(const MenuSetup& setup);
int titleShowPos(const MenuSetup& setup);
int pageIndicatorPos(const MenuSetup& setup);
int pageCount(const MenuSetup& setup);

// Where the files in menu/build come from: this fixture, or the build's generators and the designer's export
// of the factory design (BIG_CURSOR, the custom look's positions and the caption then come from the design).
enum class GeneratedBy { Fixture, Generators };

// A work folder with the menu's sources extracted and the setup's generated files in menu/build.
class MenuWorkFolder {
public:
    explicit MenuWorkFolder(const MenuSetup& setup, GeneratedBy source = GeneratedBy::Fixture);

    bool ready() const { return ready_; }
    QString path() const { return folder_.path(); }
    QString menuFolder() const { return folder_.path() + QStringLiteral("/menu"); }

    struct Assembly {
        int exitCode = -1;
        QString output;  // what the assembler printed
        QByteArray rom;  // menu.nes, empty when not written
    };
    Assembly assemble() const;

private:
    QTemporaryDir folder_;
    bool ready_ = false;
};

// Writes the generated files of `setup` into `buildFolder`; false when a file cannot be written.
bool writeGeneratedFiles(const MenuSetup& setup, const QString& buildFolder);

// The same through the design's loader, generateNames, generateFinalData, writeGameConfig and
// exportMenuData in the build's order, with every game checked and the records of finalRecordBytes. The
// design and BIG_CURSOR come from the settings store: callers redirect it.
bool writeFilesWithGenerators(const MenuSetup& setup, const QString& buildFolder);

} // namespace zunbrix::testing

// Readable QStrings in test failures
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
