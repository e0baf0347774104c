#include "menu_fixture.h"

#include "multicart/game_config.h"
#include "multicart/generation_settings.h"
#include "multicart/generators.h"
#include "designer/codec.h"
#include "designer/document.h"
#include "designer/export.h"
#include "menu/menu_source_tree.h"

#include <QDir>
#include <QFile>
#include <QProcess>

#include <functional>

namespace zunbrix::testing {

namespace {

constexpr int kBankBytes = 8192;
const QByteArray kCrLf = "\r\n";

bool writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(bytes) == bytes.size();
}

QByteArray format(const char* pattern, int value)
{
    return QString::asprintf(pattern, value).toLatin1();
}

// Splits games 0..count-1 into banks by the cost of each, as the generators fill banks. The cost may differ
// for the game that opens a new bank.
std::vector<std::vector<int>> fillBanks(int count, const std::function<int(int, bool)>& cost)
{
    std::vector<std::vector<int>> banks;
    std::vector<int> current;
    int used = 2;
    for (int game = 0; game < count; ++game) {
        used += cost(game, false);
        if (used > kBankBytes) {
            banks.push_back(current);
            current.clear();
            used = 2 + cost(game, true);
        }
        current.push_back(game);
    }
    if (!current.empty()) {
        banks.push_back(current);
    }
    return banks;
}

// "<begin label>\r\n .WORD first\r\n<list label>\r\n", the pointer table ten to a line, a blank line.
QByteArray bankHeader(const char* kind, const std::vector<int>& games)
{
    const int first = games.front();
    QByteArray text = format((QByteArray(kind) + "_begin_%03d").constData(), first) + kCrLf;
    text += format(" .WORD %d", first) + kCrLf;
    text += format((QByteArray(kind) + "_list_%03d").constData(), first) + kCrLf;
    for (std::size_t i = 0; i < games.size(); ++i) {
        text += (i % 10 == 0 ? " .WORD " : ",") + format((QByteArray(kind) + "_%03d").constData(), games[i]);
        if (i % 10 == 9 || i + 1 == games.size()) {
            text += kCrLf;
        }
    }
    return text + kCrLf;
}

QByteArray bankIndex(const char* label, const std::vector<std::vector<int>>& banks)
{
    QByteArray text = QByteArray(label) + kCrLf;
    int written = 0;
    for (std::size_t bank = 0; bank < banks.size(); ++bank) {
        for (std::size_t i = 0; i < banks[bank].size(); ++i, ++written) {
            text += (written % 10 == 0 ? " .DB " : ",") + format("$%02X", static_cast<int>(bank));
            if (written % 10 == 9) {
                text += kCrLf;
            }
        }
    }
    if (written % 10 != 0) {
        text += kCrLf;
    }
    return text;
}

QByteArray digitName(int value)
{
    return format("%X", value);
}

// The designer starts from the menu's own tiles; so does this fixture.
QByteArray defaultPatternTable()
{
    for (const MenuSourceFile& row : MenuSourceFiles()) {
        if (QByteArray(row.relativePath).endsWith("chr_data.bin")) {
            return QByteArray(reinterpret_cast<const char*>(row.bytes.data()), static_cast<qsizetype>(row.bytes.size()));
        }
    }
    return QByteArray(kBankBytes, 0);
}

int nameColumn(const MenuSetup& setup)
{
    return setup.custom ? (setup.itemPpuAddr & 31) : 6;
}

QByteArray displayName(const QString& name)
{
    QByteArray text;
    for (QChar c : name) {
        const char16_t u = c.unicode();
        text += u > 128 ? '?' : (u >= 'a' && u <= 'z') ? static_cast<char>(u - 32) : static_cast<char>(u);
    }
    return text;
}

bool writeNameBanks(const MenuSetup& setup, const QString& folder, int& bankCount)
{
    std::vector<QByteArray> names;
    for (const QString& name : setup.names) {
        names.push_back(displayName(name));
    }
    const int limit = 32 - nameColumn(setup);
    auto cut = [&](int game) { return std::min<int>(static_cast<int>(names[game].size()), limit); };
    // A name that opens a new bank goes in whole.
    const auto banks = fillBanks(static_cast<int>(names.size()), [&](int game, bool opens) {
        return (opens ? static_cast<int>(names[game].size()) : cut(game)) + 3;
    });
    for (std::size_t bank = 0; bank < banks.size(); ++bank) {
        QByteArray text = bankHeader("game_name", banks[bank]);
        for (int game : banks[bank]) {
            const QByteArray name = game == banks[bank].front() && bank > 0 ? names[game] : names[game].left(cut(game));
            text += name.isEmpty() ? format("game_name_%03d .DB $00", game)
                                   : format("game_name_%03d .STR \"", game) + name + "\"";
            text += kCrLf;
        }
        text += kCrLf;
        if (!writeFile(folder + "/game_list_" + digitName(static_cast<int>(bank)) + ".asm", text)) {
            return false;
        }
    }
    bankCount = static_cast<int>(banks.size());
    return writeFile(folder + "/game_list_bank.asm", bankIndex("game_list_bank_index", banks)) &&
           writeFile(folder + "/game_title.asm", format(" .STR \"%d IN 1\"", static_cast<int>(names.size())));
}

bool writeFinalDataBanks(const MenuSetup& setup, const QString& folder, int& bankCount)
{
    const bool coolgirl = setup.board == 2;
    const int count = static_cast<int>(setup.names.size());
    const auto banks = fillBanks(count, [&](int, bool) { return 2 + (coolgirl ? 12 : 10); });
    for (std::size_t bank = 0; bank < banks.size(); ++bank) {
        QByteArray text = QByteArray(coolgirl ? ";COOLGIRL" : ";COOLBOY") + kCrLf + bankHeader("game_final_data", banks[bank]);
        for (int game : banks[bank]) {
            const auto record = finalRecordBytes(setup.board, game);
            text += format("game_final_data_%03d;", game) + setup.names[game].toUtf8() + kCrLf;
            const char* mirroring =
                " ;Mirroring D0(0: H 1: V) Battery-backed: D1(0: N 1: Y) Four-screen: D2(0: N 1: Y)";
            if (coolgirl) {
                text += format(" .DW $%04X ;CHR 8KB offset", record[0] | record[1] << 8) + kCrLf;
                text += format(" .DB $%02X ;CHR 8KB count", record[2]) + kCrLf;
                text += format(" .DB $%02X", record[3]) + mirroring + kCrLf;
                for (int reg = 0; reg < 8; ++reg) {
                    text += format(" .DB $%02X ;Reg", record[4 + reg]) + QByteArray::number(reg) + " for PRG" + kCrLf;
                }
            } else {
                text += format(" .DB $%02X", record[0]) + mirroring + kCrLf;
                text += format(" .DB $%02X ;CHR 8KB count", record[1]) + kCrLf;
                for (int reg = 0; reg < 4; ++reg) {
                    text += format(" .DB $%02X ;Reg", record[2 + reg]) + QByteArray::number(reg) + " for CHR" + kCrLf;
                }
                for (int reg = 0; reg < 4; ++reg) {
                    text += format(" .DB $%02X ;Reg", record[6 + reg]) + QByteArray::number(reg) + " for PRG" + kCrLf;
                }
            }
        }
        text += kCrLf;
        if (!writeFile(folder + "/game_final_data_" + digitName(static_cast<int>(bank)) + ".asm", text)) {
            return false;
        }
    }
    bankCount = static_cast<int>(banks.size());
    return writeFile(folder + "/game_final_data_bank.asm", bankIndex("game_final_data_bank_index", banks));
}

// The records of the plain board code: offsets and sizes that the console turns into registers.
bool writeGameDataBanks(const MenuSetup& setup, const QString& folder, int& bankCount)
{
    const int count = static_cast<int>(setup.names.size());
    const auto banks = fillBanks(count, [](int, bool) { return 2 + 8; });
    for (std::size_t bank = 0; bank < banks.size(); ++bank) {
        QByteArray text = bankHeader("game_data", banks[bank]);
        for (int game : banks[bank]) {
            const int prgOffset = 16 + game * 16;
            const int chrOffset = 2048 + game;
            text += format("game_data_%03d;", game) + setup.names[game].toUtf8() + kCrLf;
            text += format(" .DW $%04X ;PRG offset", prgOffset) + kCrLf;
            text += format(" .DB $%02X ;PRG Size", 8) + kCrLf;
            text += format(" .DW $%04X ;CHR offset", chrOffset) + kCrLf;
            text += format(" .DB $%02X ;CHR Size", game % 3) + kCrLf;
            text += format(" .DB %%%08d ;Mirroring", game & 1) + kCrLf;
            text += format(" .DB %03d ;Mapper", game % 2 == 0 ? 4 : 0) + kCrLf;
        }
        text += kCrLf;
        if (!writeFile(folder + "/game_data_" + digitName(static_cast<int>(bank)) + ".asm", text)) {
            return false;
        }
    }
    bankCount = static_cast<int>(banks.size());
    return writeFile(folder + "/game_data_bank.asm", bankIndex("game_data_bank_index", banks));
}

// The designer's files: positions, caption, arrow, attributes, palettes, sprites, tables and pattern data.
bool writeDesignFiles(const MenuSetup& setup, const QString& folder)
{
    QByteArray sprites;
    sprites += " .DB $20,$41,$00,$10" + kCrLf;
    sprites += " .DB $20,$42,$01,$18" + kCrLf;
    // A two-sprite arrow, the second flipped below the first; the last two entries unused.
    const std::uint8_t arrow[16] = {0x2F, 0x1A, 0x00, 0x20, 0x37, 0x1A, 0x80, 0x20, 0, 0, 0, 0, 0, 0, 0, 0};
    const std::uint8_t colours[16] = {0x0F, 0x30, 0x10, 0x00, 0x0F, 0x21, 0x11, 0x01,
                                      0x0F, 0x27, 0x17, 0x07, 0x0F, 0x2A, 0x1A, 0x0A};
    return writeFile(folder + "/game_caption_addr.asm", format("TITLE_SHOW_POS = $%04X", setup.captionPpuAddr)) &&
           (setup.caption.isEmpty() || writeFile(folder + "/game_caption_data.asm", " .STR \"" + setup.caption + "\"")) &&
           writeFile(folder + "/game_page_number_addr.asm",
                     format("PAGE_INDER_SHOW_POS = $%04X", setup.pageNumberPpuAddr)) &&
           writeFile(folder + "/game_item_addr.asm", format("ITEM_SHOW_POS = $%04X", setup.itemPpuAddr)) &&
           writeFile(folder + "/game_big_arrow_data.bin", QByteArray(reinterpret_cast<const char*>(arrow), 16)) &&
           writeFile(folder + "/game_attributes_data.bin", QByteArray(64, '\x55')) &&
           writeFile(folder + "/game_bkg_palette_data.bin", QByteArray(reinterpret_cast<const char*>(colours), 16)) &&
           writeFile(folder + "/game_sprite_palette_data.bin", QByteArray(reinterpret_cast<const char*>(colours), 16)) &&
           writeFile(folder + "/game_sprite_list.asm", sprites) &&
           writeFile(folder + "/game_name_table.bin", setup.nameTable) &&
           writeFile(folder + "/custom_chr_data.bin", defaultPatternTable()) &&
           writeFile(folder + "/char_mapping.bin",
                     QByteArray(reinterpret_cast<const char*>(setup.charMap.data()), 256));
}

} // namespace

std::array<std::uint8_t, 256> MenuSetup::identityCharMap()
{
    std::array<std::uint8_t, 256> map{};
    for (int i = 0; i < 256; ++i) {
        map[i] = static_cast<std::uint8_t>(i);
    }
    return map;
}

QStringList numberedNames(int count)
{
    QStringList names;
    for (int i = 0; i < count; ++i) {
        names << QString::asprintf("GAME %04d", i);
    }
    return names;
}

std::vector<std::uint8_t> finalRecordBytes(int board, int game)
{
    std::vector<std::uint8_t> record;
    auto byte = [&](int value) { record.push_back(static_cast<std::uint8_t>(value & 0xFF)); };
    if (board == 2) {
        byte(game * 3);
        byte((game * 3) >> 8);
        byte(game % 3);
        byte(game & 1);
        for (int reg = 0; reg < 8; ++reg) {
            byte(game * 5 + reg * 17 + 1);
        }
    } else {
        byte(game & 1);
        byte(game % 3);
        for (int reg = 0; reg < 8; ++reg) {
            byte(game * 7 + reg * 13 + 2);
        }
    }
    return record;
}

std::uint8_t backgroundTile(const MenuSetup& setup, int ppuAddr, int column)
{
    const int offset = (ppuAddr & 0x3FF) + column;
    return offset < setup.nameTable.size() ? static_cast<std::uint8_t>(setup.nameTable[offset]) : 0xFF;
}

int itemShowPos(const MenuSetup& setup)
{
    if (setup.custom) {
        return setup.itemPpuAddr;
    }
    return setup.style == 0 && setup.pageSize >= 15 ? 0x20A6 : 0x20C6;
}

int titleShowPos(const MenuSetup& setup)
{
    if (setup.custom) {
        return setup.captionPpuAddr;
    }
    if (setup.style == 1) {
        return 0x2064;
    }
    const auto total = setup.names.size();
    return total > 999 ? 0x206B : total > 9 ? 0x206C : 0x206D;
}

int pageCount(const MenuSetup& setup)
{
    const auto total = static_cast<int>(setup.names.size());
    return total / setup.pageSize + (total % setup.pageSize ? 1 : 0);
}

int pageIndicatorPos(const MenuSetup& setup)
{
    if (setup.custom) {
        return setup.pageNumberPpuAddr;
    }
    const int base = setup.style == 0 ? 0x234E : 0x236E;
    const int pages = pageCount(setup);
    return base - (pages >= 100 ? 2 : pages >= 10 ? 1 : 0);
}

bool writeGeneratedFiles(const MenuSetup& setup, const QString& buildFolder)
{
    int nameBanks = 0;
    int dataBanks = 0;
    int finalBanks = 0;
    if (!writeNameBanks(setup, buildFolder, nameBanks) || !writeGameDataBanks(setup, buildFolder, dataBanks) ||
        !writeFinalDataBanks(setup, buildFolder, finalBanks) || !writeDesignFiles(setup, buildFolder)) {
        return false;
    }
    const std::pair<const char*, int> head[] = {
        {"BIG_CURSOR", setup.bigCursor},
        {"BIG_SPRITE", setup.bigSprite},
        {"CAPTION_LENGTH", static_cast<int>(setup.caption.size())},
        {"NAME_INSERT_ROW", setup.nameInsertRow},
        {"FINAL_DATA_ENABLE", setup.finalData},
        {"NAME_BANK_COUNT", nameBanks},
        {"DATA_BANK_COUNT", dataBanks},
        {"FINAL_DATA_BANK_COUNT", finalBanks},
        {"BOARD_TYPE", setup.board},
        {"MENU_PRG_SIZE", setup.prgSize},
        {"MENU_CHR_SIZE", 0},
        {"MENU_MUSIC", setup.music},
        {"PAGE_TURNING_SPEED", setup.turningSpeed},
        {"CUSTOM_MENU_ENABLE", setup.custom},
    };
    QByteArray config;
    for (const auto& [name, value] : head) {
        config += QByteArray(name) + " = " + QByteArray::number(value) + kCrLf;
    }
    const std::pair<const char*, QByteArray> tail[] = {
        {"GAMES_TOTAL", QByteArray::number(static_cast<int>(setup.names.size()))},
        {"MENU_SHOW_STYLE", QByteArray::number(setup.style)},
        {"SHOW_PAGE_NUMBER", QByteArray::number(setup.showPageNumber)},
        {"PAGE_SIZE", QByteArray::number(setup.pageSize)},
        {"SPRITE_TILE_SIZE", "2"},
        {"CURSOR_ARROW_TILE", "$1F"},
        {"CURSOR_ARROW_X", format("$%02X", ((itemShowPos(setup) & 31) - 1) * 8 - 2)},
        {"CURSOR_ARROW_Y", format("$%02X", ((itemShowPos(setup) & 0x3FF) >> 5) * 8 - 1)},
        {"CURSOR_ARROW_MODE", "$01"},
    };
    for (const auto& [name, value] : tail) {
        config += QByteArray(name) + "   =  " + value + kCrLf;
    }
    return writeFile(buildFolder + "/game_config.asm", config);
}

bool writeFilesWithGenerators(const MenuSetup& setup, const QString& buildFolder)
{
    DesignDocument design;
    design.CaptionText = DefaultCaption(setup.names.size());
    if (!design.LoadDesign()) {
        return false;
    }
    const auto board = static_cast<BoardType>(setup.board);
    std::vector<GameFinalData> records;
    for (int game = 0; game < setup.names.size(); ++game) {
        const auto bytes = finalRecordBytes(setup.board, game);
        GameFinalData record;
        record.name = setup.names[game];
        if (board == BoardType::Coolgirl) {
            record.chrOffset8k = static_cast<std::uint16_t>(bytes[0] | bytes[1] << 8);
            record.chrCount8k = bytes[2];
            record.flags = bytes[3];
            std::copy(bytes.begin() + 4, bytes.end(), record.prgReg.begin());
        } else {
            record.flags = bytes[0];
            record.chrCount8k = bytes[1];
            std::copy(bytes.begin() + 2, bytes.begin() + 6, record.chrReg.begin());
            std::copy(bytes.begin() + 6, bytes.end(), record.prgReg.begin());
        }
        records.push_back(record);
    }
    BuildOptions options;
    options.boardType = board;
    options.menuMusic = setup.music;
    options.pageTurningSpeed = setup.turningSpeed;
    options.showStyle = setup.style;
    options.pageSize = setup.pageSize;
    options.pageNumber = setup.showPageNumber;
    options.nameInsertRow = setup.nameInsertRow;
    options.customEnable = setup.custom;
    const GeneratorResult names = generateNames(setup.names, buildFolder, nameColumnFor(options, design), true);
    const GeneratorResult finals = generateFinalData(records, buildFolder, board, true);
    if (!names.filesWritten || !finals.filesWritten) {
        return false;
    }
    // In the build's order: the configuration, then the design's files.
    const BankCounts banks{names.banks, 0, finals.banks};
    const GameConfig config =
        gameConfigFor(options, design, board, setup.prgSize, static_cast<int>(setup.names.size()), banks);
    return writeGameConfig(buildFolder, config) && exportMenuData(design, buildFolder, setup.custom);
}

MenuWorkFolder::MenuWorkFolder(const MenuSetup& setup, GeneratedBy source)
{
    const QString build = folder_.path() + QLatin1Char('/') + QLatin1String(kMenuBuildFolder);
    ready_ = folder_.isValid() && ExtractMenuSources(folder_.path()).ok &&
             (source == GeneratedBy::Fixture ? writeGeneratedFiles(setup, build) : writeFilesWithGenerators(setup, build));
}

MenuWorkFolder::Assembly MenuWorkFolder::assemble() const
{
    Assembly result;
    QProcess assembler;
    assembler.setWorkingDirectory(menuFolder());
    assembler.setProcessChannelMode(QProcess::MergedChannels);
    assembler.start(folder_.path() + QLatin1Char('/') + QLatin1String(kMenuAssembler),
                    {folder_.path() + QLatin1Char('/') + QLatin1String(kMenuMainSource)});
    if (!assembler.waitForFinished(60000)) {
        result.output = QStringLiteral("the assembler did not finish: ") + assembler.errorString();
        return result;
    }
    result.exitCode = assembler.exitStatus() == QProcess::NormalExit ? assembler.exitCode() : -1;
    result.output = QString::fromLocal8Bit(assembler.readAll());
    QFile rom(menuFolder() + QStringLiteral("/menu.nes"));
    if (rom.open(QIODevice::ReadOnly)) {
        result.rom = rom.readAll();
    }
    return result;
}

} // namespace zunbrix::testing
