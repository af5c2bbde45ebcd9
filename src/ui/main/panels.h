#pragma once

#include "ui/controls/entrywindow.h"
#include "ui/equaliser/equaliserpanel.h"
#include "ui/formats/modebuttons.h"
#include "ui/formats/mutebuttons.h"
#include "ui/formats/optionspanel.h"
#include "ui/help/helppanel.h"
#include "ui/levels/masterfader.h"
#include "ui/levels/obepanel.h"
#include "ui/levels/outputtrimpanel.h"
#include "ui/main/formatpage.h"
#include "ui/main/tabpages.h"
#include "ui/optical/opticalpanel.h"
#include "ui/theatre/theaterpanel.h"

#include <functional>

namespace kelvo {

/// Everything that shows the room: made, joined and handed what stands on its tab in one place, and walked as
/// one list. The widgets belong to the window as soon as they stand in it.
class Panels {
  public:
    /// What a panel asks of the main window.
    struct Window {
        QWidget *widget; ///< owns timers, boxes and the fader dialog
        std::function<bool()> timersMayTouchUnit;
        std::function<void()> editTheater;
    };

    Panels(Editor &editor, UnitLink &link, EntryWindow &entries, const Window &window);

    void Show(const Changed &changed) const;
    void ShowTestSignals(const TestSignals &playing) const;
    /// Cheap while it is the same as before.
    void ShowUnsent(const FieldSet &unsent);
    /// The frames and buttons that are enabled while a unit is connected.
    void EnableConnected(bool enable) const;
    std::array<TabPages::Content, TabCount> Contents() const;

    MasterFader *fader;
    QWidget *masterFrame; ///< `Frame1(5)`
    MuteButtons *mute;
    ModeButtons *modes;
    FormatPage *formats;
    OutputTrimPanel *outputTrim;
    EqualiserPanel *equaliser;
    ObePanel *obe;
    OpticalPanel *optical;
    OptionsPanel *options;
    TheaterPanel *theater;
    HelpPanel *help;

  private:
    std::vector<Panel *> all_;
    std::vector<QWidget *> connected_;
    FieldSet unsent_;
};

} // namespace kelvo
