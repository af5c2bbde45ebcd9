#pragma once

#include "ui/controls/levelpair.h"
#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"

#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "&Output Trim": six channels with trim, pink noise and phase.
class OutputTrimPanel : public QWidget, public Panel {
    Q_OBJECT

  public:
    /// What the main window places on the tab.
    struct Guests {
        QWidget *faderFrame;
        QPushButton *cmdMute2;
        QPushButton *cmdUp;
    };

    OutputTrimPanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests);

    void Show(const Changed &changed) override;
    void LeaveTab() override;
    void ShowTestSignals(const TestSignals &playing) override;
    void ShowUnsent(const FieldSet &unsent) override;
    /// The six `cmdPN` read "Off"; nothing is sent.
    void ShowNoiseOff();

  private:
    struct ChannelColumn {
        LevelPair *trim;
        ToggleButton *cmdPN;
        ToggleButton *cmdPhase;
    };

    QWidget *BuildChannels();
    void BuildColumn(int channel, class LevelBoard &board);
    QWidget *BuildCommands(const Guests &guests);

    void cmdPN_Click(int channel);
    void cmdPhase_Click(int channel);
    void cmdReset_Click();
    ChannelColumn &Column(int channel) { return columns_[channel]; }

    Editor &editor_;
    UnitLink &link_;
    EntryWindow &entries_;
    std::array<ChannelColumn, ChannelCount> columns_{};
};

} // namespace kelvo
