#pragma once

#include "ui/controls/entrywindow.h"
#include "ui/main/filecommands.h"
#include "ui/main/menus.h"
#include "ui/main/places.h"
#include "ui/main/recovery.h"
#include "ui/main/snapshot.h"

#include <QMainWindow>

namespace kelvo {

/// The end of a run: its questions, the revert to the unit's former settings, the files, and the unit's
/// farewell. One close at a time; one that comes during a device call is carried out when the call is over.
class Closing : public QObject {
    Q_OBJECT

  public:
    struct Desk {
        FileState &file;
        const Preferences &options;
        UnitLink &link;
        OpticalStream &stream;
        EntryWindow &entries;
        FileCommands &files;
        Snapshot &snapshot;
        Journal &journal;
        Recovery &recovery;
        const Menus &menus;
        const Places &places;
    };

    Closing(QMainWindow *window, const Desk &desk);

    /// A close is being carried out, its questions included.
    bool Running() const { return running_; }
    /// Boxes may be shown: the process is not on its way out already.
    bool MayAsk() const { return mayAsk_; }

    /// What the window's close asks. True = everything is done and it may go.
    bool MayClose();
    /// After a device call or its box: a close that came meanwhile.
    void CarryOutClose();
    /// The log-off of the PC's session asks: closes, with its questions when `mayAsk`. False calls it off.
    bool EndSession(bool mayAsk);
    /// Ends the run without a question: what is open is closed as Escape would, and once every dialog and
    /// call on the stack has come to its end the event loop is left.
    void EndRun();
    /// The process is about to end, whatever is on the screen: does what a close does last, without a
    /// question.
    void LeaveNow();
    /// Puts back every text that was not taken, where nobody can be asked about it any more.
    void DropEntries();

  private:
    bool Form_Unload();
    bool SaveQuestionAnswered();
    /// False when the unit does not hold its former settings afterwards.
    bool RevertToSnapshot();
    void CloseAndLeave();
    void TidyUp();
    void WritePreferencesFile();

    QMainWindow *window_;
    Desk desk_;
    bool running_ = false;
    bool requested_ = false; ///< a close came during a device call
    bool mayAsk_ = true;
    bool sessionEnds_ = false; ///< the close is asked for by the log-off
    bool originals_ = true;    ///< the unit's former settings may still be wanted
    bool runEnds_ = false;     ///< a signal has asked for the end
    bool left_ = false;        ///< the files are tidied and the unit is let go
};

} // namespace kelvo
