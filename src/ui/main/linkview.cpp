#include "ui/main/frmmain.h"

#include "ui/controls/appearance.h"
#include "ui/main/messages.h"
#include "unit/messages.h"

#include <QApplication>
#include <QLabel>

namespace kelvo {

namespace {

struct Lamp {
    Colours colours;
    const char *caption;
};

/// In the order of `LinkState`.
constexpr std::array<Lamp, 3> Lamps{
    {{Red, "Off Line"}, {Green, "On Line"}, {{QColor(255, 128, 0), QColorConstants::Black}, "Data?"}}};

/// The frames and buttons that are enabled while a unit is connected, in this order; the visible tab's
/// panel follows them.
constexpr std::array<const char *, 11> ConnectedControls{"cmdUp(0)", "cmdUp(1)",  "cmdUp(2)",  "cmdUp(3)",
                                                         "cmdUp(4)", "Frame1(3)", "Frame1(1)", "Frame8(0)",
                                                         "cmdMute4", "Frame8(1)", "Frame1(5)"};

QString Text(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace

void FrmMain::ShowConnectStatus(LinkState state)
{
    const Lamp &lamp = Lamps[int(state)];
    Fill(lblStat_, lamp.colours);
    lblStat_->setText(lamp.caption);
    // A failing call keeps the thread for seconds: the lamp must be on the screen before it goes on.
    lblStat_->repaint();

    if (state == LinkState::InDoubt)
        return;
    for (QLabel *lblHint : lblHint_)
        lblHint->setVisible(state == LinkState::OffLine);
}

void FrmMain::RepaintWindow()
{
    repaint();
}

void FrmMain::EnableFrames(bool enable)
{
    for (const char *name : ConnectedControls) {
        auto *control = findChild<QWidget *>(QLatin1String(name));
        Q_ASSERT(control);
        control->setEnabled(enable);
    }
    frmtabs_[shownTab_]->setEnabled(enable);
}

void FrmMain::SetPolling(bool on)
{
    if (on)
        tmrPoll_->start();
    else
        tmrPoll_->stop();
}

void FrmMain::ShowProgress(std::string_view caption)
{
    // Shown once an attempt: its "Cancel" hides it until the next one.
    const bool first = !frmProg_;
    if (first)
        frmProg_ = std::make_unique<FrmProg>(this);
    frmProg_->ShowCaption(Text(caption));
    if (first)
        frmProg_->ShowNow();
}

void FrmMain::ShowAttempt(int failures)
{
    if (frmProg_)
        frmProg_->ShowFailures(failures);
    QApplication::processEvents();
}

void FrmMain::HideUnitVersion()
{
    unitInformation_->hide();
}

void FrmMain::ShowUnitVersion(const std::array<std::string, 3> &lines)
{
    for (std::size_t line = 0; line < lines.size(); ++line)
        lnlInfo_[line]->setText(Text(lines[line]));
    unitInformation_->show();
}

void FrmMain::ShowError(std::string_view title, std::string_view text)
{
    const std::string titleText(title);
    const std::string boxText(text);
    if (mayAsk_)
        Tell(this, {Exclamation, titleText.c_str(), boxText.c_str()});
    CarryOutClose();
}

bool FrmMain::Ask(std::string_view title, std::string_view text)
{
    const std::string titleText(title);
    const std::string boxText(text);
    const bool yes = kelvo::Ask(this, {Question, titleText.c_str(), boxText.c_str()});
    CarryOutClose();
    return yes;
}

void FrmMain::ReflectModeStatus()
{
    modes_->ReflectModeStatus();
}

void FrmMain::ReflectMuteStatus()
{
    mute_->ReflectMuteStatus();
}

void FrmMain::ReflectVolumeLevel(bool moveSlider)
{
    masterFader_->ReflectVolumeLevel(moveSlider);
}

void FrmMain::ShowSystemSettings()
{
    options_->Show();
}

void FrmMain::ShowAudioSettings()
{
    outputTrim_->Show();
    obe_->Show();
}

void FrmMain::LoadChannelData()
{
    equaliser_->LoadChannelData();
}

void FrmMain::ShowF1Format()
{
    modes_->SetF1Caption(options_->F1CaptionOfUnit());
}

void FrmMain::ShowSettingsFromUnit()
{
    ShowTitle(messages::FromUnit);
}

void FrmMain::ShowDate()
{
    theater_->ShowDate();
}

void FrmMain::ShowSent()
{
    lblSent_->setText(QString::fromStdString(messages::SentText(link_.Differences())));
}

void FrmMain::StreamLock(bool locked)
{
    optical_->StreamLock(locked);
}

void FrmMain::StopRunningStream()
{
    optical_->StopRunningStream();
}

void FrmMain::ShowTitle(const QString &name)
{
    setWindowTitle(QString(messages::WindowTitle).arg(name));
}

bool FrmMain::TimersMayTouchUnit() const
{
    return !link_.InCall() && !closing_ && !QApplication::activeModalWidget();
}

} // namespace kelvo
