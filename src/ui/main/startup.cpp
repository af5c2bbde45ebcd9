#include "ui/main/frmmain.h"

#include "files/configfile.h"
#include "files/preferencesfile.h"
#include "ui/main/messages.h"

#include <QAction>
#include <QDir>
#include <QFile>

namespace kelvo {

namespace {

constexpr int LowestScreen = 600; ///< pixels; the window fits a screen of 800 x 600
constexpr auto SnapshotName = "temp.qm4";
constexpr auto PreferencesName = "settings.dat";

} // namespace

void FrmMain::Form_Load()
{
    optionsPanel_->InitialiseLookupArrays();
    InitialiseSettings();

    link_.SetConnectStatus(LinkState::OffLine);
    link_.Updating = true;
    ClearTabStatus();
    frmtabs_[shownTab_]->setEnabled(true);
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
        mnuNew_Click();
    link_.RetryFunction(UnitOp::StopStream);
    optical_->Stream().ForgetProjector();

    help_->LoadHelp(places_.helpFile);
    link_.Updating = false;
    started_ = true;
    TakeSnapshot();
}

void FrmMain::InitialiseSettings()
{
    if (places_.ownsFiles)
        QFile::remove(SnapshotFile()); // left by a run that never came to its end
    baudIndex_ = 0;
    options_ = ReadPreferences(PreferencesFile().toStdString());
    // Deliberate: the other way round than the menu item's own toggle, which rules from its first use on.
    mnuConfirm_->setEnabled(options_.AutoUpload);
    mnuShort_->setEnabled(options_.AutoUpload);
    ReflectMarks();
    if (places_.serialIniMissing())
        library_.DLLCreateIni();
}

void FrmMain::FitScreen()
{
    // The window just fits such a screen, and only from its very top.
    if (places_.screenHeight == LowestScreen)
        move(x(), 0);
}

QString FrmMain::SnapshotFile() const
{
    return QDir(places_.programDirectory).filePath(SnapshotName);
}

QString FrmMain::PreferencesFile() const
{
    return QDir(places_.programDirectory).filePath(PreferencesName);
}

void FrmMain::TakeSnapshot()
{
    if (snapshotTaken_ || !places_.ownsFiles || !link_.UnitOnline() || link_.InCall())
        return;
    if (const auto failure = SaveConfigFile(SnapshotFile().toStdString(), room_))
        Tell(this, messages::CannotSave,
             {QDir::toNativeSeparators(SnapshotFile()), QString::fromStdString(failure->reason)});
    else
        snapshotTaken_ = true;
}

} // namespace kelvo
