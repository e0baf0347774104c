#include "multicart/validation.h"

#include "frame/text_format.h"
#include "frame/text_ids.h"

#include <algorithm>
#include <array>
#include <span>

namespace zunbrix {

namespace {

constexpr std::size_t kMaxReportedGames = 20;
constexpr std::array<std::uint32_t, 7> kChrBankSteps{0, 1, 2, 4, 8, 16, 32};
constexpr std::uint32_t kCoolboyMinPrgBanks = 8; // the board's PRG window grows in steps of 128 KB
constexpr std::uint64_t kCoolboyMaxRomBytes = 32u << 20;
constexpr std::uint64_t kCoolgirlMaxRomBytes = 512u << 20;

// Room for the menu's data banks, by the menu's PRG size in 16 KB banks.
struct OverflowLimits {
    std::uint32_t menuBanks;
    std::uint32_t nameBanks;
    std::uint32_t dataBanks;
    std::uint32_t finalBanks;
};
constexpr std::array<OverflowLimits, 2> kOverflowLimits{{
    {16, 10, 8, 8},
    {32, 16, 12, 12},
}};
// Any other menu size, the large ones among them, gets the room of a 128 KB menu.
constexpr OverflowLimits kDefaultOverflowLimits{0, 5, 4, 4};

} // namespace

QString unsupportedReason(const NesImage& image, BoardType board, Language language)
{
    const std::span<const std::uint16_t> mappers = boardMappers(board);
    const auto number = (long long)image.listIndex + 1;
    const auto pattern = [language](int id) { return StringTable::Get(id, language); };
    const auto mapperNotSupported = [&] {
        return FormatText(pattern(text::MapperNotSupported), {number, image.name, (long long)image.mapper});
    };
    if (!image.valid)
        return FormatText(pattern(text::NotNesFile), {number, image.name});
    if (std::find(mappers.begin(), mappers.end(), image.mapper) == mappers.end())
        return mapperNotSupported();
    if (image.hasTrainer)
        return FormatText(pattern(text::TrainerNotSupported), {number, image.name});
    const MapperSizeRow* row = findMapperSizeRow(image.mapper);
    if (row == nullptr)
        return mapperNotSupported();
    // PRG is tested as the header gives it, CHR as the layout reserves it; the line shows both as read.
    if (!row->prgBanks.contains(image.prgBanks) || !row->chrBanks.contains(image.chrLayoutBanks))
        return FormatText(pattern(text::SizeNotSupported),
                          {number, image.name, (long long)image.prgBanks * 16, (long long)image.chrBanks * 8});
    return {};
}

namespace {

bool validate(const std::vector<NesImage>& images, BoardType board, Language language, QString& text,
              std::vector<FileProblem>* problems)
{
    text.clear();
    if (problems)
        problems->clear();
    std::size_t failures = 0;
    for (const NesImage& image : images) {
        if (failures == kMaxReportedGames)
            break;
        const QString reason = unsupportedReason(image, board, language);
        if (reason.isEmpty())
            continue;
        text += reason + QStringLiteral("\r\n");
        if (problems)
            problems->push_back(image.problem);
        ++failures;
    }
    return failures == 0;
}

} // namespace

void normaliseChr(std::vector<NesImage>& images)
{
    for (NesImage& image : images) {
        if (std::find(kChrBankSteps.begin(), kChrBankSteps.end(), image.chrBanks) != kChrBankSteps.end())
            continue;
        const auto step = std::upper_bound(kChrBankSteps.begin(), kChrBankSteps.end(), image.chrBanks);
        if (step != kChrBankSteps.end())
            image.setChrLayoutBanks(*step);
    }
}

void normalisePrg(std::vector<NesImage>& images)
{
    for (NesImage& image : images)
        if (image.mapper != 0 && image.prgBanks != 0 && image.prgBanks < kCoolboyMinPrgBanks)
            image.setPrgLayoutBanks(kCoolboyMinPrgBanks);
}

bool validateCoolboy(const std::vector<NesImage>& images, Language language, QString& text,
                     std::vector<FileProblem>* problems)
{
    return validate(images, BoardType::Coolboy, language, text, problems);
}

bool validateCoolgirl(const std::vector<NesImage>& images, Language language, QString& text,
                      std::vector<FileProblem>* problems)
{
    return validate(images, BoardType::Coolgirl, language, text, problems);
}

bool checkMenu(const NesImage& menu, Language language, QString& text)
{
    constexpr std::array<std::uint32_t, 5> kMenuPrgBanks{8, 16, 32, 64, 128};
    text.clear();
    if (menu.valid && menu.chrBanks == 0 &&
        std::find(kMenuPrgBanks.begin(), kMenuPrgBanks.end(), menu.prgBanks) != kMenuPrgBanks.end())
        return true;
    text = FormatText(StringTable::Get(text::MenuError, language),
                      {menu.path, (long long)menu.mapper, (long long)menu.prgBanks * 16, (long long)menu.chrBanks * 8}) +
           QStringLiteral("\r\n");
    return false;
}

bool checkGameCount(std::size_t games, Language language, QString& text)
{
    text.clear();
    if (games <= kMaxMenuGames)
        return true;
    text = FormatText(StringTable::Get(text::TooManyForMenu, language), {(long long)kMaxMenuGames, (long long)games});
    return false;
}

bool checkOverflow(std::uint32_t menuLayoutBanks, std::uint32_t nameBanks, std::uint32_t dataBanks,
                   std::uint32_t finalBanks, Language language, QString& text)
{
    OverflowLimits limits = kDefaultOverflowLimits;
    for (const OverflowLimits& row : kOverflowLimits)
        if (row.menuBanks == menuLayoutBanks)
            limits = row;
    text = FormatText(StringTable::Get(text::MenuBanksOverflow, language),
                      {(long long)nameBanks, (long long)limits.nameBanks, (long long)dataBanks,
                       (long long)limits.dataBanks, (long long)finalBanks, (long long)limits.finalBanks});
    return nameBanks <= limits.nameBanks && dataBanks <= limits.dataBanks && finalBanks <= limits.finalBanks;
}

RomSizeLimit romSizeLimit(BoardType boardType)
{
    // The COOLBOY text spells its 32 MB out; the COOLGIRL one takes the limit as arguments.
    if (boardType == BoardType::Coolgirl)
        return {kCoolgirlMaxRomBytes, text::RomBeyondBoardLimit};
    return {kCoolboyMaxRomBytes, text::FinalRomTooLarge};
}

bool checkRomSize(const LayoutResult& layout, BoardType boardType, Language language, QString& text)
{
    text.clear();
    const RomSizeLimit limit = romSizeLimit(boardType);
    if (layout.romBytes <= limit.maxBytes)
        return true;
    text = FormatText(StringTable::Get(limit.refusalTextId, language),
                      {layout.romBytes / 1048576.0, (long long)(layout.romBytes / 1024),
                       (long long)(limit.maxBytes >> 20), (long long)(limit.maxBytes >> 10)});
    return false;
}

} // namespace zunbrix
