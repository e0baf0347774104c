#include "gamelist/find_replace.h"

#include "gamelist/main_settings.h"
#include "frame/registry_store.h"
#include "frame/text_format.h"
#include "frame/text_ids.h"

#include <algorithm>
#include <regex>
#include <string>

namespace zunbrix {

namespace {

// A plain replacement whose text keeps growing (say "ab" by "bbaa") would take all memory long before it
// ends; no real name comes near this length.
constexpr qsizetype kNameGrowthLimit = 1 << 16;

// Thrown inside this file only, to leave a request at the first problem; the operations turn it into their
// result before anything is changed.
struct Refused {
    SearchRefusal refusal;
};

SearchRefusal patternRefusal(const QString& pattern, const std::regex_error& error)
{
    return {text::SearchPatternUnusable, {pattern, QString::fromLocal8Bit(error.what())}};
}

// A request's test and replacement of one name. The pattern is compiled once for all rows, which gives what
// compiling it for each row would, faster, and refuses a bad pattern before any row is looked at.
class NameMatcher {
public:
    explicit NameMatcher(const SearchRequest& request) : request_(request)
    {
        if (!request.regex)
            return;
        try {
            pattern_.emplace(request.search.toStdWString(), std::wregex::ECMAScript);
        } catch (const std::regex_error& error) {
            throw Refused{patternRefusal(request.search, error)};
        }
    }

private:
    // A compiled pattern can still fail on a name (too complex a match); that refuses the request too.
    template <typename Work>
    auto applyPattern(Work work) const
    {
        try {
            return work();
        } catch (const std::regex_error& error) {
            throw Refused{patternRefusal(request_.search, error)};
        }
    }

public:
    bool matches(const QString& name) const
    {
        if (!pattern_)
            return name.contains(request_.search, Qt::CaseSensitive);
        return applyPattern([&] { return std::regex_search(name.toStdWString(), *pattern_); });
    }

    // Plain: the first occurrence from the start is replaced, again and again until none is left, so a
    // replacement that makes a new occurrence is replaced too. By pattern: every match, "$1" forms included.
    QString replaced(const QString& name) const
    {
        if (pattern_)
            return applyPattern([&] {
                return QString::fromStdWString(
                    std::regex_replace(name.toStdWString(), *pattern_, request_.replace.toStdWString()));
            });
        // Text before the replaced occurrence held none and is unchanged, so a new first occurrence can start
        // no earlier than one search length before it: looking from there is looking from the start.
        const qsizetype overlap = request_.search.size() - 1;
        QString result = name;
        for (qsizetype at = result.indexOf(request_.search); at >= 0;
             at = result.indexOf(request_.search, std::max<qsizetype>(at - overlap, 0))) {
            result.replace(at, request_.search.size(), request_.replace);
            if (result.size() > kNameGrowthLimit)
                throw Refused{{text::ReplacementGrowsName, {request_.search, request_.replace, name}}};
        }
        return result;
    }

private:
    const SearchRequest& request_;
    std::optional<std::wregex> pattern_;
};

// The plain replacements that would replace for ever: an empty search text stands in every text, and a
// replacement that holds the search text brings it back each time.
void refuseEndlessReplacement(const SearchRequest& request)
{
    if (request.regex)
        return;
    if (request.search.isEmpty())
        throw Refused{{text::SearchTextEmpty, {}}};
    if (request.replace.contains(request.search))
        throw Refused{{text::ReplacementHoldsSearch, {request.replace, request.search}}};
}

bool insideList(const GameList& list, int row)
{
    return row >= 0 && row < list.rowCount();
}

int firstMatch(const GameList& list, const NameMatcher& matcher, int from, bool onlyChecked)
{
    const auto& entries = list.entries();
    for (int row = std::max(from, 0); row < list.rowCount(); ++row) {
        const GameEntry& entry = entries[static_cast<std::size_t>(row)];
        if ((!onlyChecked || entry.checked) && matcher.matches(entry.name))
            return row;
    }
    return -1;
}

SearchStep findNext(const GameList& list, SearchState& state, const NameMatcher& matcher, bool onlyChecked)
{
    SearchStep step;
    int hit = firstMatch(list, matcher, state.findNext, onlyChecked);
    if (hit < 0) {
        // Nothing left below: this same press starts over from the top.
        state.findNext = 0;
        hit = firstMatch(list, matcher, 0, onlyChecked);
    }
    if (insideList(list, state.findRow))
        step.unmarkRow = state.findRow;
    if (hit >= 0) {
        step.markRow = hit;
        state.findRow = hit;
        state.findNext = hit + 1;
    }
    return step;
}

} // namespace

SearchRequest ReadSearchSettings()
{
    SearchRequest request;
    const QString key = QLatin1String(kMainSettingsKey);
    RegistryStore::GetString(key, QStringLiteral("Search"), request.search);
    RegistryStore::GetString(key, QStringLiteral("Replace"), request.replace);
    request.regex = ReadSettingInt(kMainSettingsKey, "Pattern", 0) != 0;
    request.onlyChecked = ReadSettingInt(kMainSettingsKey, "OnlyChecked", 0) != 0;
    return request;
}

void WriteSearchSettings(const SearchRequest& request)
{
    const QString key = QLatin1String(kMainSettingsKey);
    RegistryStore::SetString(key, QStringLiteral("Search"), request.search);
    RegistryStore::SetString(key, QStringLiteral("Replace"), request.replace);
    RegistryStore::SetDword(key, QStringLiteral("Pattern"), request.regex ? 1 : 0);
    RegistryStore::SetDword(key, QStringLiteral("OnlyChecked"), request.onlyChecked ? 1 : 0);
}

QString SearchRefusal::text(Language language) const
{
    const auto arg = [this](int i) { return TextArg{i < args.size() ? args[i] : QString()}; };
    return FormatText(StringTable::Get(textId, language), {arg(0), arg(1), arg(2)});
}

SearchStep FindNextRow(const GameList& list, SearchState& state, const SearchRequest& request)
{
    try {
        return findNext(list, state, NameMatcher(request), request.onlyChecked);
    } catch (const Refused& refused) {
        return {.refusal = refused.refusal};
    }
}

SearchStep ReplaceCurrent(GameList& list, SearchState& state, const SearchRequest& request)
{
    try {
        refuseEndlessReplacement(request);
        const NameMatcher matcher(request);
        // The row the last find marked is meant, checked or not; on a fresh list that is row 0.
        if (insideList(list, state.findRow)) {
            const QString& name = list.entries()[static_cast<std::size_t>(state.findRow)].name;
            if (matcher.matches(name))
                list.setNames({{state.findRow, matcher.replaced(name)}});
        }
        return findNext(list, state, matcher, request.onlyChecked);
    } catch (const Refused& refused) {
        return {.refusal = refused.refusal};
    }
}

std::optional<SearchRefusal> ReplaceAll(GameList& list, SearchState& state, const SearchRequest& request)
{
    std::vector<NameChange> changes;
    try {
        refuseEndlessReplacement(request);
        const NameMatcher matcher(request);
        // Every new name is made before the first is stored, so a refusal halfway leaves all names as they were.
        for (int row = 0; row < list.rowCount(); ++row) {
            const GameEntry& entry = list.entries()[static_cast<std::size_t>(row)];
            if (request.onlyChecked && !entry.checked)
                continue;
            QString name = matcher.replaced(entry.name);
            if (name != entry.name)
                changes.push_back({row, entry.path, entry.name, std::move(name)});
        }
    } catch (const Refused& refused) {
        return refused.refusal;
    }
    std::vector<RowName> names;
    for (const NameChange& change : changes)
        names.push_back({change.row, change.after});
    list.setNames(names);
    state.lastReplaceAll = std::move(changes);
    return std::nullopt;
}

std::optional<SearchRefusal> UndoReplaceAll(GameList& list, SearchState& state)
{
    const std::vector<NameChange> changes = std::exchange(state.lastReplaceAll, {});
    std::vector<RowName> names;
    for (const NameChange& change : changes) {
        if (!insideList(list, change.row))
            return SearchRefusal{text::ReplaceAllNotUndoable, {}};
        const GameEntry& entry = list.entries()[static_cast<std::size_t>(change.row)];
        if (entry.path != change.path || entry.name != change.after)
            return SearchRefusal{text::ReplaceAllNotUndoable, {}};
        names.push_back({change.row, change.before});
    }
    list.setNames(names);
    return std::nullopt;
}

} // namespace zunbrix
