#pragma once

#include <cstddef>
#include <vector>

namespace zunbrix::nesasm {

// Nested .IF/.ELSE/.ENDIF. Inside a branch that does not hold, nested .IF levels are still counted, so their
// .ENDIF lines match up, but their conditions are never looked at.
class ConditionalStack {
public:
    void clear() { levels_.clear(); }

    bool active() const { return levels_.empty() || levels_.back().branchActive; }
    std::size_t depth() const { return levels_.size(); }
    // Line of the innermost open .IF, for the message about a missing .ENDIF.
    int openLine() const { return levels_.back().line; }

    void beginIf(bool condition, int line);
    bool beginElse(); // false without an open .IF, or after its .ELSE
    bool end();       // false without an open .IF
    void dropTo(std::size_t depth) { levels_.resize(depth); }

private:
    struct Level {
        bool parentActive;
        bool condition;
        bool inElse;
        bool branchActive;
        int line;
    };

    std::vector<Level> levels_;
};

} // namespace zunbrix::nesasm
