#include "multicart/bank_files.h"

#include "frame/generated_text.h"

#include <QFile>

namespace zunbrix {

namespace {

constexpr int kItemsPerLine = 10;

// `count` items in lines of ten behind `directive`, separated by commas, every line ended.
template <typename AppendItem>
void appendTenPerLine(std::string& text, std::string_view directive, int count, const AppendItem& appendItem)
{
    for (int i = 0; i < count; ++i) {
        if (i % kItemsPerLine == 0)
            text += directive;
        else
            text += ',';
        appendItem(i);
        if (i % kItemsPerLine == kItemsPerLine - 1 || i + 1 == count)
            text += kLineEnd;
    }
}

std::string bankFileName(const BankKind& kind, int bank)
{
    std::string name(kind.fileStem);
    appendFormat(name, "_%X.asm", static_cast<unsigned>(bank));
    return name;
}

std::string bankText(const BankKind& kind, const BankPlan& plan, int bank, const EntryText& entry)
{
    const int first = plan.firstGameOfBank[static_cast<std::size_t>(bank)];
    const int end = bank + 1 < plan.bankCount() ? plan.firstGameOfBank[static_cast<std::size_t>(bank) + 1]
                                                : static_cast<int>(plan.bankOfGame.size());
    std::string text(kind.preamble);
    text += kind.labelStem;
    appendFormat(text, "_begin_%.3d\r\n .WORD %d\r\n", first, first);
    text += kind.labelStem;
    appendFormat(text, "_list_%.3d\r\n", first);

    appendTenPerLine(text, " .WORD ", end - first, [&](int i) {
        text += kind.labelStem;
        appendFormat(text, "_%.3d", first + i);
    });
    text += kLineEnd;

    for (int game = first; game < end; ++game) {
        text += kind.labelStem;
        appendFormat(text, "_%.3d", game);
        entry(text, game, plan.opensBank(game));
    }
    return text;
}

} // namespace

bool BankPlan::opensBank(int game) const
{
    const int bank = bankOfGame[static_cast<std::size_t>(game)];
    return bank > 0 && firstGameOfBank[static_cast<std::size_t>(bank)] == game;
}

BankPlan planBanks(int gameCount, const EntryCost& cost)
{
    BankPlan plan;
    plan.bankOfGame.reserve(static_cast<std::size_t>(gameCount));
    int used = kDataBankStartBytes;
    for (int game = 0; game < gameCount; ++game) {
        if (plan.firstGameOfBank.empty())
            plan.firstGameOfBank.push_back(game);
        used += cost(game, false);
        if (used > kDataBankBytes) {
            plan.firstGameOfBank.push_back(game);
            used = kDataBankStartBytes + cost(game, true);
        }
        plan.bankOfGame.push_back(plan.bankCount() - 1);
    }
    return plan;
}

bool writeBankFiles(const BankKind& kind, const BankPlan& plan, const QString& folder, const EntryText& entry)
{
    for (int bank = 0; bank < plan.bankCount(); ++bank) {
        if (!writeWholeFile(filePathIn(folder, bankFileName(kind, bank)), bankText(kind, plan, bank, entry)))
            return false;
    }
    for (int bank = plan.bankCount(); bank < kind.maintainedBanks; ++bank)
        QFile::remove(filePathIn(folder, bankFileName(kind, bank)));
    return true;
}

bool writeBankIndex(const BankKind& kind, const BankPlan& plan, const QString& folder)
{
    std::string text(kind.fileStem);
    text += "_bank_index\r\n";
    appendTenPerLine(text, " .DB ", static_cast<int>(plan.bankOfGame.size()), [&](int game) {
        appendFormat(text, "$%02X", static_cast<unsigned>(plan.bankOfGame[static_cast<std::size_t>(game)]));
    });
    std::string fileName(kind.fileStem);
    fileName += "_bank.asm";
    return writeWholeFile(filePathIn(folder, fileName), text);
}

} // namespace zunbrix
