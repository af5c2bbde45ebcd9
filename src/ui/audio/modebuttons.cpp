#include "ui/audio/modebuttons.h"

namespace kelvo {

ModeButtons::ModeButtons(Settings &settings, UnitLink &link) : settings_(settings), link_(link)
{
}
void ModeButtons::ReflectModeStatus()
{
}
void ModeButtons::SetF1Caption(const QString &)
{
}
void ModeButtons::cmdMode_Click(int)
{
}

} // namespace kelvo
