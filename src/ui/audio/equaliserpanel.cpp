#include "ui/audio/equaliserpanel.h"

namespace kelvo {

EqualiserPanel::EqualiserPanel(Settings &settings, UnitLink &link, EntryWindow &, MuteButtons &,
                               MasterFader &, QWidget *)
    : settings_(settings),
      link_(link)
{
}
void EqualiserPanel::SaveChannelData()
{
}
void EqualiserPanel::LoadChannelData()
{
}
void EqualiserPanel::ShowTestSignalsOff()
{
}
void EqualiserPanel::LeaveTab()
{
}
bool EqualiserPanel::RunShortcut(QChar)
{
    return false;
}

} // namespace kelvo
