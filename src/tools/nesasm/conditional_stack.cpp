#include "tools/nesasm/conditional_stack.h"

namespace zunbrix::nesasm {

void ConditionalStack::beginIf(bool condition, int line)
{
    const bool parentActive = active();
    levels_.push_back({parentActive, condition, false, parentActive && condition, line});
}

bool ConditionalStack::beginElse()
{
    if (levels_.empty() || levels_.back().inElse)
        return false;
    Level& level = levels_.back();
    level.inElse = true;
    level.branchActive = level.parentActive && !level.condition;
    return true;
}

bool ConditionalStack::end()
{
    if (levels_.empty())
        return false;
    levels_.pop_back();
    return true;
}

} // namespace zunbrix::nesasm
