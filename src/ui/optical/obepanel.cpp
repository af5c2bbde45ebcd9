#include "ui/optical/obepanel.h"

namespace kelvo {

ObePanel::ObePanel(Settings &settings, UnitLink &link, EntryWindow &, QPushButton *, QWidget *)
    : settings_(settings),
      link_(link)
{
}
void ObePanel::Show()
{
}
void ObePanel::ReflectOBEStatus()
{
}
void ObePanel::ShowTestSignalsOff()
{
}
void ObePanel::LeaveTab()
{
}

} // namespace kelvo
