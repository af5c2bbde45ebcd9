#pragma once

#include "model/settings.h"
#include "support/recordinglibrary.h"
#include "unit/linkview.h"

#include <functional>

namespace kelvo {

/// A screen that writes what it is asked into a trace. What would send if its change handlers acted, because
/// `Updating` is clear, is marked "(handlers act)".
class RecordingView : public LinkView {
  public:
    RecordingView(const Settings &settings, Trace &trace) : settings_(settings), trace_(trace) {}

    bool answer = true;                          ///< to every question
    std::function<void()> duringAttempt = [] {}; ///< what the event loop does when it runs once
    std::function<void()> duringBox = [] {};     ///< what it does while a box is open
    std::function<void()> onStopStream = [] {};
    std::function<void()> onShowSent = [] {};

    void ShowConnectStatus(LinkState state) override
    {
        switch (state) {
        case LinkState::OffLine:
            return Write("lamp Off Line");
        case LinkState::OnLine:
            return Write("lamp On Line");
        case LinkState::InDoubt:
            return Write("lamp Data?");
        }
    }
    void RepaintWindow() override { Write("repaint"); }
    void EnableFrames(bool enable) override { Write(enable ? "frames on" : "frames off"); }
    void SetPolling(bool on) override { Write(on ? "poll timer on" : "poll timer off"); }

    void ShowProgress(std::string_view caption) override { Write("progress: " + std::string(caption)); }
    void ShowAttempt(int failures) override
    {
        Write("attempt " + std::to_string(failures));
        duringAttempt();
    }
    void HideUnitVersion() override { Write("hide versions"); }
    void ShowUnitVersion(const std::array<std::string, 3> &lines) override
    {
        Write("versions " + lines[0] + " | " + lines[1] + " | " + lines[2]);
    }

    void ShowError(std::string_view title, std::string_view text) override
    {
        Write("box " + std::string(title) + ": " + std::string(text));
        duringBox();
    }
    bool Ask(std::string_view title, std::string_view text) override
    {
        Write("ask " + std::string(title) + ": " + std::string(text));
        duringBox();
        return answer;
    }

    void ReflectModeStatus() override { WriteChange("reflect mode"); }
    void ReflectMuteStatus() override { WriteChange("reflect mute"); }
    void ReflectVolumeLevel(bool moveSlider) override
    {
        WriteChange(moveSlider ? "reflect volume" : "reflect volume, slider left alone");
    }
    void ShowSystemSettings() override { WriteChange("show system"); }
    void ShowAudioSettings() override { WriteChange("show audio"); }
    void LoadChannelData() override { Write("load channel"); }
    void ShowF1Format() override { Write("show F1 format"); }
    void ShowSettingsFromUnit() override { Write("title CP Settings"); }
    void ShowDate() override { Write("show date"); }
    void ShowSent() override { onShowSent(); }

    void StreamLock(bool locked) override { Write(locked ? "stream lock" : "no stream"); }
    void StopRunningStream() override
    {
        Write("stop running stream");
        onStopStream();
    }

  private:
    void Write(const std::string &line) { trace_.push_back(line); }
    void WriteChange(const std::string &line) { Write(settings_.Updating ? line : line + " (handlers act)"); }

    const Settings &settings_;
    Trace &trace_;
};

} // namespace kelvo
