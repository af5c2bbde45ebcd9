#pragma once

#include "model/changed.h"
#include "unit/testsignals.h"

namespace kelvo {

/// A place that shows the room. The main window walks one list of them.
class Panel {
  public:
    virtual ~Panel() = default;

    /// These settings have new values: what shows them follows, quietly.
    virtual void Show(const Changed &changed) = 0;
    /// Its tab is left: whatever it left running is switched off.
    virtual void LeaveTab() {}
    /// Its buttons read as what plays; nothing is sent.
    virtual void ShowTestSignals(const TestSignals &) {}
    /// These settings are not in the unit: their sliders and lists are marked, the others are not.
    virtual void ShowUnsent(const FieldSet &) {}
};

} // namespace kelvo
