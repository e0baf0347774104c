#pragma once

#include <QString>

#include <cstdint>

namespace zunbrix {

// The interface languages, by their Windows language ids.
enum class Language : std::uint16_t { Chinese = 2052, English = 1033 };

// The numbered texts that the windows and messages show, each in both languages.
// The texts themselves live in texts.tsv beside this file and are compiled in.
class StringTable {
public:
    // The text in the given language; an unknown id, or a text without that language's form, gives "".
    static QString Get(int id, Language language);
    // "zh-cn" or "en-us": the name by which the update records carry per-language texts.
    static QString LanguageName(Language language);
};

} // namespace zunbrix
