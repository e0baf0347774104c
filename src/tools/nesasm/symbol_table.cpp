#include "tools/nesasm/symbol_table.h"

namespace zunbrix::nesasm {

std::string_view SymbolTable::keyOf(std::string_view name, std::string_view scope) const
{
    if (name.empty() || name[0] != '.')
        return name;
    localKey_.assign(scope);
    localKey_ += name;
    return localKey_;
}

void SymbolTable::beginPass()
{
    ++pass_;
    changed_ = false;
}

SymbolTable::Definition SymbolTable::define(std::string_view name, std::string_view scope, std::int64_t value)
{
    const std::string_view key = keyOf(name, scope);
    auto found = entries_.find(key);
    if (found == entries_.end()) {
        entries_.emplace(std::string(key), Entry{value, pass_});
        changed_ = true;
        return Definition::Accepted;
    }
    Entry& entry = found->second;
    if (entry.pass == pass_)
        return entry.value == value ? Definition::Accepted : Definition::Conflict;
    if (entry.value != value)
        changed_ = true;
    entry = Entry{value, pass_};
    return Definition::Accepted;
}

std::optional<std::int64_t> SymbolTable::find(std::string_view name, std::string_view scope) const
{
    const auto found = entries_.find(keyOf(name, scope));
    if (found == entries_.end())
        return std::nullopt;
    return found->second.value;
}

bool SymbolTable::endPass()
{
    for (auto it = entries_.begin(); it != entries_.end();) {
        if (it->second.pass != pass_) {
            it = entries_.erase(it);
            changed_ = true;
        } else {
            ++it;
        }
    }
    return changed_;
}

} // namespace zunbrix::nesasm
