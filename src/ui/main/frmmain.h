#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/main/closing.h"
#include "ui/main/editmenu.h"
#include "ui/main/filecommands.h"
#include "ui/main/frmprog.h"
#include "ui/main/mastercolumn.h"
#include "ui/main/menus.h"
#include "ui/main/panels.h"
#include "ui/main/places.h"
#include "ui/main/recovery.h"
#include "ui/main/snapshot.h"
#include "ui/main/stateline.h"
#include "ui/main/toolsmenu.h"
#include "unit/linkview.h"

#include <QMainWindow>
#include <QSettings>
#include <QTimer>

#include <memory>

namespace kelvo {

/// The main window `frmMain`: a frame that makes the link, the editor and everything that stands around them,
/// and is what the link shows itself on. Menus, file commands, tabs, keys and closing are objects of their
/// own.
class FrmMain final : public QMainWindow, private LinkView {
    Q_OBJECT

  public:
    FrmMain(RoomSettings &room, Preferences &options, FileState &file, DeviceLibrary &library,
            WallClock &clock, Places places);
    ~FrmMain() override;

    /// Adds the menu "Simulated Unit", which opens the knobs of a unit that exists in memory alone.
    void AddSimulatorMenu(SimulatedUnit &unit);
    /// A fault that needs no box, in one line of the state line; told once.
    void TellFault(const QString &fault);
    /// The start-up sequence; run once, before the window is shown.
    void Form_Load();
    /// Opens a settings file as `mnuLoad` would once its dialog has chosen it. False after a report.
    bool OpenFile(const QString &path) { return files_->OpenFile(path); }
    /// The log-off of the PC's session asks: closes, with its questions when `mayAsk`. False calls it off.
    bool EndSession(bool mayAsk) { return closing_->EndSession(mayAsk); }
    /// Ends the run as soon as whatever is on the stack has come to its end; nobody is asked.
    void EndRun() { closing_->EndRun(); }
    /// The process is about to end, whatever is on the screen.
    void LeaveNow() { closing_->LeaveNow(); }
    /// What was done in the room, and what its slots hold.
    const Editor &Edits() const { return editor_; }

  protected:
    void closeEvent(QCloseEvent *event) override;

  private:
    void BuildTabs();
    void BuildTimers();
    void ArrangeWindow();

    // What the link shows.
    void ShowConnectStatus(LinkState state) override;
    void EnableFrames(bool enable) override;
    void SetPolling(bool on) override;
    void ShowProgress(std::string_view caption, int failures) override;
    void ShowUnitVersion(const std::array<std::string, 3> &lines) override;
    bool ShowBox(LinkBox kind, std::string_view title, std::string_view text) override;
    void Show(const Changed &changed) override;
    void ShowSent() override;
    void StreamLock(bool locked) override;
    void ShowTitle(const QString &name);
    /// Brings every place that shows the room into line.
    void ShowRoom(const Changed &changed);
    void ShowStateLine();

    /// One guard for every timer: none touches the unit while a box is open or a call is in progress.
    bool TimersMayTouchUnit() const;
    void cmdConnect_Click();
    void lblSent_Click();
    void EnableCommands(bool enable);
    void InitialiseSettings();
    void FitScreen();

    Preferences &options_;
    DeviceLibrary &library_;
    WallClock &clock_;
    Places places_;
    QSettings memory_; ///< what windows remember
    UnitLink link_;
    Journal journal_;
    Editor editor_;
    EntryWindow entries_;
    Panels panels_;
    Snapshot snapshot_;
    RecentFiles recent_;
    FileCommands *files_;
    Menus *menus_;
    Recovery *recovery_;
    EditMenu *edit_;
    Closing *closing_;
    std::unique_ptr<ToolsMenu> tools_;
    TabPages *tabs_ = nullptr;
    MasterColumn *column_ = nullptr;
    StateLine *stateLine_ = nullptr;
    std::unique_ptr<FrmProg> frmProg_;
    QTimer *tmrPoll_ = nullptr;
    bool started_ = false; ///< the start-up sequence is over
};

} // namespace kelvo
