#pragma once

#include "multicart/build_options.h"
#include "multicart/nes_image.h"
#include "frame/string_table.h"
#include "frame/text_ids.h"

#include <QString>

#include <atomic>
#include <cstdint>
#include <optional>
#include <vector>

namespace zunbrix {

enum class MessageStyle { Ok = 0, YesNo = 4 };
enum class MessageAnswer { Ok = 1, Yes = 6, No = 7 };

// One message to the user: the text as it is to be shown, the number it was made from (0 for lines that a
// check gathered or for the assembler's output), the number of its title, and its buttons. Where files are
// at fault, `problems[i]` says what is wrong with the file behind line i of the text (none where there is
// nothing to add), for a front end to put into words beside that line.
struct BuildMessage {
    int textId = 0;
    QString text;
    int titleId = text::TitleError;
    MessageStyle style = MessageStyle::Ok;
    std::vector<FileProblem> problems{};
};

// The output's file type, numbered as the save dialog lists them.
enum class OutputType { Nes = 1, Unif = 2, Bin = 3 };

struct OutputChoice {
    QString path;
    OutputType type = OutputType::Nes;
};

// The long steps, for a progress display.
enum class BuildStage { ReadingGames, Assembling, WritingRom };

// Everything a build says to its user or asks of them. The command line and the desktop program each
// supply their own; the build itself never prints or opens a window.
class BuildUser {
public:
    virtual ~BuildUser() = default;
    virtual MessageAnswer ShowMessage(const BuildMessage& message) = 0;
    // Where to write the ROM and as which type, starting from the folder and type of the last build;
    // nothing when the user cancels.
    virtual std::optional<OutputChoice> ChooseOutput(const QString& startFolder, OutputType startType) = 0;
    // The ROM has been written: offer to show it.
    virtual void OfferToShowResult(const QString& outputPath) = 0;
    virtual void Progress(BuildStage stage, int done, int total);
};

// What one build works on, taken as it starts so that nothing changes under it.
struct BuildRequest {
    std::vector<GameEntry> entries; // the list; its checked entries are built, in list order
    BuildOptions options;           // options.boardType is the board built for
    Language language = Language::English;
    QString workFolder;             // private to this build; removed at its end
    bool keepWorkFolder = false;    // leave the work folder for a look at the menu's sources
    int assemblerLimitMs = 60000;   // a tool still running then is killed
    // Set from outside (a signal, a window's button) to end the build early: it then removes its work folder
    // and writes no output, leaving an earlier file of that name as it was. Nothing: never.
    const std::atomic<bool>* stop = nullptr;
};

struct BuildResult {
    bool ok = false;
    QString outputPath;
    int games = 0;
    std::uint64_t romBytes = 0;
    std::uint64_t uniqueBytes = 0; // data on the flash once equal images share their copy
    std::uint16_t mapper = 0;
    std::uint8_t submapper = 0;
    QString keptWorkFolder;        // set when the work folder was kept
    bool stopped = false;          // ended early on request
};

// The work folder of this process: the user's local application data, Temp/Zunbrix/<process id>.
QString DefaultWorkFolder();
// Removes the work folders that processes which no longer run have left behind (ended by force or killed).
void RemoveAbandonedWorkFolders();

// The path the ROM goes to: the chosen one, with the type's extension added unless it already ends so.
QString OutputPathOf(const OutputChoice& choice);
// The path of the first entry whose file writing `outputPath` would replace, whatever the spelling of either
// and through links; "" when there is none.
QString InputReplacedBy(const QString& outputPath, const std::vector<GameEntry>& entries);

// Builds the multicart. Refuses while `busy` is set, and holds it set while it runs. Every refusal or
// failure is told through `user` before the build ends; the work folder is removed on every path.
BuildResult runBuild(const BuildRequest& request, BuildUser& user, std::atomic<bool>& busy);

} // namespace zunbrix
