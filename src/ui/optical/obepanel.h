#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QPushButton>
#include <QWidget>

namespace kelvo {

/// The tab "O&BE": the OBE function, its level and frequency, and its two noise buttons.
class ObePanel : public QWidget {
    Q_OBJECT

  public:
    /// `cmdMute3` and `masterFader` are placed on the tab.
    ObePanel(Settings &settings, UnitLink &link, EntryWindow &entries, QPushButton *cmdMute3,
             QWidget *masterFader);

    /// Level, frequency and state show the model.
    void Show();
    void ReflectOBEStatus();
    /// `cmdPNC` and `cmdPNS` read "Off"; nothing is sent.
    void ShowTestSignalsOff();
    /// Leaving the tab (and the options tab) switches their noise off.
    void LeaveTab();

  private:
    Settings &settings_;
    UnitLink &link_;
};

} // namespace kelvo
