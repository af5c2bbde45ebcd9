#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kelvo {

/// The lamp.
enum class LinkState { OffLine, OnLine, InDoubt };

/// What the link asks of a screen while it works. Called on the interface thread; the main window
/// implements it and a test records it.
class LinkView {
  public:
    virtual ~LinkView() = default;

    virtual void ShowConnectStatus(LinkState state) = 0; ///< the lamp; painted before it returns
    virtual void RepaintWindow() = 0;
    virtual void EnableFrames(bool enable) = 0;
    virtual void SetPolling(bool on) = 0; ///< `tmrPoll`

    /// Shows the progress dialog with this caption, painted before it returns. Until the dialog is on the
    /// screen the event loop runs, without the user's input.
    virtual void ShowProgress(std::string_view caption) = 0;
    /// Progress 1 to 6; the one place where the event loop runs once inside a call.
    virtual void ShowAttempt(int failures) = 0;
    virtual void HideUnitVersion() = 0;
    virtual void ShowUnitVersion(const std::array<std::string, 3> &lines) = 0;

    /// Exclamation box with OK; returns when the user has seen it.
    virtual void ShowError(std::string_view title, std::string_view text) = 0;
    /// Question box with Yes and No; Escape is No.
    virtual bool Ask(std::string_view title, std::string_view text) = 0;

    virtual void ReflectModeStatus() = 0;
    virtual void ReflectMuteStatus() = 0;
    virtual void ReflectVolumeLevel(bool moveSlider) = 0;
    virtual void ShowSystemSettings() = 0;   ///< the option controls show `SystemBlock`
    virtual void ShowAudioSettings() = 0;    ///< trims and OBE show `AudioBlock`
    virtual void LoadChannelData() = 0;      ///< the equaliser shows its channel
    virtual void ShowF1Format() = 0;         ///< the caption of `cmdMode(0)` after a connection
    virtual void ShowSettingsFromUnit() = 0; ///< the title ends in "<CP Settings>"
    virtual void ShowDate() = 0;             ///< the unit's clock in the theatre tab
    virtual void ShowSent() = 0;             ///< `lblSent` follows `UnitLink::Differences`

    virtual void StreamLock(bool locked) = 0;
    virtual void StopRunningStream() = 0; ///< the Stop button's handler, when a stream runs
};

} // namespace kelvo
