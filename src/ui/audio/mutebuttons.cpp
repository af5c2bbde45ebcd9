#include "ui/audio/mutebuttons.h"

namespace kelvo {

MuteButtons::MuteButtons(Settings &settings, UnitLink &link, QObject *parent)
    : QObject(parent),
      settings_(settings),
      link_(link)
{
}
StateButton *MuteButtons::Build(const char *)
{
    return new StateButton("Mute");
}
StateButton *MuteButtons::BuildShowing(const char *)
{
    return new StateButton("Mute");
}
void MuteButtons::cmdMute_Click()
{
}
void MuteButtons::ReflectMuteStatus()
{
}

} // namespace kelvo
