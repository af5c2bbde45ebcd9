#pragma once

#include "support/recordinglibrary.h"
#include "unit/unitlink.h"

#include <functional>

namespace kelvo {

/// A screen that writes what it is asked into a trace. What would send if its change handlers acted, because
/// `Updating` is clear, is marked "(handlers act)".
class RecordingView : public LinkView {
  public:
    explicit RecordingView(Trace &trace) : trace_(trace) {}

    const UnitLink *link = nullptr;               ///< whose screen it is
    bool answer = true;                           ///< to every question
    std::function<void()> duringAttempt = [] {};  ///< what the event loop does when it runs once
    std::function<void()> duringProgress = [] {}; ///< what it does while the progress dialog comes up
    std::function<void()> duringBox = [] {};      ///< what it does while a box is open
    std::function<void()> onOffLine = [] {};
    std::function<void()> onShowSent = [] {};
    std::function<void(const Changed &)> follow = [](const Changed &) {};
    Changed lastChanged{Source::Edit};

    void ShowConnectStatus(LinkState state) override
    {
        constexpr std::array Captions{"lamp Off Line", "lamp On Line", "lamp Data?"};
        Write(Captions[std::size_t(state)]);
        if (state == LinkState::OffLine)
            onOffLine();
    }
    void EnableFrames(bool enable) override { Write(enable ? "frames on" : "frames off"); }
    void SetPolling(bool on) override { Write(on ? "poll timer on" : "poll timer off"); }

    void ShowProgress(std::string_view caption, int failures) override
    {
        Write(failures == 0 ? "progress: " + std::string(caption) : "attempt " + std::to_string(failures));
        failures == 0 ? duringProgress() : duringAttempt();
    }
    void ShowUnitVersion(const std::array<std::string, 3> &lines) override
    {
        Write(lines[0].empty() ? "hide versions"
                               : "versions " + lines[0] + " | " + lines[1] + " | " + lines[2]);
    }

    bool ShowBox(LinkBox kind, std::string_view title, std::string_view text) override
    {
        Write((kind == LinkBox::Report ? "box " : "ask ") + std::string(title) + ": " + std::string(text));
        duringBox();
        return answer;
    }

    void Show(const Changed &changed) override
    {
        constexpr std::array Sources{"show edit",   "show date",    "reflect",
                                     "show update", "show re-read", "show connection",
                                     "show file",   "show reset",   "show revert"};
        std::string line = Sources[std::size_t(changed.source)];
        if (changed.source == Source::Poll)
            ForEachField([&](FieldId id, const Field &field) {
                if (changed.Has(id))
                    line += std::string(" ") + field.name;
            });
        lastChanged = changed;
        follow(changed);
        Write(changed.source == Source::Upload || link->Updating ? line : line + " (handlers act)");
    }
    void ShowSent() override { onShowSent(); }
    void StreamLock(bool locked) override { Write(locked ? "stream lock" : "no stream"); }

  private:
    void Write(const std::string &line) { trace_.push_back(line); }

    Trace &trace_;
};

} // namespace kelvo
