#include "ui/main/frmmain.h"

#include "ui/controls/named.h"
#include "ui/simulator/frmsimulator.h"
#include "ui/theatre/frmtheater.h"
#include "ui/theatre/frmtime.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QPointer>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>

namespace kelvo {

namespace {

QMenu *Submenu(auto *parent, const char *name, const char *caption)
{
    QMenu *menu = Named(parent->addMenu(caption), name);
    Named(menu->menuAction(), name);
    return menu;
}

} // namespace

QAction *FrmMain::Item(QMenu *menu, const char *name, const char *caption, std::function<void()> handler)
{
    QAction *action = Named(menu->addAction(caption), name);
    connect(action, &QAction::triggered, this, [this, handler = std::move(handler)] {
        ReflectMarks();
        if (!link_.InCall() && !closing_)
            handler();
        ReflectMarks();
    });
    return action;
}

void FrmMain::BuildMenus()
{
    const auto checkable = [this](QAction *action, std::function<bool()> checked) {
        action->setCheckable(true);
        marks_.emplace_back(action, std::move(checked));
        return action;
    };

    mnuFile_ = Submenu(menuBar(), "mnuFile", "&File");
    Item(mnuFile_, "mnuNew", "New", [this] { mnuNew_Click(); });
    Item(mnuFile_, "mnuLoad", "Open", [this] { mnuLoad_Click(); });
    mnuFile_->addSeparator();
    mnuSave_ = Item(mnuFile_, "mnuSave", "Save", [this] { Save(); });
    Item(mnuFile_, "mnuSaveAs", "Save As ...", [this] { SaveAs(); });
    mnuFile_->addSeparator();
    mnuRef_ = Item(mnuFile_, "mnuRef", "Update", [this] {
        if (entries_.CommitEntry())
            link_.Update();
    });
    mnuFile_->addSeparator();
    Item(mnuFile_, "mnuend", "E&xit", [this] { close(); });

    mnuOpt_ = Submenu(menuBar(), "mnuOpt", "&Options");
    QMenu *mnuCom = Submenu(mnuOpt_, "mnuCom", "COM Port Selection");
    constexpr std::array<std::pair<const char *, const char *>, 4> Ports{
        {{"mnuCom1", "COM 1"}, {"mnuCom2", "COM 2"}, {"mnuCom3", "COM 3"}, {"mnuCom4", "COM 4"}}};
    for (Word port = 1; const auto &[name, caption] : Ports) {
        checkable(Item(mnuCom, name, caption, [this, port] { options_.ComPort = port; }),
                  [this, port] { return options_.ComPort == port; });
        ++port;
    }
    mnuBaud_ = Submenu(mnuOpt_, "mnuBaud", "Baud Rate");
    constexpr std::array<std::pair<const char *, const char *>, 4> Rates{
        {{"mnuBaud1", "9600"}, {"mnuBaud2", "19200"}, {"mnuBaud3", "38400"}, {"mnuBaud4", "57600"}}};
    for (Word index = 0; const auto &[name, caption] : Rates) {
        checkable(Item(mnuBaud_, name, caption, [this, index] { mnuBaud_Click(index); }),
                  [this, index] { return baudIndex_ == index; });
        ++index;
    }

    Preferences &options = options_;
    QMenu *mnuUopt = Submenu(mnuOpt_, "mnuUopt", "Upload Options");
    checkable(Item(mnuUopt, "mnuAuto", "Automatically Upload", [this] { mnuAuto_Click(); }),
              [&options] { return options.AutoUpload; });
    mnuConfirm_ = checkable(Item(mnuUopt, "mnuConfirm", "Confirm Message Box",
                                 [&options] { options.ConfirmUpload = !options.ConfirmUpload; }),
                            [&options] { return options.ConfirmUpload; });
    mnuShort_ = checkable(
        Item(mnuUopt, "mnuShort", "Enable Shortcuts", [&options] { options.Shortcuts = !options.Shortcuts; }),
        [&options] { return options.Shortcuts; });
    checkable(Item(mnuOpt_, "mnuAutoRef", "Automatic Update", [this] { mnuAutoRef_Click(); }),
              [&options] { return options.AutoRefresh; });
    checkable(Item(mnuOpt_, "mnuSys", "Use System Date/Time", [this] { mnuSys_Click(); }),
              [this] { return useSystemTime_; });
    mnuOpt_->addSeparator();
    Item(mnuOpt_, "mnuSet", "Set Theater Information", [this] { mnuSet_Click(); });
    ReflectMarks();
}

void FrmMain::AddSimulatorMenu(SimulatedUnit &unit)
{
    mnuSimulator_ = Submenu(menuBar(), "mnuSimulator", "Simulated Unit");
    Item(mnuSimulator_, "mnuKnobs", "Knobs and Front Panel", [this, &unit] {
        // Made when it is first wanted: the start need not wait for it.
        auto *frmSimulator = findChild<FrmSimulator *>();
        if (!frmSimulator)
            frmSimulator = new FrmSimulator(unit, this);
        frmSimulator->show();
        frmSimulator->raise();
        frmSimulator->activateWindow();
    });
}

void FrmMain::ReflectMarks()
{
    for (const auto &[action, checked] : marks_)
        action->setChecked(checked());
}

void FrmMain::EnableCommands(bool enable)
{
    mnuFile_->setEnabled(enable);
    mnuOpt_->setEnabled(enable);
    if (mnuSimulator_)
        mnuSimulator_->setEnabled(enable);
    cmdConnect_->setEnabled(enable);
    // Changing the tab may ask and send, so it waits as well.
    SSTAB1_->tabBar()->setEnabled(enable);
}

void FrmMain::mnuBaud_Click(Word index)
{
    baudIndex_ = index;
    link_.RetryFunction(UnitOp::SetDLLBaud, index, 0);
}

void FrmMain::mnuAuto_Click()
{
    Preferences &options = options_;
    options.AutoUpload = !options.AutoUpload;
    // Deliberate: the start enables both by the opposite rule.
    mnuConfirm_->setEnabled(!options.AutoUpload);
    mnuShort_->setEnabled(!options.AutoUpload);
}

void FrmMain::mnuAutoRef_Click()
{
    if (!entries_.CommitEntry())
        return;
    const QPointer<QWidget> focus = focusWidget();
    setEnabled(false);
    frmRef_ = std::make_unique<FrmRef>(options_, this);
    connect(frmRef_.get(), &QDialog::finished, this, [this, focus] {
        ReflectMarks();
        setEnabled(true);
        activateWindow();
        // Disabling took it away. Another window had it meanwhile, so a slider is not come to anew.
        if (focus)
            focus->setFocus(Qt::ActiveWindowFocusReason);
    });
    frmRef_->show();
    frmRef_->activateWindow();
    // Deliberate: re-reading at intervals would undo edits that were not sent, so they are sent from now on.
    if (options_.AutoRefresh && !options_.AutoUpload)
        mnuAuto_Click();
}

void FrmMain::mnuSys_Click()
{
    if (!useSystemTime_) {
        useSystemTime_ = true;
        link_.SetConsoleClock(std::nullopt);
        return;
    }
    if (!entries_.CommitEntry())
        return;
    FrmTime frmTime(link_.ConsoleTime(), this);
    if (frmTime.exec() != QDialog::Accepted)
        return;
    useSystemTime_ = false;
    link_.SetConsoleClock(frmTime.Chosen());
    link_.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
}

void FrmMain::mnuSet_Click()
{
    if (!entries_.CommitEntry())
        return;
    FrmTheater(editor_, this).exec();
}

void FrmMain::cmdConnect_Click()
{
    if (link_.UnitOnline() || link_.InCall() || !entries_.CommitEntry())
        return;
    constexpr int PollInterval = 2000;
    const QPointer<QWidget> focus = focusWidget();
    EnableCommands(false);
    if (link_.ConnectToUnit())
        tmrPoll_->setInterval(PollInterval);
    frmProg_.reset();
    EnableCommands(true);
    if (focus && focus->isEnabled() && !focusWidget())
        focus->setFocus();
    // Where no window manager gives the focus back, the window would stay deaf to keys.
    if (isVisible())
        activateWindow();
    FitScreen();
    if (started_)
        TakeSnapshot();
    CarryOutClose();
}

} // namespace kelvo
