#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/levelpair.h"
#include "ui/controls/statebutton.h"
#include "unit/unitlink.h"

#include <QComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "O&BE": the OBE function, its level and frequency, and its two noise buttons.
class ObePanel : public QWidget {
    Q_OBJECT

  public:
    /// `cmdMute3` and `faderFrame` are placed on the tab.
    ObePanel(Settings &settings, UnitLink &link, EntryWindow &entries, QPushButton *cmdMute3,
             QWidget *faderFrame);

    /// Level, frequency and state show the model.
    void Show();
    /// `cmdPNC` and `cmdPNS` read "Off"; nothing is sent.
    void ShowTestSignalsOff();
    /// Leaving the tab (and the options tab) switches their noise off.
    void LeaveTab();

  private:
    void ReflectOBEStatus();
    /// A noise button and the channel that it plays on.
    struct Noise {
        ToggleButton *button;
        Word channel;
    };

    QGroupBox *BuildObe();
    QGroupBox *BuildLevel(EntryWindow &entries);
    QGroupBox *BuildNoise(QPushButton *cmdMute3);

    void cmdOBEEnable_Click();
    void cboObeF_Click(int index);
    void StoreLevel(int position);
    void Upload();
    void cmdNoise_Click(const Noise &noise);

    Settings &settings_;
    UnitLink &link_;
    ToggleButton *cmdOBEEnable_;
    QComboBox *cboObeF_;
    LevelPair *level_;
    std::array<Noise, 2> noise_{};
};

} // namespace kelvo
