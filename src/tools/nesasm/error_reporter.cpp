#include "tools/nesasm/error_reporter.h"

#include <cstdio>

namespace zunbrix::nesasm {

void ErrorReporter::clear()
{
    entries_.clear();
    errorCount_ = 0;
}

void ErrorReporter::error(const SourcePosition& position, std::string message)
{
    entries_.push_back({position, std::move(message)});
    ++errorCount_;
}

void ErrorReporter::warning(const SourcePosition& position, std::string message)
{
    entries_.push_back({position, std::move(message)});
}

std::string ErrorReporter::render() const
{
    std::string text;
    const std::vector<std::string_view>* shownChain = nullptr;
    for (const Entry& entry : entries_) {
        const SourcePosition& position = entry.position;
        if (!position.fileChain.empty() && (shownChain == nullptr || *shownChain != position.fileChain)) {
            for (std::size_t level = 0; level < position.fileChain.size(); ++level) {
                char head[16];
                std::snprintf(head, sizeof head, "#[%i]   ", static_cast<int>(level + 1));
                text += head;
                text += position.fileChain[level];
                text += '\n';
            }
            shownChain = &position.fileChain;
        }
        if (!position.fileChain.empty()) {
            char number[16];
            std::snprintf(number, sizeof number, "%05i  ", position.lineNumber);
            text += number;
            text += position.lineText;
            text += '\n';
        }
        text += "       ";
        text += entry.message;
        text += '\n';
    }
    return text;
}

} // namespace zunbrix::nesasm
