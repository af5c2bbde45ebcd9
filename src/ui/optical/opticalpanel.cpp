#include "ui/optical/opticalpanel.h"

namespace kelvo {

OpticalPanel::OpticalPanel(Settings &settings, UnitLink &link, EntryWindow &, Surroundings surroundings)
    : settings_(settings),
      link_(link),
      surroundings_(std::move(surroundings))
{
}
bool OpticalPanel::Streaming() const
{
    return false;
}
void OpticalPanel::cmdStart_Click()
{
}
void OpticalPanel::cmdMute4_Click()
{
}
void OpticalPanel::StreamLock(bool)
{
}
void OpticalPanel::ShowTestSignalsOff()
{
}
void OpticalPanel::LeaveTab()
{
}

} // namespace kelvo
