#include "ui/main/frmmain.h"

#include "model/tables.h"
#include "ui/main/messages.h"

#include <QApplication>
#include <QDir>

namespace kelvo {

namespace {

QString Text(std::string_view text)
{
    return QString::fromUtf8(text.data(), qsizetype(text.size()));
}

} // namespace

void FrmMain::ShowConnectStatus(LinkState state)
{
    column_->ShowConnectStatus(state);
    repaint();
    if (state == LinkState::InDoubt)
        return;
    tabs_->ShowHints(state == LinkState::OffLine);
    if (state == LinkState::OffLine)
        panels_.optical->Stream().StopIfRunning();
}

void FrmMain::EnableFrames(bool enable)
{
    panels_.EnableConnected(enable);
    tabs_->EnableShown(enable);
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
    panels_.formats->ShowUnitVersion(lines);
}

bool FrmMain::ShowBox(LinkBox kind, std::string_view title, std::string_view text)
{
    const std::string titleText(title);
    const std::string boxText(text);
    bool yes = false;
    if (kind == LinkBox::YesOrNo)
        yes = Ask(this, {Question, titleText.c_str(), boxText.c_str()});
    else if (closing_->MayAsk())
        Tell(this, {Exclamation, titleText.c_str(), boxText.c_str()});
    closing_->CarryOutClose();
    return yes;
}

void FrmMain::Show(const Changed &changed)
{
    editor_.Follow(changed);
    ShowRoom(changed);
    if (changed.source == Source::Connection)
        panels_.ShowTestSignals(link_.Holds().Playing);
    const bool asked = changed.source == Source::Connection || changed.source == Source::Update;
    // A re-read that left unsent settings standing makes the screen nobody's but the user's.
    const bool reread = changed.source == Source::Reread && link_.Differences() == 0;
    if ((asked || reread) && link_.UnitOnline())
        ShowTitle(messages::FromUnit);
    if (changed.source == Source::Poll)
        repaint();
}

void FrmMain::ShowRoom(const Changed &changed)
{
    panels_.Show(changed);
}

void FrmMain::ShowSent()
{
    column_->ShowSent(link_.Differences(), link_.UnitOnline(), recovery_->Offer());
    panels_.ShowUnsent(link_.NotInUnit());
    column_->ShowSlots(editor_.Kept(), editor_.Room());
    edit_->Reflect();
    tools_->Follow();
    files_->FollowFile();
    ShowStateLine();
    // What windows remember is written some time after it changed.
    if (memory_.status() == QSettings::AccessError)
        TellFault(QString(messages::CannotRemember).arg(QDir::toNativeSeparators(memory_.fileName())));
}

/// The line takes what it offers, else it tells what it counts.
void FrmMain::lblSent_Click()
{
    if (!menus_->Usable())
        return;
    if (link_.Differences().value_or(0) == 0 && !recovery_->Offer().isEmpty())
        edit_->mnuRecover_Click();
    else
        tools_->OpenDiffers();
}

void FrmMain::TellFault(const QString &fault)
{
    if (stateLine_->Tell(fault))
        places_.report(fault);
}

/// What the unit was last told, or told us; a lost link does not change that.
void FrmMain::ShowStateLine()
{
    const UnitHolds &holds = link_.Holds();
    const bool measuring = panels_.optical->Stream().Running();
    const Word format = holds.LiveOr(field::Format, FormatCount);
    stateLine_->Show(
        {.port = menus_->PortCaption(),
         .speed = menus_->SpeedCaption(),
         .muted = holds.LiveOr(field::Mute, False) != False,
         .playing = holds.Playing,
         .measuring = measuring && format < FormatCount ? ModeCaption[std::size_t(format)] : nullptr});
}

void FrmMain::StreamLock(bool locked)
{
    panels_.optical->StreamLock(locked);
}

void FrmMain::ShowTitle(const QString &name)
{
    setWindowTitle(QString(messages::WindowTitle).arg(name));
}

} // namespace kelvo
