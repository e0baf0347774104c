#pragma once

#include <QString>

#include <functional>

namespace zunbrix {

// Puts the downloaded program in the place of the running one, at the close for an update: the running file
// becomes `<runningPath>.bak`, the new file takes its name (with the old one's permissions) and the `.bak` path
// is stored as `Delete` for the next start to remove. When a move fails, the files are put back as they were
// and the result is false; the new file stays beside the program for the next offer. Starting the new program
// is the caller's.
bool ReplaceRunningProgram(const QString& runningPath, const QString& newProgramPath);

// The wait between the tries of DeleteReplacedProgram: 200 ms.
void WaitBeforeDeleteRetry(int failedTries);

// At the start: deletes the file that `Delete` names, trying 5 times, since the old process may still hold it;
// `waitBeforeRetry` runs between the tries, told how many have failed. On success `Delete` is emptied; after five
// failures it keeps its value for the next start. True when nothing is left to delete.
bool DeleteReplacedProgram(const std::function<void(int failedTries)>& waitBeforeRetry = WaitBeforeDeleteRetry);

} // namespace zunbrix
