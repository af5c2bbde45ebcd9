#pragma once

#include "ui/controls/choices.h"
#include "ui/controls/levelpair.h"
#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "O&BE": the OBE function, its level and frequency, and its two noise buttons.
class ObePanel : public QWidget, public Panel {
    Q_OBJECT

  public:
    /// What the main window places on the tab.
    struct Guests {
        QWidget *faderFrame;
        QPushButton *cmdMute3;
        QPushButton *cmdUp;
    };

    ObePanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests);

    void Show(const Changed &changed) override;
    void LeaveTab() override;
    void ShowTestSignals(const TestSignals &playing) override;
    void ShowUnsent(const FieldSet &unsent) override;

  private:
    /// A noise button and the channel that it plays on.
    struct Noise {
        ToggleButton *button;
        int channel;
    };

    QGroupBox *BuildObe();
    QGroupBox *BuildLevel(EntryWindow &entries);
    QGroupBox *BuildNoise(QPushButton *cmdMute3);

    void cmdOBEEnable_Click();
    void cboObeF_Click(int index);
    void cmdNoise_Click(const Noise &noise);
    void ReflectOBEStatus(bool adopted);

    Editor &editor_;
    UnitLink &link_;
    int ObeMode_ =
        1; ///< the frequency that comes back when the function is switched on: 1 to 8 = 50 to 120 Hz
    ToggleButton *cmdOBEEnable_;
    ChoiceList *cboObeF_;
    LevelPair *level_;
    std::array<Noise, 2> noise_{};
};

} // namespace kelvo
