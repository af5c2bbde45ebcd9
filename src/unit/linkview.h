#pragma once

#include "model/changed.h"

#include <array>
#include <string>
#include <string_view>

namespace kelvo {

/// The lamp.
enum class LinkState { OffLine, OnLine, InDoubt };

enum class LinkBox {
    Report,  ///< exclamation icon and OK
    YesOrNo, ///< question icon, Yes and No; Escape is No
};

/// What the link asks of a screen while it works. Called on the interface thread; the main window
/// implements it and a test records it.
class LinkView {
  public:
    virtual ~LinkView() = default;

    /// The lamp, painted before it returns. Off line also ends what needs a link on the screen: a running
    /// stream's display.
    virtual void ShowConnectStatus(LinkState state) = 0;
    virtual void EnableFrames(bool enable) = 0;
    virtual void SetPolling(bool on) = 0; ///< `tmrPoll`

    /// The progress dialog: a new step's caption with 0 failures, painted before it returns; until the dialog
    /// is on the screen the event loop runs, without the user's input. Or its failures so far, 1 to 6, which
    /// is the one place where the event loop runs once inside a call.
    virtual void ShowProgress(std::string_view caption, int failures) = 0;
    /// Empty lines hide the panel.
    virtual void ShowUnitVersion(const std::array<std::string, 3> &lines) = 0;

    /// Returns when the user has seen it; true = Yes.
    virtual bool ShowBox(LinkBox kind, std::string_view title, std::string_view text) = 0;

    /// The settings have these new values; `UnitLink::Updating` is raised meanwhile.
    virtual void Show(const Changed &changed) = 0;
    virtual void ShowSent() = 0; ///< `lblSent` follows `UnitLink::Differences`
    virtual void StreamLock(bool locked) = 0;
};

} // namespace kelvo
