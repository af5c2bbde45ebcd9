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
    repaint();

    if (state == LinkState::InDoubt)
        return;
    for (QLabel *lblHint : lblHint_)
        lblHint->setVisible(state == LinkState::OffLine);
    if (state == LinkState::OffLine)
        optical_->Stream().StopIfRunning();
}

void FrmMain::EnableFrames(bool enable)
{
    for (QWidget *control : connected_)
        control->setEnabled(enable);
    frmtabs_[shownTab_]->setEnabled(enable);
}

void FrmMain::SetPolling(bool on)
{
    if (on)
        tmrPoll_->start();
    else
        tmrPoll_->stop();
}

void FrmMain::ShowProgress(std::string_view caption, int failures)
{
    // Shown once an attempt: its "Cancel" hides it until the next one.
    const bool first = !frmProg_;
    if (first)
        frmProg_ = std::make_unique<FrmProg>(this);
    if (failures == 0) {
        frmProg_->ShowCaption(Text(caption));
        if (first)
            frmProg_->ShowNow();
        return;
    }
    frmProg_->ShowFailures(failures);
    QApplication::processEvents();
}

void FrmMain::ShowUnitVersion(const std::array<std::string, 3> &lines)
{
    for (std::size_t line = 0; line < lines.size(); ++line)
        lnlInfo_[line]->setText(Text(lines[line]));
    unitInformation_->setVisible(!lines[0].empty());
}

bool FrmMain::ShowBox(LinkBox kind, std::string_view title, std::string_view text)
{
    const std::string titleText(title);
    const std::string boxText(text);
    bool yes = false;
    if (kind == LinkBox::YesOrNo)
        yes = Ask(this, {Question, titleText.c_str(), boxText.c_str()});
    else if (mayAsk_)
        Tell(this, {Exclamation, titleText.c_str(), boxText.c_str()});
    CarryOutClose();
    return yes;
}

void FrmMain::Show(const Changed &changed)
{
    for (Panel *panel : panels_)
        panel->Show(changed);
    if (changed.source == Source::Connection)
        ShowTestSignals(link_.Holds().Playing);
    if (changed.source == Source::Connection || changed.source == Source::Update)
        ShowTitle(messages::FromUnit);
    if (changed.source == Source::Poll)
        repaint();
}

void FrmMain::ShowTestSignals(const TestSignals &playing)
{
    for (Panel *panel : panels_)
        panel->ShowTestSignals(playing);
}

void FrmMain::ShowSent()
{
    lblSent_->setText(QString::fromStdString(messages::SentText(link_.Differences())));
}

void FrmMain::StreamLock(bool locked)
{
    optical_->StreamLock(locked);
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
