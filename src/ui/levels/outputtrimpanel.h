#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/levelpair.h"
#include "ui/controls/statebutton.h"
#include "ui/formats/mutebuttons.h"
#include "unit/unitlink.h"

#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "&Output Trim": six channels with trim, pink noise and phase.
class OutputTrimPanel : public QWidget {
    Q_OBJECT

  public:
    /// `faderFrame` is the frame placed beside the channels; `mute` gives `cmdMute2`.
    OutputTrimPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                    QWidget *faderFrame);

    /// The trims show the model.
    void Show();
    /// All noise buttons read "Off" and all phase buttons "In Phase"; nothing is sent.
    void ShowTestSignalsOff();
    /// The six `cmdPN` read "Off"; nothing is sent.
    void ShowNoiseOff();
    /// Leaving the tab switches off what it left running.
    void LeaveTab();

  private:
    struct ChannelColumn {
        LevelPair *trim;
        ToggleButton *cmdPN;
        ToggleButton *cmdPhase;
    };

    QWidget *BuildChannels();
    void BuildColumn(int channel, class LevelBoard &board);
    QWidget *BuildCommands(QWidget *faderFrame);

    void cmdPN_Click(int channel);
    void cmdPhase_Click(int channel);
    void cmdReset_Click();
    void StoreTrim(int channel);
    void Upload();
    ChannelColumn &Column(int channel) { return columns_[channel]; }

    Settings &settings_;
    UnitLink &link_;
    EntryWindow &entries_;
    MuteButtons &mute_;
    std::array<ChannelColumn, ChannelCount> columns_{};
};

} // namespace kelvo
