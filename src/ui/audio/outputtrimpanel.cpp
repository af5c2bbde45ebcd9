#include "ui/audio/outputtrimpanel.h"

namespace kelvo {

OutputTrimPanel::OutputTrimPanel(Settings &settings, UnitLink &link, EntryWindow &, MuteButtons &, QWidget *)
    : settings_(settings),
      link_(link)
{
}
void OutputTrimPanel::Show()
{
}
void OutputTrimPanel::ShowTestSignalsOff()
{
}
void OutputTrimPanel::ShowNoiseOff()
{
}
void OutputTrimPanel::LeaveTab()
{
}

} // namespace kelvo
