#include "ui/main/closing.h"

#include "files/preferencesfile.h"
#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"
#include "unit/sequences.h"

#include <QApplication>
#include <QDialog>
#include <QDir>
#include <QScopedValueRollback>
#include <QTimer>

#include <utility>

namespace kelvo {

Closing::Closing(QMainWindow *window, const Desk &desk) : QObject(window), window_(window), desk_(desk)
{
}

bool Closing::MayClose()
{
    if (running_)
        return false;
    if (desk_.link.InCall()) {
        requested_ = true;
        return false;
    }
    requested_ = false;
    // A question, or the dialog that disabled the window, comes first.
    if (!window_->isEnabled() && desk_.menus.OpenRefresh())
        desk_.menus.OpenRefresh()->activateWindow();
    if (!window_->isEnabled() || QApplication::activeModalWidget())
        return false;

    running_ = true;
    if (!Form_Unload())
        running_ = false;
    return running_;
}

void Closing::CarryOutClose()
{
    if (!requested_)
        return;
    // Later, from the event loop: the call that it came in is still on the stack.
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (requested_)
                window_->close();
        },
        Qt::QueuedConnection);
}

bool Closing::EndSession(bool mayAsk)
{
    const QScopedValueRollback ending(sessionEnds_, true);
    const QScopedValueRollback asking(mayAsk_, mayAsk);
    if (FrmRef *frmRef = desk_.menus.OpenRefresh())
        frmRef->close();
    return window_->close();
}

void Closing::LeaveNow()
{
    mayAsk_ = false;
    TidyUp();
}

void Closing::EndRun()
{
    if (std::exchange(runEnds_, true))
        return;
    mayAsk_ = false;
    // Again and again: a call or a start that is under way may open another box, and enter another loop, yet.
    constexpr int Often = 50;
    auto *tmrLeave = Named(new QTimer(this), "tmrLeave");
    connect(tmrLeave, &QTimer::timeout, this, &Closing::CloseAndLeave);
    tmrLeave->start(Often);
    CloseAndLeave();
}

void Closing::CloseAndLeave()
{
    DropEntries();
    // Before a question is answered by nobody, and whatever command asked it goes on.
    if (!desk_.link.InCall())
        TidyUp();
    if (QWidget *popup = QApplication::activePopupWidget())
        popup->close();
    if (auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget()))
        dialog->reject();
    if (FrmRef *frmRef = desk_.menus.OpenRefresh())
        frmRef->close();
    QApplication::exit();
}

bool Closing::Form_Unload()
{
    if (mayAsk_ && !(desk_.entries.CommitEntry() && SaveQuestionAnswered()))
        return false;
    if (!mayAsk_)
        DropEntries();
    // A session that ends waits for the one answer that work depends on, and for no other.
    const bool mayRevert = mayAsk_ && !sessionEnds_ && desk_.snapshot.Taken() && desk_.link.UnitOnline();
    if (mayRevert)
        originals_ = Ask(window_, messages::Revert) && !RevertToSnapshot();
    TidyUp();
    return true;
}

bool Closing::SaveQuestionAnswered()
{
    if (!desk_.file.SettingsChanged)
        return true;
    switch (AskOrCancel(window_, messages::SaveBeforeExit)) {
    case Answer::Yes:
        return desk_.files.SaveAsked();
    case Answer::No:
        return true;
    case Answer::Cancel:
        return false;
    }
    return false;
}

bool Closing::RevertToSnapshot()
{
    desk_.stream.StopIfRunning(); // whose unit must not be asked to change its mute
    if (!desk_.files.Revert(desk_.snapshot.Path()))
        return false;
    desk_.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Explicit);
    return desk_.link.UnitOnline() && desk_.link.Differences() == 0;
}

void Closing::TidyUp()
{
    if (left_)
        return;
    left_ = true;
    if (originals_)
        desk_.snapshot.Keep();
    else
        desk_.snapshot.Remove();
    if (desk_.places.ownsFiles)
        WritePreferencesFile();
    if (!desk_.link.InCall())
        SayFarewell(desk_.link, desk_.stream);
    // What is still in the hand is an edit, but the unit is not to hear of it any more.
    desk_.link.Close();
    if (desk_.entries.sliderHeld)
        desk_.entries.sliderHeld->LetGo();
    // Work that nobody was asked about comes back with the next start.
    const bool lostNothing = mayAsk_ || !desk_.file.SettingsChanged;
    desk_.journal.Close(lostNothing);
    if (lostNothing)
        desk_.recovery.Tidy();

    for (QTimer *timer : window_->findChildren<QTimer *>())
        timer->stop();
    for (QWidget *window : QApplication::topLevelWidgets())
        if (window != window_)
            window->hide();
}

void Closing::DropEntries()
{
    for (LevelField *field : window_->findChildren<LevelField *>())
        field->Drop();
}

void Closing::WritePreferencesFile()
{
    const QString path = desk_.places.PreferencesFile();
    if (const auto failure = WritePreferences(path.toStdString(), desk_.options))
        desk_.places.report(
            QString(messages::CannotSave.text)
                .arg(QDir::toNativeSeparators(path), QString::fromStdString(failure->reason)));
}

} // namespace kelvo
