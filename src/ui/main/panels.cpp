#include "ui/main/panels.h"

#include "ui/controls/uploadbutton.h"

#include <utility>

namespace kelvo {

Panels::Panels(Editor &editor, UnitLink &link, EntryWindow &entries, const Window &window)
    : fader(new MasterFader(editor, link, entries, window.widget)),
      mute(new MuteButtons(editor, window.widget)),
      modes(new ModeButtons(editor)),
      help(new HelpPanel)
{
    std::array<QPushButton *, 5> cmdUp;
    for (int index = 0; index < int(cmdUp.size()); ++index)
        cmdUp[index] = BuildUploadButton(index, link, entries);
    QWidget *faderOfTrim = fader->BuildFrame("Frame1(1)", 0);
    QWidget *faderOfEq = fader->BuildFrame("Frame8(0)", 1);
    QWidget *faderOfObe = fader->BuildFrame("Frame8(1)", 2);
    StateButton *cmdMute4 = mute->BuildShowing("cmdMute4");
    masterFrame = fader->BuildMaster();

    outputTrim = new OutputTrimPanel(editor, link, entries, {faderOfTrim, mute->Build("cmdMute2"), cmdUp[0]});
    equaliser = new EqualiserPanel(editor, link, entries, {faderOfEq, mute->Build("cmdMute"), cmdUp[1]});
    obe = new ObePanel(editor, link, entries, {faderOfObe, mute->Build("cmdMute3"), cmdUp[2]});
    optical = new OpticalPanel(editor, link, {window.widget, cmdMute4, cmdUp[3], window.timersMayTouchUnit});
    QObject::connect(optical, &OpticalPanel::NoiseShownOff, outputTrim, &OutputTrimPanel::ShowNoiseOff);
    formats = new FormatPage(modes, mute->Build("cmdMute5"));
    options = new OptionsPanel(editor, cmdUp[4]);
    theater = new TheaterPanel(editor, window.editTheater);

    all_ = {modes, mute, fader, outputTrim, equaliser, obe, optical, options, theater};
    connected_ = {cmdUp[0],    cmdUp[1],  cmdUp[2], cmdUp[3],   cmdUp[4],   modes,
                  faderOfTrim, faderOfEq, cmdMute4, faderOfObe, masterFrame};
}

void Panels::Show(const Changed &changed) const
{
    for (Panel *panel : all_)
        panel->Show(changed);
}

void Panels::ShowTestSignals(const TestSignals &playing) const
{
    for (Panel *panel : all_)
        panel->ShowTestSignals(playing);
}

void Panels::ShowUnsent(const FieldSet &unsent)
{
    if (std::exchange(unsent_, unsent) == unsent)
        return;
    for (Panel *panel : all_)
        panel->ShowUnsent(unsent);
}

void Panels::EnableConnected(bool enable) const
{
    for (QWidget *control : connected_)
        control->setEnabled(enable);
}

std::array<TabPages::Content, TabCount> Panels::Contents() const
{
    // Deliberate: noise of the OBE tab that still sounds does not outlast the options tab either.
    return {{{formats, nullptr},
             {outputTrim, outputTrim},
             {equaliser, equaliser},
             {obe, obe},
             {optical, optical},
             {options, obe},
             {theater, nullptr},
             {help, nullptr}}};
}

} // namespace kelvo
