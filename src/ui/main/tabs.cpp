#include "ui/main/frmmain.h"

#include "ui/main/messages.h"

#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>

namespace kelvo {

namespace {

/// The tabs on which levels are set, at fader 7.0.
bool SetsLevels(Tab tab)
{
    return tab == Tab::OutputTrim || tab == Tab::Eq || tab == Tab::Obe;
}

} // namespace

void FrmMain::SSTAB1_Click(int tab)
{
    if (tab == shownTab_)
        return;
    // Level fields stop the user's own ways to another tab at a bad value; this is for all others.
    if (link_.InCall() || !entries_.CommitEntry()) {
        const QSignalBlocker quietly(SSTAB1_);
        SSTAB1_->setCurrentIndex(shownTab_);
        if (entries_.editing)
            entries_.editing->setFocus();
        return;
    }
    const int previous = std::exchange(shownTab_, tab);
    // The first focus of a tab is never one of its sliders.
    SSTAB1_->tabBar()->setFocus();
    if (SetsLevels(Tab(tab)) && masterFader_->FieldText() != "7.0" && Ask(this, messages::FaderNominal))
        masterFader_->SetNominal();

    ClearTabStatus();
    frmtabs_[tab]->setEnabled(link_.UnitOnline());
    if (Tab(tab) == Tab::Obe)
        link_.RetryFunction(UnitOp::EnableOBE);
    if (Tab(tab) == Tab::TheaterInformation)
        theater_->ApplyTheaterTabFields();
    SwitchOffTab(previous);
}

void FrmMain::ClearTabStatus()
{
    for (QWidget *panel : frmtabs_)
        panel->setEnabled(false);
}

void FrmMain::SwitchOffTab(int tab)
{
    if (panelOfTab_[tab])
        panelOfTab_[tab]->LeaveTab();
}

} // namespace kelvo
