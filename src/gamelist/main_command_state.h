#pragma once

#include "frame/string_table.h"
#include "multicart/build_options.h"

#include <cstdint>
#include <optional>
#include <unordered_set>
#include <vector>

namespace zunbrix {

// The main window's settings as its commands keep them: check marks, the greyed item and the fields a build
// reads. A toggle or radio run by the user updates its mark and field and writes its setting at once. The
// start-up replay runs the same commands without writing, so a stored value the menu does not offer (a
// PageSize of 7) shows as its fallback and stays in the store as it was.
class MainCommandState {
public:
    enum class Origin { User, Replay };

    // The fields as stored, with the window's fallbacks; no mark is set until the replay runs.
    MainCommandState();

    // The commands that start-up runs, in the order they take effect: first those the settings send, in the
    // order of the settings table, then those posted: the system's language (Chinese when `chineseSystem`),
    // Topmost, the stored language, which so wins, and the custom menu.
    static std::vector<int> StartupReplay(bool chineseSystem);

    // The external menu's path as its dialog left it in the store.
    void reloadExternMenuPath();

    // Runs a toggle or radio command; other commands have no state here and are ignored.
    void run(int id, Origin origin);

    bool checked(int id) const;
    // Fill numbers is greyed while numbers are off. A choice of style, page size, blank row or custom menu is
    // greyed while it would give a page of the list that the menu can't draw; an external menu lays out its
    // list itself, so then none is.
    bool enabled(int id) const;

    // Where the designer's look starts its list (name table address of the first name), for that check.
    void setCustomListAddress(std::uint32_t itemPpuAddr) { customListAddress_ = itemPpuAddr; }

    // The fields a build reads; the board is COOLBOY or MINDKIDS by the Coolboy type.
    const BuildOptions& options() const { return options_; }
    Language language() const { return language_; }
    bool topmost() const { return topmost_; }

private:
    bool* toggleField(int id);
    // The settings as they would be after a command that changes the list's look; nothing for other commands.
    std::optional<BuildOptions> lookAfter(int id) const;
    void setRadioField(int id, int value);

    BuildOptions options_;
    Language language_ = Language::English;
    bool topmost_ = false;
    bool fillEnabled_ = false;
    std::uint32_t customListAddress_ = 0;
    std::unordered_set<int> checked_;
};

} // namespace zunbrix
