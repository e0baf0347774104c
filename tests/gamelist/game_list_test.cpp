#include "multicart/synthetic_rom.h"
#include "frame/paths.h"
#include "gamelist/game_list.h"
#include "gamelist/list_file.h"
#include "frame/text_format.h"
#include "support/generated_file.h"

#include <QAbstractItemModelTester>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace zunbrix;
using zunbrix::testing::SyntheticRom;
using zunbrix::testing::writeFile;
using zunbrix::testing::writeRom;

namespace {

constexpr ListMove kAllMoves[] = {ListMove::Up, ListMove::Down, ListMove::Top, ListMove::Bottom};

// An entry of a game that is not on disk, with the header bytes that the sort keys read.
GameEntry entryNamed(const QString& name, bool checked = false)
{
    GameEntry entry = GameEntry::unread(QStringLiteral("/games/") + name + QStringLiteral(".nes"));
    entry.checked = checked;
    entry.headerRead = true;
    return entry;
}

GameFiles filesOf(std::vector<GameEntry> entries)
{
    GameFiles files;
    files.entries = std::move(entries);
    return files;
}

// A list of one entry per letter, named by it; an upper-case letter is a checked entry.
void fill(GameList& list, const QString& letters)
{
    GameFiles files;
    for (QChar letter : letters)
        files.entries.push_back(entryNamed(QString(letter), letter.isUpper()));
    list.append(std::move(files));
}

// The list read back as the first letters of the names, checked entries in upper case.
QString lettersOf(const GameList& list)
{
    QString letters;
    for (const GameEntry& entry : list.entries())
        letters += entry.checked ? entry.name.left(1).toUpper() : entry.name.left(1).toLower();
    return letters;
}

// Watches the model's signals for the life of the test and fails it on any breach of the item model rules.
class CheckedModel {
public:
    CheckedModel() : tester_(&list, QAbstractItemModelTester::FailureReportingMode::Warning) {}
    ~CheckedModel() { EXPECT_TRUE(messages_.lines.isEmpty()) << messages_.lines.join('\n').toStdString(); }
    CheckedModel(const CheckedModel&) = delete;
    CheckedModel& operator=(const CheckedModel&) = delete;

    GameList list;

private:
    DebugMessages messages_;
    QAbstractItemModelTester tester_;
};

QString cell(const GameList& list, int row, int column, int role = Qt::DisplayRole)
{
    return list.data(list.index(row, column), role).toString();
}

} // namespace

TEST(GameListColumns, CellsHeadersAlignmentAndRowColours)
{
    CheckedModel model;
    GameList& list = model.list;
    GameEntry game = entryNamed(QStringLiteral("Tank"), true);
    game.header[4] = 8;
    game.header[5] = 16;
    game.header[6] = 0x43; // mapper 4, vertical mirroring, battery
    game.remark = QStringLiteral("two players");
    list.append(filesOf({game, entryNamed(QStringLiteral("b")), entryNamed(QStringLiteral("c"))}));

    const QStringList row = {"1", "Tank", " 8 (128KB)", "16 (128KB)", "4", "V", "Yes", "No", "NO", "NO",
                             "two players", "/games/Tank.nes"};
    for (int column = 0; column < kListColumnCount; ++column)
        EXPECT_EQ(cell(list, 0, column), row[column]) << column;
    EXPECT_EQ(cell(list, 2, 0), "3");
    EXPECT_EQ(list.data(list.index(0, 0), Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_EQ(list.data(list.index(1, 0), Qt::CheckStateRole).toInt(), Qt::Unchecked);
    EXPECT_FALSE(list.data(list.index(0, 1), Qt::CheckStateRole).isValid());

    EXPECT_EQ(list.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), "Number");
    EXPECT_EQ(list.headerData(11, Qt::Horizontal, Qt::DisplayRole).toString(), "File path");
    const int right = Qt::AlignRight | Qt::AlignVCenter;
    const int left = Qt::AlignLeft | Qt::AlignVCenter;
    const std::vector<int> alignments = {right, left, right, right, right, Qt::AlignCenter, Qt::AlignCenter,
                                         Qt::AlignCenter, Qt::AlignCenter, Qt::AlignCenter, left, left};
    for (int column = 0; column < kListColumnCount; ++column)
        EXPECT_EQ(list.data(list.index(1, column), Qt::TextAlignmentRole).toInt(), alignments[column]) << column;

    // Fills by check mark, selection and odd row, as 0xAARRGGBB.
    const auto colour = [&](int row, int role) { return list.data(list.index(row, 3), role).toUInt(); };
    EXPECT_EQ(colour(0, GameList::RowFillRole), 0xFF96E1FFu);
    EXPECT_EQ(colour(0, GameList::SelectedRowFillRole), 0xFF90ACFFu);
    EXPECT_EQ(colour(1, GameList::RowFillRole), 0xFFC8F0FFu);
    EXPECT_EQ(colour(2, GameList::RowFillRole), 0xFFC8E1FFu);
    EXPECT_EQ(colour(1, GameList::SelectedRowFillRole), 0xFFACACFFu);
    EXPECT_EQ(colour(1, GameList::TextColourRole), 0xFF101217u);
    EXPECT_FALSE(list.data(list.index(0, 3), GameList::TextColourRole).isValid());
    list.checkAll();
    EXPECT_EQ(colour(1, GameList::RowFillRole), 0xFF96F0FFu);

    list.setLanguage(Language::Chinese);
    EXPECT_EQ(list.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QString::fromUtf8("序号"));
    EXPECT_EQ(cell(list, 0, 5), QString::fromUtf8("垂直"));
    EXPECT_EQ(list.summaryLine(), QString::fromUtf8("已选中: 3 项 总共: 3 项"));
}

// A "NO" says why, in the list's language, as the board's check words it; a "YES" says nothing.
TEST(GameListColumns, UnfitGamesSayWhyInTheirToolTip)
{
    QTemporaryDir folder;
    GameList list;
    const QStringList names = {
        writeRom(folder.filePath("mmc1.nes"), {.mapper = 1, .prgBanks = 8, .chrBanks = 4}),
        writeRom(folder.filePath("big.nes"), {.mapper = 2, .prgBanks = 64, .chrBanks = 0}),
        writeRom(folder.filePath("trainer.nes"), {.mapper = 4, .prgBanks = 3, .chrBanks = 2, .flags6 = 0x04}),
        writeRom(folder.filePath("nrom.nes"), {.mapper = 0, .prgBanks = 2, .chrBanks = 1}),
        writeFile(folder.filePath("broken.nes"), QByteArray(8, 'x')),
    };
    for (const QString& name : names)
        list.append(filesOf({GameEntry(name)}));
    const auto tip = [&](int row, int column) { return cell(list, row, column, Qt::ToolTipRole); };

    EXPECT_EQ(tip(0, kCoolboyColumn), "1.mmc1 Mapper1 not supported!");
    EXPECT_EQ(tip(0, kCoolgirlColumn), "") << "COOLGIRL takes it";
    EXPECT_EQ(tip(1, kCoolgirlColumn), "2.big PRG = 1024KB CHR = 0KB not supported!");
    EXPECT_EQ(tip(2, kCoolboyColumn), "3.trainer Trainer not supported!");
    EXPECT_EQ(tip(3, kCoolboyColumn), "");
    EXPECT_EQ(tip(3, kNameColumn), "");
    EXPECT_EQ(tip(4, kCoolgirlColumn), "5.broken Not a valid NES file!");

    list.setLanguage(Language::Chinese);
    EXPECT_EQ(tip(0, kCoolboyColumn), QString::fromUtf8("1.mmc1 Mapper1 不支持!"));
}

TEST(GameListChecks, CheckInvertRemoveClearAndTheSummaryLine)
{
    CheckedModel model;
    GameList& list = model.list;
    EXPECT_FALSE(list.clearQuestion()) << "an empty list is cleared without a question";
    fill(list, "aBcDe");
    EXPECT_EQ(list.summaryLine(), "Selected: 2 item(s) All: 5 item(s)");

    list.invertAll();
    EXPECT_EQ(lettersOf(list), "AbCdE");
    list.removeChecked();
    EXPECT_EQ(lettersOf(list), "bd");
    list.checkAll();
    EXPECT_EQ(list.summaryLine(), "Selected: 2 item(s) All: 2 item(s)");

    const std::optional<ListMessage> question = list.clearQuestion();
    ASSERT_TRUE(question);
    EXPECT_EQ(question->text(Language::English), "Confirm emptying the list?");
    EXPECT_EQ(question->titleId, text::TitleTips);
    list.clear();
    EXPECT_EQ(list.rowCount(), 0);
    EXPECT_EQ(list.summaryLine(), "Selected: 0 item(s) All: 0 item(s)");
}

TEST(GameListMoves, UpAndDownKeepTheGapBetweenBlocks)
{
    CheckedModel model;
    GameList& list = model.list;
    fill(list, "abCDefGhi");
    const QPersistentModelIndex c(list.index(2, kNameColumn));

    ListChange change = list.moveChecked(ListMove::Up);
    EXPECT_EQ(lettersOf(list), "aCDbeGfhi");
    EXPECT_EQ(change.rowToShow, 1);
    EXPECT_FALSE(change.message);
    EXPECT_EQ(c.row(), 1) << "a view's indexes follow their entries";

    change = list.moveChecked(ListMove::Down);
    EXPECT_EQ(lettersOf(list), "abCDefGhi");
    EXPECT_EQ(change.rowToShow, 6);
    list.moveChecked(ListMove::Down);
    list.moveChecked(ListMove::Down);
    EXPECT_EQ(lettersOf(list), "abefCDhiG");
    EXPECT_EQ(list.moveChecked(ListMove::Down).rowToShow, -1) << "the last block is at the bottom: nothing moves";
    EXPECT_EQ(lettersOf(list), "abefCDhiG");
}

TEST(GameListMoves, TopAndBottomGatherTheCheckedInTheirOrder)
{
    CheckedModel model;
    GameList& list = model.list;
    fill(list, "aBcDeF");
    EXPECT_EQ(list.moveChecked(ListMove::Top).rowToShow, 0);
    EXPECT_EQ(lettersOf(list), "BDFace");
    EXPECT_EQ(list.moveChecked(ListMove::Bottom).rowToShow, 5);
    EXPECT_EQ(lettersOf(list), "aceBDF");
}

TEST(GameListMoves, NothingMovesPastTheEndsOrWithoutCheckedEntries)
{
    GameList list;
    fill(list, "abc");
    for (ListMove move : kAllMoves) {
        const ListChange change = list.moveChecked(move);
        EXPECT_FALSE(change.message);
        EXPECT_EQ(change.rowToShow, -1);
    }
    list.checkAll();
    for (ListMove move : kAllMoves) {
        EXPECT_EQ(list.moveChecked(move).rowToShow, -1);
        EXPECT_EQ(lettersOf(list), "ABC");
    }
}

// Over the limit every move is refused with text 196 and the order stays, the bottom move too.
TEST(GameListMoves, MoreThanAHundredCheckedAreRefusedAndTheOrderKept)
{
    GameList list;
    GameFiles files;
    files.entries.push_back(entryNamed(QStringLiteral("top")));
    for (int i = 0; i < 101; ++i)
        files.entries.push_back(entryNamed(QString::number(i), true));
    files.entries.push_back(entryNamed(QStringLiteral("bottom")));
    list.append(std::move(files));
    ASSERT_EQ(list.checkedCount(), 101);
    const std::vector<GameEntry> before = list.entries();

    for (ListMove move : kAllMoves) {
        const ListChange change = list.moveChecked(move);
        ASSERT_TRUE(change.message);
        EXPECT_EQ(change.message->text(Language::English), "Too many moving entries selected, maximum 100 entries");
        EXPECT_EQ(change.message->titleId, text::TitleWarn);
        for (std::size_t i = 0; i < before.size(); ++i)
            ASSERT_EQ(list.entries()[i].name, before[i].name) << i;
    }
    list.clicked(2, Qt::NoModifier, true); // 100 checked: the limit itself moves
    EXPECT_FALSE(list.moveChecked(ListMove::Bottom).message);
    EXPECT_EQ(list.entries()[1].name, "1");
    EXPECT_EQ(list.entries()[2].name, "bottom");
    EXPECT_EQ(list.entries()[3].name, "0");
    EXPECT_EQ(list.entries().back().name, "100");
}

TEST(GameListSort, HeaderClicksSortByTheColumnsKeysAndRepeatClicksReverse)
{
    CheckedModel model;
    GameList& list = model.list;
    GameFiles files;
    const std::vector<std::tuple<const char*, int, const char*>> games = {
        {"delta", 8, "x"}, {"alpha", 16, "y"}, {"Bravo", 2, "Z"}, {"charlie", 1, ""}};
    for (const auto& [name, prg, remark] : games) {
        GameEntry entry = entryNamed(QString::fromLatin1(name));
        entry.header[4] = std::uint8_t(prg);
        entry.remark = QString::fromLatin1(remark);
        files.entries.push_back(entry);
    }
    list.append(std::move(files));
    const QPersistentModelIndex bravo(list.index(2, kNameColumn));

    list.sortByHeaderClick(kNameColumn);
    EXPECT_EQ(lettersOf(list), "abcd") << "names compare in upper case";
    EXPECT_EQ(bravo.row(), 1);
    list.sortByHeaderClick(kNumberColumn); // does nothing at all, not even end the repeat
    EXPECT_EQ(lettersOf(list), "abcd");
    list.sortByHeaderClick(kNameColumn);
    EXPECT_EQ(lettersOf(list), "dcba");
    EXPECT_EQ(bravo.row(), 2);
    list.sortByHeaderClick(kNameColumn);
    EXPECT_EQ(lettersOf(list), "abcd");

    list.sortByHeaderClick(2); // PRG banks
    EXPECT_EQ(lettersOf(list), "cbda");
    list.sortByHeaderClick(kCoolboyColumn); // the remark, as the program always did
    EXPECT_EQ(lettersOf(list), "cdab");
}

TEST(GameListSort, CoolgirlAndRemarkColumnsOnlyReverseOnARepeatClick)
{
    for (int column : {kCoolgirlColumn, kRemarkColumn}) {
        GameList list;
        fill(list, "cadb");
        list.sortByHeaderClick(column);
        EXPECT_EQ(lettersOf(list), "cadb") << column;
        list.sortByHeaderClick(column);
        EXPECT_EQ(lettersOf(list), "bdac") << column;
        list.sortByHeaderClick(column);
        EXPECT_EQ(lettersOf(list), "bdac") << column;
    }
}

TEST(GameListFind, TypedTextFindsABeginningFromTheStartRowThenAnyPlace)
{
    GameList list;
    GameFiles files;
    for (const char* name : {"Contra", "Castlevania", "Super Contra", "Contra Force", "castle"})
        files.entries.push_back(entryNamed(QString::fromLatin1(name)));
    list.append(std::move(files));

    EXPECT_EQ(list.findByTypedText(QStringLiteral("Contra"), 0), 0);
    EXPECT_EQ(list.findByTypedText(QStringLiteral("Contra"), 1), 3) << "from the start row down";
    EXPECT_EQ(list.findByTypedText(QStringLiteral("Contra"), 4), 0) << "then from the top";
    EXPECT_EQ(list.findByTypedText(QStringLiteral("Cast"), 2), 1) << "case counts";
    EXPECT_EQ(list.findByTypedText(QStringLiteral("tra F"), 0), 3) << "a beginning first, then anywhere";
    EXPECT_EQ(list.findByTypedText(QStringLiteral("ontra"), 3), 3);
    EXPECT_EQ(list.findByTypedText(QStringLiteral("Zelda"), 0), -1);
}

TEST(GameListEdit, NameAndRemarkAreEditedInPlaceUpToTheLimit)
{
    CheckedModel model;
    GameList& list = model.list;
    fill(list, "ab");
    EXPECT_TRUE(list.flags(list.index(0, kNameColumn)).testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(list.flags(list.index(0, kRemarkColumn)).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(list.flags(list.index(0, kPathColumn)).testFlag(Qt::ItemIsEditable));
    EXPECT_EQ(cell(list, 0, kNameColumn, Qt::EditRole), "a");

    EXPECT_TRUE(list.setData(list.index(1, kNameColumn), QString(300, QLatin1Char('n')), Qt::EditRole));
    EXPECT_EQ(list.entries()[1].name, QString(260, QLatin1Char('n')));
    EXPECT_TRUE(list.setData(list.index(0, kRemarkColumn), QStringLiteral("best"), Qt::EditRole));
    EXPECT_EQ(list.entries()[0].remark, "best");
    EXPECT_FALSE(list.setData(list.index(0, kPathColumn), QStringLiteral("/x.nes"), Qt::EditRole));
    EXPECT_EQ(list.entries()[0].path, "/games/a.nes");

    for (int key : {Qt::Key_Tab, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape})
        EXPECT_TRUE(EndsInPlaceEdit(key)) << key;
    EXPECT_FALSE(EndsInPlaceEdit(Qt::Key_A));
    EXPECT_FALSE(EndsInPlaceEdit(Qt::Key_Left));
}

TEST(GameListClicks, CtrlChecksShiftChecksARangeAndThePlainClickToggles)
{
    CheckedModel model;
    GameList& list = model.list;
    fill(list, "abcdefg");
    list.clicked(1, Qt::NoModifier, false);
    EXPECT_EQ(lettersOf(list), "abcdefg") << "off the check box a plain click checks nothing";
    list.clicked(1, Qt::NoModifier, true);
    list.clicked(1, Qt::ControlModifier, true);
    EXPECT_EQ(lettersOf(list), "aBcdefg") << "Ctrl checks, it doesn't toggle";
    list.clicked(4, Qt::ShiftModifier, false);
    EXPECT_EQ(lettersOf(list), "aBCDEfg");
    list.clicked(0, Qt::ShiftModifier | Qt::ControlModifier, false);
    EXPECT_EQ(lettersOf(list), "ABCDEfg") << "a Shift click keeps the anchor of the last other click";
    list.clicked(6, Qt::NoModifier, true);
    list.clicked(5, Qt::ShiftModifier, false);
    EXPECT_EQ(lettersOf(list), "ABCDEFG");
    list.clicked(6, Qt::NoModifier, true);
    EXPECT_EQ(lettersOf(list), "ABCDEFg");
}

TEST(GameListClicks, DoubleClicksEditOpenShowOrToggle)
{
    GameList list;
    list.append(filesOf({entryNamed(QStringLiteral("a")), GameEntry::unread(QStringLiteral("./games/b.nes"))}));
    const auto doubleClick = [&](int column, Qt::KeyboardModifiers modifiers, bool onCheckBox = false) {
        return list.doubleClicked(list.index(0, column), modifiers, onCheckBox);
    };
    EXPECT_EQ(doubleClick(kNameColumn, Qt::NoModifier), DoubleClickAction::EditCell);
    EXPECT_EQ(doubleClick(kRemarkColumn, Qt::NoModifier), DoubleClickAction::EditCell);
    EXPECT_EQ(doubleClick(kPathColumn, Qt::NoModifier), DoubleClickAction::OpenFile);
    EXPECT_EQ(doubleClick(kPathColumn, Qt::ControlModifier), DoubleClickAction::ShowFileInFolder);
    EXPECT_EQ(doubleClick(kNameColumn, Qt::ControlModifier), DoubleClickAction::None);
    EXPECT_EQ(doubleClick(kNumberColumn, Qt::ControlModifier, true), DoubleClickAction::None);
    EXPECT_EQ(lettersOf(list), "ab") << "with Ctrl only the path reacts";
    EXPECT_EQ(doubleClick(kNumberColumn, Qt::NoModifier, true), DoubleClickAction::None);
    EXPECT_EQ(lettersOf(list), "Ab");
    EXPECT_EQ(list.absoluteFilePath(0), "/games/a.nes");
    EXPECT_EQ(list.absoluteFilePath(1), ExeFolder() + "/games/b.nes");
}

TEST(GameListAdd, DroppedGamesListsAndFoldersAddNesImagesOnly)
{
    CheckedModel model;
    GameList& list = model.list;
    QTemporaryDir folder;
    const QString game = writeRom(folder.filePath("Tank.nes"), SyntheticRom{.mapper = 4, .prgBanks = 8});
    const QString notNes = writeFile(folder.filePath("readme.nes"), "not a game at all");
    const QString text = writeFile(folder.filePath("notes.txt"), "neither");
    QDir(folder.path()).mkdir(QStringLiteral("more"));
    writeRom(folder.filePath("more/b.NES"), SyntheticRom{.mapper = 0, .prgBanks = 1});
    writeRom(folder.filePath("more/a.nes"), SyntheticRom{.mapper = 0, .prgBanks = 2});
    writeFile(folder.filePath("more/c.txt"), "ignored in a folder");
    const std::vector<GameEntry> saved = {GameEntry(game), GameEntry(folder.filePath("gone.nes"))};
    const QString listFile = *SaveListFile(folder.filePath("saved.QVL"), saved);

    const AddResult added = list.addFiles({game, notNes, text, folder.filePath("more"), listFile});
    EXPECT_EQ(added.added, 5);
    EXPECT_EQ(added.skipped, 2);
    EXPECT_FALSE(added.message);
    EXPECT_EQ(added.rowToShow, 4);
    ASSERT_EQ(list.rowCount(), 5);
    const QStringList names = {"Tank", "a", "b", "Tank", "gone"};
    for (int row = 0; row < 5; ++row)
        EXPECT_EQ(list.entries()[std::size_t(row)].name, names[row]) << row;

    // An opened or dropped game is listed by its path from the program's folder, and read through it.
    EXPECT_EQ(list.entries()[0].path, RelativePath(ExeFolder(), game).value());
    EXPECT_TRUE(list.entries()[0].path.startsWith("../"));
    EXPECT_TRUE(list.entries()[0].valid());
    EXPECT_EQ(cell(list, 0, 2), " 8 (128KB)");
    EXPECT_EQ(QDir::cleanPath(list.absoluteFilePath(0)), game);
    // A list file's entries come as they stand, a missing game among them.
    EXPECT_EQ(list.entries()[3].path, game);
    EXPECT_FALSE(list.entries()[4].valid());
    EXPECT_EQ(FormatText(StringTable::Get(text::FilesSkipped, Language::English), {added.skipped}),
              "2 file(s) skipped: not NES images");
}

// The capacity holds however the entries come: one game dropped 20,001 times fills the list, warns, and a
// full list refuses to open more.
TEST(GameListAdd, TheListStopsAtItsCapacity)
{
    QTemporaryDir folder;
    const QString game = writeRom(folder.filePath("g.nes"), SyntheticRom{.mapper = 0, .prgBanks = 1});
    GameList list;
    fill(list, "ab");
    EXPECT_FALSE(list.fullRefusal());

    const AddResult added = list.addFiles(QStringList(20001, game));
    EXPECT_EQ(added.added, kListCapacity - 2);
    ASSERT_TRUE(added.message);
    EXPECT_EQ(added.message->text(Language::English),
              "The maximum processing limit of the current list is 20000 entries, and the excess will be discarded");
    EXPECT_EQ(list.rowCount(), kListCapacity);
    EXPECT_EQ(list.room(), 0);

    const std::optional<ListMessage> refusal = list.fullRefusal();
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->text(Language::English), "The current list processing items have reached the upper limit "
                                                "(20000), please clear some items and try again");
    EXPECT_EQ(list.addFiles({game}).added, 0);
    EXPECT_EQ(list.rowCount(), kListCapacity);
}

TEST(GameListAdd, AListFileBeyondTheRoomLeftAddsWhatFitsAndWarns)
{
    QTemporaryDir folder;
    const std::vector<GameEntry> saved(5, GameEntry(folder.filePath("missing.nes")));
    const QString listFile = *SaveListFile(folder.filePath("five"), saved);
    GameFiles files;
    files.entries.assign(kListCapacity - 3, entryNamed(QStringLiteral("x")));
    GameList list;
    EXPECT_FALSE(list.append(std::move(files)).message);

    const GameFiles read = ReadGameFiles({listFile}, list.room());
    EXPECT_TRUE(read.exceedsCapacity);
    const AddResult added = list.append(read);
    EXPECT_EQ(added.added, 3);
    EXPECT_TRUE(added.message);
    EXPECT_EQ(list.entries().back().name, "missing");
}
