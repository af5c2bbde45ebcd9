#include "ui/main/frmmain.h"

#include "files/preferencesfile.h"
#include "ui/controls/toolwindow.h"
#include "ui/main/messages.h"

#include <QPointer>
#include <QTabBar>

namespace kelvo {

namespace {

constexpr int LowestScreen = 600; ///< pixels; the window fits a screen of 800 x 600

} // namespace

void FrmMain::Form_Load()
{
    panels_.options->InitialiseLookupArrays();
    InitialiseSettings();

    link_.SetConnectStatus(LinkState::OffLine);
    link_.Updating = true;
    tabs_->ClearTabStatus();
    tabs_->EnableShown(true);
    if (places_.screenHeight < LowestScreen)
        Tell(this, messages::SmallScreen);
    FitScreen();

    if (places_.missingLibrary.isEmpty()) {
        cmdConnect_Click();
    } else {
        EnableFrames(false);
        ShowUnitVersion({});
        Tell(this, messages::MissingLibrary, {places_.missingLibrary});
    }
    if (!link_.UnitOnline())
        files_->mnuNew_Click();
    link_.RetryFunction(UnitOp::StopStream);
    panels_.optical->Stream().ForgetProjector();

    panels_.help->LoadHelp(places_.helpFile);
    link_.Updating = false;
    started_ = true;
    snapshot_.Take();
    recovery_->Look();
    ShowSent();
}

void FrmMain::InitialiseSettings()
{
    snapshot_.Keep(); // left by a run that never came to its end
    options_ = ReadPreferences(places_.PreferencesFile().toStdString());
    menus_->ShowPreferences();
    ShowStateLine();
    if (places_.serialIniMissing())
        library_.DLLCreateIni();
}

void FrmMain::FitScreen()
{
    // The window just fits such a screen, and only from its very top.
    if (places_.screenHeight == LowestScreen)
        move(x(), 0);
}

void FrmMain::cmdConnect_Click()
{
    if (link_.UnitOnline() || link_.InCall() || !entries_.CommitEntry())
        return;
    constexpr int PollInterval = 2000;
    const QPointer<QWidget> focus = focusWidget();
    EnableCommands(false);
    const bool accepted = link_.ConnectToUnit();
    if (accepted)
        tmrPoll_->setInterval(PollInterval);
    frmProg_.reset();
    EnableCommands(true);
    if (focus && focus->isEnabled() && !focusWidget())
        focus->setFocus();
    // Where no window manager gives the focus back, the window would stay deaf to keys.
    if (isVisible())
        activateWindow();
    FitScreen();
    if (accepted && started_ && link_.Holds().Other)
        snapshot_.Renew();
    else if (started_)
        snapshot_.Take();
    closing_->CarryOutClose();
}

void FrmMain::EnableCommands(bool enable)
{
    menus_->Enable(enable);
    column_->EnableConnect(enable);
    for (ToolWindow *window : findChildren<ToolWindow *>())
        window->setEnabled(enable);
    // Changing the tab may ask and send, so it waits as well.
    tabs_->tabBar()->setEnabled(enable);
}

} // namespace kelvo
