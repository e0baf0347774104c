#pragma once

#include "multicart/nes_image.h"
#include "frame/ini_file.h"

#include <QString>

#include <optional>
#include <vector>

namespace zunbrix {

// The most entries a game list holds; loading stops there.
inline constexpr int kListCapacity = 20000;

struct ListLoadResult {
    int added = 0;
    // The document held more entries than the list had room for: the caller warns with text 192.
    bool exceedsCapacity = false;
};

// Appends the entries of a list document (section "history") to `entries` until it holds `capacity`. Each
// entry's file is looked for by its relative path first, then by its absolute one; a path that is relative is
// taken from the program's folder, then from the folder of the document's file when it has one. An entry whose
// file is missing or invalid is appended all the same, so the list shows it.
ListLoadResult LoadListFile(const IniFile& ini, std::vector<GameEntry>& entries, int capacity = kListCapacity);

// Replaces the section "history" of `ini` by `entries`, checked or not: count, then per entry its absolute
// path, its path relative to the program's folder, name, check mark and remark.
void WriteListEntries(IniFile& ini, const std::vector<GameEntry>& entries);

// The path a list is saved under: ".qvl" is appended unless the extension already is that, in any case.
QString ListFilePath(const QString& chosenPath);

// Writes a list file (UTF-8 with its mark). The path written, or nothing when the file can't be written.
std::optional<QString> SaveListFile(const QString& chosenPath, const std::vector<GameEntry>& entries);

} // namespace zunbrix
