#pragma once

#include "edit/editor.h"
#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"

#include <QGroupBox>

#include <array>

namespace kelvo {

/// The frame `Frame1(3)` "Mode:" with the six buttons that select the unit's format. `cmdMode(0)` shows what
/// the unit's F1 key stands for since the last connection or the user's last choice of it.
class ModeButtons : public QGroupBox, public Panel {
    Q_OBJECT

  public:
    explicit ModeButtons(Editor &editor);

    void Show(const Changed &changed) override;

  private:
    void cmdMode_Click(int index);
    void ReflectModeStatus();
    void ShowF1Format(Source source);

    Editor &editor_;
    std::array<StateButton *, FormatCount> cmdMode_{};
};

} // namespace kelvo
