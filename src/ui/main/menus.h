#pragma once

#include "edit/editor.h"
#include "model/preferences.h"
#include "ui/controls/entrywindow.h"
#include "ui/main/filecommands.h"
#include "ui/main/frmref.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>

#include <functional>
#include <memory>

namespace kelvo {

class SimulatedUnit;

/// The menus of the main window and the dialogs that they open. Check marks follow the state that they stand
/// for, never the toolkit's toggling.
class Menus : public QObject {
    Q_OBJECT

  public:
    /// What the items work on.
    struct Desk {
        Editor &editor;
        Preferences &options;
        UnitLink &link;
        EntryWindow &entries;
        FileCommands &files;
        std::function<bool()> busy; ///< true: an item does nothing now
    };

    Menus(QMainWindow *window, const Desk &desk);

    QMenu *Edit() const { return mnuEdit_; }
    QMenu *Tools() const { return mnuTools_; }
    /// An item whose handler runs unless the console is busy; marks follow it.
    QAction *Item(QMenu *menu, const char *name, const QString &caption, std::function<void()> handler);

    /// Adds the menu "Simulated Unit", which opens the knobs of a unit that exists in memory alone.
    void AddSimulator(SimulatedUnit &unit);
    /// The preferences have been read: marks and enabled items follow them.
    void ShowPreferences();
    void Enable(bool enable);
    /// An item would do what it says: nothing is under way, and no box or dialog is in front.
    bool Usable() const;
    const char *PortCaption() const; ///< "COM 1"
    const char *SpeedCaption() const;
    /// What a running stream forbids is disabled.
    void EnableForStream(bool streaming);
    void mnuSet_Click();
    /// The dialog that disables the main window while it is open, or null.
    FrmRef *OpenRefresh() const { return frmRef_.get(); }

  signals:
    void LineChosen(); ///< another port or speed

  private:
    QAction *Marked(QAction *action, std::function<bool()> checked);
    void ReflectMarks();
    void BuildFile(QMenuBar *bar);
    void BuildOptions(QMenuBar *bar);
    void BuildPorts();
    void BuildUploadOptions();
    void mnuCom_Click(Word port);
    void mnuBaud_Click(Word index);
    void mnuAuto_Click();
    void mnuAutoRef_Click();
    void mnuSys_Click();

    QMainWindow *window_;
    Desk desk_;
    std::vector<std::pair<QAction *, std::function<bool()>>> marks_;
    std::unique_ptr<FrmRef> frmRef_;
    QMenu *mnuFile_ = nullptr;
    QMenu *mnuOpt_ = nullptr;
    QMenu *mnuEdit_ = nullptr; ///< filled by those whose commands stand in it, as `mnuTools_` is
    QMenu *mnuTools_ = nullptr;
    QMenu *mnuBaud_ = nullptr;
    QMenu *mnuSimulator_ = nullptr; ///< only with the simulated unit
    QAction *mnuRef_ = nullptr;
    QAction *mnuConfirm_ = nullptr;
    QAction *mnuShort_ = nullptr;
    Word baudIndex_ = 0;        ///< 0 to 3 = 9600, 19200, 38400, 57600; not stored
    bool useSystemTime_ = true; ///< `mnuSys`
};

} // namespace kelvo
