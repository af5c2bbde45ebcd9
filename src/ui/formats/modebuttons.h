#pragma once

#include "model/settings.h"
#include "ui/controls/statebutton.h"
#include "unit/unitlink.h"

#include <QGroupBox>

#include <array>

namespace kelvo {

/// The frame `Frame1(3)` "Mode:" with the six buttons that select the unit's format.
class ModeButtons : public QGroupBox {
    Q_OBJECT

  public:
    ModeButtons(Settings &settings, UnitLink &link);

    void ReflectModeStatus();
    /// `cmdMode(0)` shows what the unit's F1 key stands for.
    void SetF1Caption(const QString &caption);

  private:
    void cmdMode_Click(int index);

    Settings &settings_;
    UnitLink &link_;
    std::array<StateButton *, FormatCount> cmdMode_{};
};

} // namespace kelvo
