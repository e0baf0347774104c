#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zunbrix::nesasm {

// Where a message belongs: the chain of files from the main source down to the one being read, the line
// number in the innermost file and that line's text. An empty chain means the message concerns no line.
struct SourcePosition {
    std::vector<std::string_view> fileChain;
    int lineNumber = 0;
    std::string_view lineText;
};

// Collects the errors and warnings of one pass and renders them the way users and the build read them:
// the file chain whenever it changes, then the line number, the source line and the message.
class ErrorReporter {
public:
    void clear();
    void error(const SourcePosition& position, std::string message);
    void warning(const SourcePosition& position, std::string message);

    int errorCount() const { return errorCount_; }
    std::string render() const;

private:
    struct Entry {
        SourcePosition position;
        std::string message;
    };

    std::vector<Entry> entries_;
    int errorCount_ = 0;
};

} // namespace zunbrix::nesasm
