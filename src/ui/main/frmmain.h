#pragma once

#include "model/roomsettings.h"
#include "ui/controls/boxes.h"
#include "ui/controls/entrywindow.h"
#include "ui/equaliser/equaliserpanel.h"
#include "ui/formats/modebuttons.h"
#include "ui/formats/mutebuttons.h"
#include "ui/formats/optionspanel.h"
#include "ui/help/helppanel.h"
#include "ui/levels/masterfader.h"
#include "ui/levels/obepanel.h"
#include "ui/levels/outputtrimpanel.h"
#include "ui/main/frmprog.h"
#include "ui/main/frmref.h"
#include "ui/main/places.h"
#include "ui/optical/opticalpanel.h"
#include "ui/theatre/theaterpanel.h"
#include "unit/linkview.h"
#include "unit/unitlink.h"

#include <QMainWindow>
#include <QTimer>

#include <array>
#include <functional>
#include <memory>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QTabWidget;

namespace kelvo {

class SimulatedUnit;

/// The tabs of `SSTAB1`, in their order.
enum class Tab { FormatSelection, OutputTrim, Eq, Obe, OpticalSetup, Options, TheaterInformation, Help };
inline constexpr int TabCount = 8;

/// The main window `frmMain`: owns the link, the panels, the menus and the timers, and is what the link
/// shows itself on. Its procedures stand in one file for each concern: construction, what the link shows,
/// menus, file commands, tabs, keys, start-up and shut-down.
class FrmMain final : public QMainWindow, private LinkView {
    Q_OBJECT

  public:
    FrmMain(RoomSettings &room, Preferences &options, FileState &file, DeviceLibrary &library,
            WallClock &clock, Places places);
    ~FrmMain() override;

    /// Adds the menu "Simulated Unit", which opens the knobs of a unit that exists in memory alone.
    void AddSimulatorMenu(SimulatedUnit &unit);
    /// The start-up sequence; run once, before the window is shown.
    void Form_Load();
    /// Opens a settings file as `mnuLoad` would once its dialog has chosen it. False after a report.
    bool OpenFile(const QString &path);
    /// The log-off of the PC's session asks: closes, with its questions when `mayAsk`. False calls it off.
    bool EndSession(bool mayAsk);
    /// The process is about to end, whatever is on the screen: does what a close does last, without a
    /// question.
    void LeaveNow();

  protected:
    void closeEvent(QCloseEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    // Construction.
    void BuildPanels();
    QWidget *BuildFormatSelection();
    QWidget *BuildMasterColumn();
    void BuildMenus();
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

    void ShowTestSignals(const TestSignals &playing);
    void ShowTitle(const QString &name);
    /// One guard for every timer: none touches the unit while a box is open or a call is in progress.
    bool TimersMayTouchUnit() const;
    /// Puts back every text that was not taken, where nobody can be asked about it any more.
    void DropEntries();

    // Menus.
    QAction *Item(QMenu *menu, const char *name, const char *caption, std::function<void()> handler);
    /// Check marks follow the state that they stand for, never the toolkit's toggling.
    void ReflectMarks();
    void EnableCommands(bool enable);
    void mnuBaud_Click(Word index);
    void mnuAuto_Click();
    void mnuAutoRef_Click();
    void mnuSys_Click();
    void mnuSet_Click();
    void cmdConnect_Click();

    // File commands.
    void mnuNew_Click();
    void mnuLoad_Click();
    bool Save();
    bool SaveAs();
    /// The save that a question asked for; through Save As when Save is disabled.
    bool SaveAsked();
    bool SaveTo(const QString &path);
    QString ProposedName() const;

    // Tabs.
    void SSTAB1_Click(int tab);
    void ClearTabStatus();
    void SwitchOffTab(int tab);

    // Keys.
    bool PreviewKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers, bool repeat);
    bool RunShortcut(int key, bool repeat);
    bool PreviewHelpKey(QWidget *receiver, int key, Qt::KeyboardModifiers modifiers);

    // Start-up and shut-down.
    void InitialiseSettings();
    void FitScreen();
    void TakeSnapshot();
    QString SnapshotFile() const;
    QString PreferencesFile() const;
    bool Form_Unload();
    bool SaveQuestionAnswered();
    void TidyUp();
    void RevertToSnapshot();
    void WritePreferencesFile();
    void CarryOutClose();

    RoomSettings &room_;
    Preferences &options_;
    FileState &file_;
    DeviceLibrary &library_;
    WallClock &clock_;
    Places places_;
    UnitLink link_;
    Editor editor_;
    EntryWindow entries_;

    MasterFader *masterFader_;
    MuteButtons *mute_;
    ModeButtons *modes_ = nullptr;
    OutputTrimPanel *outputTrim_ = nullptr;
    EqualiserPanel *equaliser_ = nullptr;
    ObePanel *obe_ = nullptr;
    OpticalPanel *optical_ = nullptr;
    OptionsPanel *optionsPanel_ = nullptr;
    TheaterPanel *theater_ = nullptr;
    HelpPanel *help_ = nullptr;

    QTabWidget *SSTAB1_ = nullptr;
    std::vector<Panel *> panels_;                ///< everything that shows the room
    std::vector<QWidget *> connected_;           ///< enabled while a unit is connected, in this order
    std::array<Panel *, TabCount> panelOfTab_{}; ///< null where leaving switches nothing off
    std::array<QWidget *, TabCount> frmtabs_{};
    std::array<QLabel *, TabCount> lblHint_{};
    QLabel *lblStat_ = nullptr;
    QLabel *lblSent_ = nullptr;
    QLabel *lblClock_ = nullptr;
    QPushButton *cmdConnect_ = nullptr;
    QWidget *unitInformation_ = nullptr; ///< `Frame1(21)`
    std::array<QLabel *, 3> lnlInfo_{};
    std::unique_ptr<FrmProg> frmProg_;
    std::unique_ptr<FrmRef> frmRef_;

    QMenu *mnuFile_ = nullptr;
    QMenu *mnuOpt_ = nullptr;
    QAction *mnuRef_ = nullptr;
    QMenu *mnuBaud_ = nullptr;
    QMenu *mnuSimulator_ = nullptr; ///< only with the simulated unit
    QAction *mnuSave_ = nullptr;
    QAction *mnuConfirm_ = nullptr;
    QAction *mnuShort_ = nullptr;
    std::vector<std::pair<QAction *, std::function<bool()>>> marks_;

    QTimer *tmrPoll_ = nullptr;

    Word baudIndex_ = 0;          ///< 0 to 3 = 9600, 19200, 38400, 57600; not stored
    int shownTab_ = 0;
    bool useSystemTime_ = true;   ///< `mnuSys`
    bool started_ = false;        ///< the start-up sequence is over
    bool snapshotTaken_ = false;  ///< "temp.qm4" is this run's
    bool closing_ = false;        ///< a close is being carried out, its questions included
    bool closeRequested_ = false; ///< a close that came during a device call
    bool mayAsk_ = true;          ///< the closing may show boxes
    bool sessionEnds_ = false;    ///< the closing is asked for by the log-off
    bool left_ = false;           ///< the files are tidied and the unit is let go
    QString dialogFile_;          ///< what the file dialogs chose last; "" = nothing
};

} // namespace kelvo
