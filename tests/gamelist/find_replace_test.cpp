#include "gamelist/find_replace.h"
#include "frame/registry_store.h"
#include "frame/text_ids.h"
#include "support/named_rows.h"
#include "support/private_settings.h"

#include <gtest/gtest.h>

using namespace zunbrix;
using zunbrix::testing::appendNamedRows;
using zunbrix::testing::namesOf;

namespace {

SearchRequest plain(const QString& search, const QString& replace, bool onlyChecked = false)
{
    return {search, replace, false, onlyChecked};
}

SearchRequest regex(const QString& search, const QString& replace, bool onlyChecked = false)
{
    return {search, replace, true, onlyChecked};
}

struct Marks {
    int unmark;
    int mark;
};

void expectMarks(const SearchStep& step, Marks expected)
{
    EXPECT_FALSE(step.refusal);
    EXPECT_EQ(step.unmarkRow, expected.unmark);
    EXPECT_EQ(step.markRow, expected.mark);
}

class FindReplace : public ::testing::Test {
protected:
    GameList list;
    SearchState state;
};

TEST_F(FindReplace, DefaultPatternCutsTheNumberPrefixAndDollarFormsReorder)
{
    appendNamedRows(list, {"01.Contra", "123.Mario 3", "Tetris.1", "7-Zelda"});
    SearchRequest cut;
    cut.regex = true;
    ASSERT_FALSE(ReplaceAll(list, state, cut));
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario 3", "Tetris.1", "7-Zelda"}));

    ASSERT_FALSE(ReplaceAll(list, state, regex(R"((\d+)-(\w+))", "$2 ($1)")));
    EXPECT_EQ(namesOf(list).last(), QStringLiteral("Zelda (7)"));
}

TEST_F(FindReplace, PlainReplacementSearchesAgainFromTheStartUntilNoneIsLeft)
{
    // "aab" by "ab" -> "b" leaves "ab", which holds a new occurrence that is replaced in turn.
    appendNamedRows(list, {"aab", "Banana", "Contra"});
    ASSERT_FALSE(ReplaceAll(list, state, plain("ab", "b")));
    ASSERT_FALSE(ReplaceAll(list, state, plain("a", "o")));
    EXPECT_EQ(namesOf(list), QStringList({"b", "Bonono", "Contro"}));
    // Case counts.
    ASSERT_FALSE(ReplaceAll(list, state, plain("b", "x")));
    EXPECT_EQ(namesOf(list), QStringList({"x", "Bonono", "Contro"}));
}

TEST_F(FindReplace, ReplaceAllOverCheckedRowsOnlyWhenAsked)
{
    appendNamedRows(list, {"*01.A", "02.B", "*03.C"});
    ASSERT_FALSE(ReplaceAll(list, state, regex(R"(^\d+\.)", "", true)));
    EXPECT_EQ(namesOf(list), QStringList({"A", "02.B", "C"}));
}

TEST_F(FindReplace, FindNextWrapsToTheFirstMatchOnThePressAfterTheLast)
{
    appendNamedRows(list, {"Contra", "Mario", "Contra Force", "Tetris"});
    const SearchRequest request = plain("Contra", "");
    expectMarks(FindNextRow(list, state, request), {0, 0}); // the mark of a fresh list is on row 0
    expectMarks(FindNextRow(list, state, request), {0, 2});
    EXPECT_EQ(state.findNext, 3);
    // Nothing past row 2: this press starts over at the top and marks row 0 at once.
    expectMarks(FindNextRow(list, state, request), {2, 0});
    EXPECT_EQ(state.findRow, 0);
    EXPECT_EQ(state.findNext, 1);
}

TEST_F(FindReplace, FindNextOverCheckedRowsAndWhenNothingMatches)
{
    appendNamedRows(list, {"Contra", "*Contra Force", "Mario"});
    expectMarks(FindNextRow(list, state, plain("Contra", "", true)), {0, 1});
    // Nothing found only takes the mark away; the state stays for the next press.
    expectMarks(FindNextRow(list, state, plain("Zelda", "")), {1, -1});
    EXPECT_EQ(state.findRow, 1);
    EXPECT_EQ(state.findNext, 0);
    // An empty plain search text stands in every name.
    expectMarks(FindNextRow(list, state, plain("", "")), {1, 0});
}

TEST_F(FindReplace, MarkedRowPastTheEndIsSkipped)
{
    appendNamedRows(list, {"Contra"});
    state.findRow = 5; // rows were removed since the last find
    state.findNext = 6;
    expectMarks(FindNextRow(list, state, plain("Zelda", "")), {-1, -1});
    expectMarks(ReplaceCurrent(list, state, plain("Contra", "Probotector")), {-1, 0});
    EXPECT_EQ(namesOf(list), QStringList({"Contra"}));

    GameList empty;
    SearchState fresh;
    expectMarks(FindNextRow(empty, fresh, plain("a", "")), {-1, -1});
    EXPECT_FALSE(ReplaceAll(empty, fresh, plain("a", "b")));
    EXPECT_FALSE(UndoReplaceAll(empty, fresh));
}

TEST_F(FindReplace, FirstReplaceOnAFreshListTestsRowZeroEvenUncheckedThenFindsNext)
{
    appendNamedRows(list, {"01.Contra", "Mario", "*02.Zelda"});
    const SearchRequest request = regex(R"(^\d+\.)", "", true);
    expectMarks(ReplaceCurrent(list, state, request), {0, 2});
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario", "02.Zelda"}));
    expectMarks(ReplaceCurrent(list, state, request), {2, -1}); // nothing else matches, so no mark
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Mario", "Zelda"}));
    // The marked row no longer matches: nothing is replaced, the find still runs.
    expectMarks(ReplaceCurrent(list, state, plain("Mario", "Luigi")), {2, 1});
    EXPECT_EQ(namesOf(list)[1], QStringLiteral("Mario"));
}

TEST_F(FindReplace, RefusalsNameTheInputAndTouchNothing)
{
    appendNamedRows(list, {"01.Contra", "aaaaaaaaaaaaaaaaaaaab"});
    const QStringList before = namesOf(list);
    state.findRow = 1;
    state.findNext = 2;

    const SearchRequest badPattern = regex("(Contra", "");
    for (const SearchStep& step : {FindNextRow(list, state, badPattern), ReplaceCurrent(list, state, badPattern)}) {
        ASSERT_TRUE(step.refusal);
        EXPECT_EQ(step.refusal->textId, text::SearchPatternUnusable);
        EXPECT_TRUE(step.refusal->text(Language::English).contains(QStringLiteral("\"(Contra\"")));
        EXPECT_EQ(step.unmarkRow, -1);
        EXPECT_EQ(step.markRow, -1);
    }
    ASSERT_TRUE(ReplaceAll(list, state, badPattern));

    const auto refusalOf = [&](const SearchRequest& request) {
        const auto all = ReplaceAll(list, state, request);
        const auto current = ReplaceCurrent(list, state, request).refusal;
        EXPECT_TRUE(all && current);
        return all && current && all->textId == current->textId ? all->textId : 0;
    };
    EXPECT_EQ(refusalOf(plain("", "x")), text::SearchTextEmpty);
    EXPECT_EQ(refusalOf(plain("a", "ba")), text::ReplacementHoldsSearch);
    EXPECT_TRUE(ReplaceAll(list, state, plain("a", "ba"))->text(Language::Chinese).contains(QStringLiteral("\"ba\"")));
    // Replacing "ab" by "bbaa" ends, but only after the name has doubled once for each "a".
    EXPECT_EQ(refusalOf(plain("ab", "bbaa")), text::ReplacementGrowsName);

    EXPECT_EQ(namesOf(list), before);
    EXPECT_EQ(state.findRow, 1);
    EXPECT_EQ(state.findNext, 2);
    EXPECT_TRUE(state.lastReplaceAll.empty());
}

TEST_F(FindReplace, ReplaceAllIsUndoneInOneStepWhileTheNamesStand)
{
    appendNamedRows(list, {"01.Contra", "Mario", "02.Zelda"});
    const QStringList original = namesOf(list);
    const SearchRequest cut = regex(R"(^\d+\.)", "");

    ASSERT_FALSE(ReplaceAll(list, state, cut));
    ASSERT_FALSE(UndoReplaceAll(list, state));
    EXPECT_EQ(namesOf(list), original);
    // Nothing more to undo.
    ASSERT_FALSE(UndoReplaceAll(list, state));
    EXPECT_EQ(namesOf(list), original);

    // Only the last replace is undone.
    ASSERT_FALSE(ReplaceAll(list, state, plain("Mario", "Luigi")));
    ASSERT_FALSE(ReplaceAll(list, state, cut));
    ASSERT_FALSE(UndoReplaceAll(list, state));
    EXPECT_EQ(namesOf(list), QStringList({"01.Contra", "Luigi", "02.Zelda"}));

    // A name edited since then: refused, nothing put back.
    ASSERT_FALSE(ReplaceAll(list, state, cut));
    list.setData(list.index(2, kNameColumn), QStringLiteral("The Legend of Zelda"), Qt::EditRole);
    const auto refusal = UndoReplaceAll(list, state);
    ASSERT_TRUE(refusal);
    EXPECT_EQ(refusal->textId, text::ReplaceAllNotUndoable);
    EXPECT_EQ(namesOf(list), QStringList({"Contra", "Luigi", "The Legend of Zelda"}));
}

TEST(FindReplaceSettings, DefaultsThenWhatWasWritten)
{
    zunbrix::testing::PrivateSettings settings;
    const SearchRequest defaults = ReadSearchSettings();
    EXPECT_EQ(defaults.search, QStringLiteral("^\\d+\\."));
    EXPECT_EQ(defaults.replace, QString());
    EXPECT_FALSE(defaults.regex);
    EXPECT_FALSE(defaults.onlyChecked);

    WriteSearchSettings(regex(QStringLiteral("魂斗罗"), QStringLiteral("$1"), true));
    quint32 pattern = 0;
    ASSERT_TRUE(RegistryStore::GetDword(QStringLiteral("Software\\Zunbrix"), QStringLiteral("Pattern"), pattern));
    EXPECT_EQ(pattern, 1u);
    const SearchRequest read = ReadSearchSettings();
    EXPECT_EQ(read.search, QStringLiteral("魂斗罗"));
    EXPECT_EQ(read.replace, QStringLiteral("$1"));
    EXPECT_TRUE(read.regex);
    EXPECT_TRUE(read.onlyChecked);
}

} // namespace
