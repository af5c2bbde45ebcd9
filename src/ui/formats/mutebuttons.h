#pragma once

#include "edit/editor.h"
#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"

#include <QObject>

#include <vector>

namespace kelvo {

/// The five mute buttons on their tabs, which show one state.
class MuteButtons : public QObject, public Panel {
    Q_OBJECT

  public:
    MuteButtons(Editor &editor, QObject *parent);

    /// A button that toggles the mute when clicked.
    StateButton *Build(const char *name);
    /// A button that only shows the mute; its owner handles the click.
    StateButton *BuildShowing(const char *name);

    /// The shared handler: turns the mute over.
    void cmdMute_Click() { editor_.Apply(ToggleMute(editor_.Room())); }
    void Show(const Changed &changed) override;

  private:
    void ReflectMuteStatus();

    Editor &editor_;
    std::vector<StateButton *> buttons_;
};

} // namespace kelvo
