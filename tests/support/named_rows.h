#pragma once

#include "gamelist/game_list.h"

#include <QStringList>

namespace zunbrix::testing {

// Appends one entry a name to the list, for games that are not on disk; a name with a leading '*' is a
// checked entry, the star not part of the name.
inline void appendNamedRows(GameList& list, const QStringList& names)
{
    GameFiles files;
    for (const QString& name : names) {
        const bool checked = name.startsWith(QLatin1Char('*'));
        GameEntry entry = GameEntry::unread(QStringLiteral("/games/%1.nes").arg(files.entries.size()));
        entry.name = checked ? name.mid(1) : name;
        entry.checked = checked;
        files.entries.push_back(std::move(entry));
    }
    list.append(std::move(files));
}

inline QStringList namesOf(const GameList& list)
{
    QStringList names;
    for (const GameEntry& entry : list.entries())
        names << entry.name;
    return names;
}

} // namespace zunbrix::testing
