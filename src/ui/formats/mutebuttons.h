#pragma once

#include "model/settings.h"
#include "ui/controls/statebutton.h"
#include "unit/unitlink.h"

#include <QObject>

#include <vector>

namespace kelvo {

/// The five mute buttons on their tabs, which show one state.
class MuteButtons : public QObject {
    Q_OBJECT

  public:
    MuteButtons(Settings &settings, UnitLink &link, QObject *parent);

    /// A button that toggles the mute when clicked.
    StateButton *Build(const char *name);
    /// A button that only shows the mute; its owner handles the click.
    StateButton *BuildShowing(const char *name);

    /// The shared handler: turns the flag over, sends it, shows it.
    void cmdMute_Click();
    void ReflectMuteStatus();

  private:
    Settings &settings_;
    UnitLink &link_;
    std::vector<StateButton *> buttons_;
};

} // namespace kelvo
