#include "gamelist/window_close.h"

#include "gamelist/main_settings.h"

namespace zunbrix {

namespace {

constexpr int kCloseStateExit = 1;

} // namespace

CloseSettings ReadCloseSettings()
{
    return {ReadSettingInt(kMainSettingsKey, "Remember", 0), ReadSettingInt(kMainSettingsKey, "CloseState", 0)};
}

bool AsksBeforeClosing(CloseMarker marker, const CloseSettings& settings, bool hasTray)
{
    return hasTray && marker == CloseMarker::CloseBox && settings.remember == 0;
}

bool ClosingHides(CloseMarker marker, const CloseSettings& settings, bool hasTray)
{
    return hasTray && marker == CloseMarker::CloseBox && settings.closeState != kCloseStateExit;
}

} // namespace zunbrix
