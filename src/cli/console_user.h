#pragma once

#include "multicart/build_driver.h"

#include <QString>

#include <vector>

namespace zunbrix::cli {

// The build's user on a console: messages go to standard error under their title, the output is the one
// named on the command line, questions are answered no, and a progress line is kept on a terminal.
class ConsoleUser : public BuildUser {
public:
    ConsoleUser(OutputChoice output, Language language);

    MessageAnswer ShowMessage(const BuildMessage& message) override;
    std::optional<OutputChoice> ChooseOutput(const QString& startFolder, OutputType startType) override;
    void OfferToShowResult(const QString& outputPath) override;
    void Progress(BuildStage stage, int done, int total) override;

private:
    void clearProgress();

    OutputChoice output_;
    Language language_;
    bool terminal_;
    bool progressShown_ = false;
};

// The output type that a path's extension names: .unf UNIF, .bin plain, anything else iNES.
OutputType OutputTypeOf(const QString& path);

// Writes text to standard error / standard output, with CR LF turned into plain line ends.
void PrintError(const QString& text);
void PrintOutput(const QString& text);

// A message on standard error under its title, each line followed, where a file is at fault, by a line
// that says what is wrong with that file (`problems[i]` belongs to line i).
void PrintMessage(int titleId, const QString& text, const std::vector<FileProblem>& problems, Language language);

} // namespace zunbrix::cli
