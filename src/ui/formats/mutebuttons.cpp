#include "ui/formats/mutebuttons.h"

#include "ui/controls/named.h"

namespace kelvo {

MuteButtons::MuteButtons(Editor &editor, QObject *parent) : QObject(parent), editor_(editor)
{
}

StateButton *MuteButtons::Build(const char *name)
{
    StateButton *button = BuildShowing(name);
    connect(button, &QPushButton::clicked, this, [this] { cmdMute_Click(); });
    return button;
}

StateButton *MuteButtons::BuildShowing(const char *name)
{
    buttons_.push_back(Named(new StateButton("Un-Mute"), name));
    // As wide as either caption needs, so that nothing moves when the state does.
    buttons_.back()->setMinimumWidth(buttons_.back()->sizeHint().width());
    ReflectMuteStatus();
    return buttons_.back();
}

void MuteButtons::Show(const Changed &changed)
{
    if (changed.Has(field::Mute))
        ReflectMuteStatus();
}

void MuteButtons::ReflectMuteStatus()
{
    const bool muted = editor_.Room().MuteState != False;
    for (StateButton *button : buttons_)
        button->Show(muted ? "Un-Mute" : "Mute", muted ? Face::Muted : Face::Normal);
}

} // namespace kelvo
