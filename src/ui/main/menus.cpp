#include "ui/main/menus.h"

#include "ui/controls/named.h"
#include "ui/simulator/frmsimulator.h"
#include "ui/theatre/frmtheater.h"
#include "ui/theatre/frmtime.h"

#include <QApplication>
#include <QMenuBar>
#include <QPointer>

namespace kelvo {

namespace {

QMenu *Submenu(auto *parent, const char *name, const char *caption)
{
    QMenu *menu = Named(parent->addMenu(caption), name);
    Named(menu->menuAction(), name);
    return menu;
}

using NameAndCaption = std::pair<const char *, const char *>;
constexpr std::array<NameAndCaption, 4> Ports{
    {{"mnuCom1", "COM 1"}, {"mnuCom2", "COM 2"}, {"mnuCom3", "COM 3"}, {"mnuCom4", "COM 4"}}};
constexpr std::array<NameAndCaption, 4> Rates{
    {{"mnuBaud1", "9600"}, {"mnuBaud2", "19200"}, {"mnuBaud3", "38400"}, {"mnuBaud4", "57600"}}};

} // namespace

Menus::Menus(QMainWindow *window, const Desk &desk) : QObject(window), window_(window), desk_(desk)
{
    BuildFile(window->menuBar());
    BuildOptions(window->menuBar());
    mnuEdit_ = Submenu(window->menuBar(), "mnuEdit", "E&dit");
    mnuTools_ = Submenu(window->menuBar(), "mnuTools", "Too&ls");
    ReflectMarks();
}

QAction *Menus::Item(QMenu *menu, const char *name, const QString &caption, std::function<void()> handler)
{
    QAction *action = Named(menu->addAction(caption), name);
    connect(action, &QAction::triggered, this, [this, handler = std::move(handler)] {
        ReflectMarks();
        if (!desk_.busy())
            handler();
        ReflectMarks();
    });
    return action;
}

QAction *Menus::Marked(QAction *action, std::function<bool()> checked)
{
    action->setCheckable(true);
    marks_.emplace_back(action, std::move(checked));
    return action;
}

void Menus::ReflectMarks()
{
    for (const auto &[action, checked] : marks_)
        action->setChecked(checked());
}

void Menus::BuildFile(QMenuBar *bar)
{
    FileCommands &files = desk_.files;
    mnuFile_ = Submenu(bar, "mnuFile", "&File");
    Item(mnuFile_, "mnuNew", "New", [&files] { files.mnuNew_Click(); });
    Item(mnuFile_, "mnuLoad", "Open", [&files] { files.mnuLoad_Click(); });
    mnuFile_->addSeparator();
    QAction *mnuSave = Item(mnuFile_, "mnuSave", "Save", [&files] { files.mnuSave_Click(); });
    connect(&files, &FileCommands::MaySave, mnuSave, &QAction::setEnabled);
    Item(mnuFile_, "mnuSaveAs", "Save As ...", [&files] { files.mnuSaveAs_Click(); });
    mnuFile_->addSeparator();
    mnuRef_ = Item(mnuFile_, "mnuRef", "Update", [this] {
        if (desk_.entries.CommitEntry())
            desk_.link.Update();
    });
    mnuFile_->addSeparator();
    Item(mnuFile_, "mnuend", "E&xit", [this] { window_->close(); });
}

void Menus::BuildOptions(QMenuBar *bar)
{
    mnuOpt_ = Submenu(bar, "mnuOpt", "&Options");
    BuildPorts();
    BuildUploadOptions();
    Marked(Item(mnuOpt_, "mnuAutoRef", "Automatic Update", [this] { mnuAutoRef_Click(); }),
           [this] { return desk_.options.AutoRefresh; });
    Marked(Item(mnuOpt_, "mnuSys", "Use System Date/Time", [this] { mnuSys_Click(); }),
           [this] { return useSystemTime_; });
    mnuOpt_->addSeparator();
    Item(mnuOpt_, "mnuSet", "Set Theater Information", [this] { mnuSet_Click(); });
}

void Menus::BuildPorts()
{
    QMenu *mnuCom = Submenu(mnuOpt_, "mnuCom", "COM Port Selection");
    for (Word port = 1; const auto &[name, caption] : Ports) {
        Marked(Item(mnuCom, name, caption, [this, port] { mnuCom_Click(port); }),
               [this, port] { return desk_.options.ComPort == port; });
        ++port;
    }
    mnuBaud_ = Submenu(mnuOpt_, "mnuBaud", "Baud Rate");
    for (Word index = 0; const auto &[name, caption] : Rates) {
        Marked(Item(mnuBaud_, name, caption, [this, index] { mnuBaud_Click(index); }),
               [this, index] { return baudIndex_ == index; });
        ++index;
    }
}

void Menus::BuildUploadOptions()
{
    Preferences &options = desk_.options;
    QMenu *mnuUopt = Submenu(mnuOpt_, "mnuUopt", "Upload Options");
    const auto toggle = [&](const char *name, const char *caption, bool Preferences::*option) {
        return Marked(
            Item(mnuUopt, name, caption, [&options, option] { options.*option = !(options.*option); }),
            [&options, option] { return options.*option; });
    };
    Marked(Item(mnuUopt, "mnuAuto", "Automatically Upload", [this] { mnuAuto_Click(); }),
           [&options] { return options.AutoUpload; });
    mnuConfirm_ = toggle("mnuConfirm", "Confirm Message Box", &Preferences::ConfirmUpload);
    mnuShort_ = toggle("mnuShort", "Enable Shortcuts", &Preferences::Shortcuts);
}

void Menus::AddSimulator(SimulatedUnit &unit)
{
    mnuSimulator_ = Submenu(window_->menuBar(), "mnuSimulator", "Simulated Unit");
    Item(mnuSimulator_, "mnuKnobs", "Knobs and Front Panel", [this, &unit] {
        // Made when it is first wanted: the start need not wait for it.
        auto *frmSimulator = window_->findChild<FrmSimulator *>();
        if (!frmSimulator)
            frmSimulator = new FrmSimulator(unit, window_);
        frmSimulator->show();
        frmSimulator->raise();
        frmSimulator->activateWindow();
    });
}

void Menus::ShowPreferences()
{
    // Deliberate: the other way round than the menu item's own toggle, which rules from its first use on.
    mnuConfirm_->setEnabled(desk_.options.AutoUpload);
    mnuShort_->setEnabled(desk_.options.AutoUpload);
    ReflectMarks();
}

void Menus::Enable(bool enable)
{
    for (QMenu *menu : {mnuFile_, mnuOpt_, mnuEdit_, mnuTools_, mnuSimulator_})
        if (menu)
            menu->setEnabled(enable);
}

bool Menus::Usable() const
{
    return window_->isEnabled() && mnuFile_->isEnabled() && !desk_.busy() &&
           !QApplication::activeModalWidget();
}

void Menus::EnableForStream(bool streaming)
{
    mnuBaud_->setEnabled(!streaming);
    mnuRef_->setEnabled(!streaming);
}

const char *Menus::PortCaption() const
{
    return Ports[std::size_t(desk_.options.ComPort - 1)].second;
}

const char *Menus::SpeedCaption() const
{
    return Rates[std::size_t(baudIndex_)].second;
}

void Menus::mnuCom_Click(Word port)
{
    desk_.options.ComPort = port;
    emit LineChosen();
}

void Menus::mnuBaud_Click(Word index)
{
    baudIndex_ = index;
    emit LineChosen();
    desk_.link.RetryFunction(UnitOp::SetDLLBaud, index, 0);
}

void Menus::mnuAuto_Click()
{
    Preferences &options = desk_.options;
    options.AutoUpload = !options.AutoUpload;
    // Deliberate: the start enables both by the opposite rule.
    mnuConfirm_->setEnabled(!options.AutoUpload);
    mnuShort_->setEnabled(!options.AutoUpload);
}

void Menus::mnuAutoRef_Click()
{
    if (!desk_.entries.CommitEntry())
        return;
    const QPointer<QWidget> focus = window_->focusWidget();
    window_->setEnabled(false);
    frmRef_ = std::make_unique<FrmRef>(desk_.options, window_);
    connect(frmRef_.get(), &QDialog::finished, this, [this, focus] {
        ReflectMarks();
        window_->setEnabled(true);
        window_->activateWindow();
        // Disabling took it away. Another window had it meanwhile, so a slider is not come to anew.
        if (focus)
            focus->setFocus(Qt::ActiveWindowFocusReason);
    });
    frmRef_->show();
    frmRef_->activateWindow();
    // Deliberate: re-reading at intervals would undo edits that were not sent, so they are sent from now on.
    if (desk_.options.AutoRefresh && !desk_.options.AutoUpload)
        mnuAuto_Click();
}

void Menus::mnuSys_Click()
{
    if (!useSystemTime_) {
        useSystemTime_ = true;
        desk_.link.Clock().Set(std::nullopt);
        return;
    }
    if (!desk_.entries.CommitEntry())
        return;
    FrmTime frmTime(desk_.link.Clock().Now(), window_);
    if (frmTime.exec() != QDialog::Accepted)
        return;
    useSystemTime_ = false;
    desk_.link.Clock().Set(frmTime.Chosen());
    desk_.link.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::Unasked);
}

void Menus::mnuSet_Click()
{
    if (desk_.entries.CommitEntry())
        FrmTheater(desk_.editor, window_).exec();
}

} // namespace kelvo
