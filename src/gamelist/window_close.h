#pragma once

namespace zunbrix {

// Why the main window closes, by the numbers its close is started with: its close box, the Exit command, or a
// close to install an update.
enum class CloseMarker { CloseBox = 0, ExitCommand = 1, Update = 5 };

// The stored answer of the close question, Remember and CloseState under Software\Zunbrix, as stored: Remember
// other than 0 means the question is not asked again; CloseState 1 means exit, any other value hide.
struct CloseSettings {
    int remember = 0;
    int closeState = 0;
};
CloseSettings ReadCloseSettings();

// Whether a close asks the close question first: only the close box asks, and only while Remember is 0.
// Without a tray there is nothing to hide in, so nothing to ask.
bool AsksBeforeClosing(CloseMarker marker, const CloseSettings& settings, bool hasTray);

// Whether a close, once past the question, hides the window in the tray rather than ending the program: only
// the close box hides, and only when the answer is not Exit and there is a tray.
bool ClosingHides(CloseMarker marker, const CloseSettings& settings, bool hasTray);

} // namespace zunbrix
