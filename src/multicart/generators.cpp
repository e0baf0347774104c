#include "multicart/generators.h"

#include "multicart/bank_files.h"
#include "frame/generated_text.h"
#include "multicart/offset_report.h"

#include <QDebug>

#include <algorithm>

namespace zunbrix {

namespace {

constexpr int kRowColumns = 32;
constexpr int kPointerBytes = 2;
constexpr int kStrOverheadBytes = 1; // the length byte of a .STR
constexpr int kGameDataBytes = 8;
constexpr int kCoolboyFinalBytes = 10;
constexpr int kCoolgirlFinalBytes = 12;

constexpr BankKind kNameBanks{"game_list", "game_name", 16, ""};
constexpr BankKind kGameDataBanks{"game_data", "game_data", 8, ""};
constexpr BankKind kCoolboyFinalBanks{"game_final_data", "game_final_data", 8, ";COOLBOY\r\n"};
constexpr BankKind kCoolgirlFinalBanks{"game_final_data", "game_final_data", 8, ";COOLGIRL\r\n"};

constexpr const char* kFlagsComment = ";Mirroring D0(0: H 1: V) Battery-backed: D1(0: N 1: Y) Four-screen: D2(0: N 1: Y)";

// The menu's font has upper case only, and its bytes are the character codes: anything above 128 shows as "?".
QString menuName(const QString& name)
{
    QString shown = name;
    for (QChar& c : shown) {
        if (c.unicode() > 128)
            c = QLatin1Char('?');
        else if (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
            c = QChar(c.unicode() - 'a' + 'A');
    }
    return shown;
}

GeneratorResult generateBanks(const BankKind& kind, int gameCount, const EntryCost& cost, const EntryText& entry,
                              const QString& folder, bool write)
{
    const BankPlan plan = planBanks(gameCount, cost);
    GeneratorResult result{false, plan.bankCount()};
    if (write && !writeBankFiles(kind, plan, folder, entry))
        return result;
    result.filesWritten = writeBankIndex(kind, plan, folder);
    return result;
}

std::vector<const NesImage*> gamesOf(const std::vector<NesImage>& images)
{
    std::vector<const NesImage*> games;
    games.reserve(images.size());
    for (const NesImage& image : images) {
        if (!image.isMenu)
            games.push_back(&image);
    }
    return games;
}

void appendFlashPlace(std::string& text, std::uint64_t offset, std::uint32_t crc32, std::uint64_t layoutBytes)
{
    const auto offset8k = std::uint32_t(offset >> 13);
    appendFormat(text, " .DW $%04X ;%s %08llX CRC32: %08X Size: %08llX\r\n", offset8k,
                 binaryDigits(offset8k, 12).c_str(), (unsigned long long)offset, crc32,
                 (unsigned long long)layoutBytes);
}

void appendGameData(std::string& text, const NesImage& image)
{
    appendFormat(text, ";%s\r\n", image.name.toUtf8().constData());
    appendFlashPlace(text, image.prgOffset, image.prgCrc32, image.prgLayoutBytes);
    appendFormat(text, " .DB $%02X ;PRG Size\r\n", image.prgLayoutBanks);
    appendFlashPlace(text, image.chrOffset, image.chrCrc32, image.chrLayoutBytes);
    appendFormat(text, " .DB $%02X ;CHR Size\r\n", image.chrLayoutBanks);
    const std::uint32_t flags = (image.verticalMirroring ? 1u : 0u) | (image.battery ? 2u : 0u)
        | (image.fourScreen ? 4u : 0u);
    appendFormat(text,
                 " .DB %%%s ;Mirroring D0(0: H 1: V) Battery: D1(0: N 1: Y) Four-Screen: D2(0: N 1: Y)\r\n",
                 binaryDigits(flags, 8).c_str());
    appendFormat(text, " .DB %03u ;Mapper\r\n", image.mapper);
}

void appendCoolboyFinalData(std::string& text, const GameFinalData& game)
{
    appendFormat(text, ";%s\r\n", game.name.toUtf8().constData());
    appendFormat(text, " .DB $%02X %s\r\n", unsigned{game.flags}, kFlagsComment);
    appendFormat(text, " .DB $%02X ;CHR 8KB count\r\n", unsigned{game.chrCount8k});
    for (int reg = 0; reg < 4; ++reg)
        appendFormat(text, " .DB $%02X ;Reg%d for CHR\r\n", unsigned{game.chrReg[static_cast<std::size_t>(reg)]}, reg);
    for (int reg = 0; reg < 4; ++reg)
        appendFormat(text, " .DB $%02X ;Reg%d for PRG\r\n", unsigned{game.prgReg[static_cast<std::size_t>(reg)]}, reg);
}

void appendCoolgirlFinalData(std::string& text, const GameFinalData& game)
{
    appendFormat(text, ";%s\r\n", game.name.toUtf8().constData());
    appendFormat(text, " .DW $%04X ;CHR 8KB offset\r\n", unsigned{game.chrOffset8k});
    appendFormat(text, " .DB $%02X ;CHR 8KB count\r\n", unsigned{game.chrCount8k});
    appendFormat(text, " .DB $%02X %s\r\n", unsigned{game.flags}, kFlagsComment);
    for (int reg = 0; reg < 8; ++reg)
        appendFormat(text, " .DB $%02X ;Reg%d for PRG\r\n", unsigned{game.prgReg[static_cast<std::size_t>(reg)]}, reg);
}

} // namespace

GeneratorResult generateNames(const QStringList& names, const QString& folder, int nameColumn, bool write)
{
    if (names.isEmpty()) {
        qDebug("file list is empty!");
        return {};
    }
    QStringList shown;
    shown.reserve(names.size());
    for (const QString& name : names)
        shown.push_back(menuName(name));

    // A name is cut where the screen's row ends, except the one that opens a new bank: it goes in whole.
    const auto lengthOf = [&](int game, bool opensBank) {
        const int length = static_cast<int>(shown[game].size());
        if (opensBank || length + nameColumn <= kRowColumns)
            return length;
        return std::max(0, kRowColumns - nameColumn);
    };
    const auto cost = [&](int game, bool opensBank) {
        return kPointerBytes + kStrOverheadBytes + lengthOf(game, opensBank);
    };
    // One byte a character, as the bank counted it: after menuName every character is at most 128.
    const auto entry = [&](std::string& text, int game, bool opensBank) {
        const QString name = shown[game].left(lengthOf(game, opensBank));
        if (name.isEmpty())
            text += " .DB $00\r\n";
        else
            text.append(" .STR ").append(quotedString(name.toLatin1().toStdString())).append(kLineEnd);
    };

    GeneratorResult result =
        generateBanks(kNameBanks, static_cast<int>(shown.size()), cost, entry, folder, write);
    if (!result.filesWritten)
        return result;
    std::string title;
    appendFormat(title, " .STR \"%d IN 1\"", static_cast<int>(names.size()));
    result.filesWritten = writeWholeFile(filePathIn(folder, "game_title.asm"), title);
    return result;
}

GeneratorResult generateGameData(const std::vector<NesImage>& images, const QString& folder, bool write)
{
    const std::vector<const NesImage*> games = gamesOf(images);
    const auto cost = [](int, bool) { return kPointerBytes + kGameDataBytes; };
    const auto entry = [&](std::string& text, int game, bool) {
        appendGameData(text, *games[static_cast<std::size_t>(game)]);
    };
    GeneratorResult result =
        generateBanks(kGameDataBanks, static_cast<int>(games.size()), cost, entry, folder, write);
    if (result.filesWritten)
        result.filesWritten = writeOffsetReport(games, folder);
    return result;
}

GeneratorResult generateFinalData(const std::vector<GameFinalData>& finalData, const QString& folder, BoardType boardType,
                                  bool write)
{
    const bool coolboy = boardType == BoardType::Coolboy || boardType == BoardType::Mindkids;
    const int recordBytes = coolboy ? kCoolboyFinalBytes : kCoolgirlFinalBytes;
    const auto cost = [=](int, bool) { return kPointerBytes + recordBytes; };
    const auto entry = [&](std::string& text, int game, bool) {
        const GameFinalData& data = finalData[static_cast<std::size_t>(game)];
        if (coolboy)
            appendCoolboyFinalData(text, data);
        else
            appendCoolgirlFinalData(text, data);
    };
    return generateBanks(coolboy ? kCoolboyFinalBanks : kCoolgirlFinalBanks, static_cast<int>(finalData.size()), cost,
                         entry, folder, write);
}

BankCounts generateGameSources(const QStringList& names, const std::vector<NesImage>& images, const QString& folder,
                               BoardType boardType, int nameColumn, bool write)
{
    BankCounts counts;
    counts.names = generateNames(names, folder, nameColumn, write).banks;
    counts.data = generateGameData(images, folder, write).banks;
    counts.finalData = generateFinalData(computeFinalData(images, boardType), folder, boardType, write).banks;
    return counts;
}

} // namespace zunbrix
