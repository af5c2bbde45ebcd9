#include "files/preferencesfile.h"
#include "ui/controls/levelfield.h"
#include "ui/main/frmmain.h"
#include "ui/main/messages.h"
#include "unit/sequences.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDir>
#include <QFile>
#include <QScopedValueRollback>

namespace kelvo {

void FrmMain::closeEvent(QCloseEvent *event)
{
    event->ignore();
    if (closing_)
        return;
    if (link_.InCall()) {
        closeRequested_ = true;
        return;
    }
    closeRequested_ = false;
    // A question, or the dialog that disabled the window, comes first.
    if (!isEnabled() && frmRef_)
        frmRef_->activateWindow();
    if (!isEnabled() || QApplication::activeModalWidget())
        return;

    closing_ = true;
    if (Form_Unload()) {
        event->accept();
        return;
    }
    closing_ = false;
}

void FrmMain::CarryOutClose()
{
    if (!closeRequested_)
        return;
    // Later, from the event loop: the call that it came in is still on the stack.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (closeRequested_)
                close();
        },
        Qt::QueuedConnection);
}

bool FrmMain::EndSession(bool mayAsk)
{
    const QScopedValueRollback ending(sessionEnds_, true);
    const QScopedValueRollback asking(mayAsk_, mayAsk);
    if (frmRef_)
        frmRef_->close();
    return close();
}

void FrmMain::LeaveNow()
{
    mayAsk_ = false;
    TidyUp();
}

bool FrmMain::Form_Unload()
{
    if (mayAsk_ && !(entries_.CommitEntry() && SaveQuestionAnswered()))
        return false;
    if (!mayAsk_)
        DropEntries();
    // A session that ends waits for the one answer that work depends on, and for no other.
    const bool mayRevert = mayAsk_ && !sessionEnds_ && snapshotTaken_ && link_.UnitOnline();
    if (mayRevert && Ask(this, messages::Revert))
        RevertToSnapshot();
    TidyUp();
    return true;
}

void FrmMain::TidyUp()
{
    if (left_)
        return;
    left_ = true;
    if (places_.ownsFiles) {
        QFile::remove(SnapshotFile());
        WritePreferencesFile();
    }
    if (!link_.InCall())
        SayFarewell(link_, optical_->Stream());

    for (QTimer *timer : findChildren<QTimer *>())
        timer->stop();
    for (QWidget *window : QApplication::topLevelWidgets()) {
        if (window != this)
            window->hide();
    }
}

void FrmMain::DropEntries()
{
    for (LevelField *field : findChildren<LevelField *>())
        field->Drop();
}

bool FrmMain::SaveQuestionAnswered()
{
    if (!file_.SettingsChanged)
        return true;
    switch (AskOrCancel(this, messages::SaveBeforeExit)) {
    case Answer::Yes:
        return SaveAsked();
    case Answer::No:
        return true;
    case Answer::Cancel:
        return false;
    }
    return false;
}

void FrmMain::RevertToSnapshot()
{
    optical_->Stream().StopIfRunning(); // whose unit must not be asked to change its mute
    if (OpenFile(SnapshotFile()))
        link_.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
}

void FrmMain::WritePreferencesFile()
{
    const QString path = PreferencesFile();
    if (const auto failure = WritePreferences(path.toStdString(), options_))
        places_.report(QString(messages::CannotSave.text)
                           .arg(QDir::toNativeSeparators(path), QString::fromStdString(failure->reason)));
}

} // namespace kelvo
