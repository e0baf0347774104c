#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace zunbrix::nesasm {

// Labels and equates, case-sensitive. A name with a leading point is local: it is stored under the global
// label that precedes it, so the same local name can recur under each global.
//
// The table lives across passes. A symbol defined in an earlier pass keeps its value for forward references
// until the current pass defines it again; endPass() tells whether any value differs from the pass before,
// which is how the assembler knows that another pass would change nothing.
class SymbolTable {
public:
    enum class Definition { Accepted, Conflict };

    void beginPass();
    Definition define(std::string_view name, std::string_view scope, std::int64_t value);
    std::optional<std::int64_t> find(std::string_view name, std::string_view scope) const;

    // Drops symbols this pass no longer defines; true when the pass changed, added or dropped any value.
    bool endPass();

private:
    struct Entry {
        std::int64_t value = 0;
        int pass = 0;
    };
    struct NameHash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>{}(name); }
    };

    std::string_view keyOf(std::string_view name, std::string_view scope) const;

    std::unordered_map<std::string, Entry, NameHash, std::equal_to<>> entries_;
    mutable std::string localKey_;
    int pass_ = 0;
    bool changed_ = false;
};

} // namespace zunbrix::nesasm
