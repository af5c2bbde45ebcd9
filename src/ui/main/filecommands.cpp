#include "files/configfile.h"
#include "model/flagguard.h"
#include "model/tables.h"
#include "ui/main/frmmain.h"
#include "ui/main/messages.h"
#include "unit/sequences.h"

#include <QAction>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>

namespace kelvo {

namespace {

constexpr auto DefaultName = "Untitled.zcf";

/// What no file system may find in a name becomes a dash.
QString AsFileName(QString text)
{
    for (QChar &character : text) {
        if (character < QChar(' ') || QStringView(u"<>:\"/\\|?*").contains(character))
            character = '-';
    }
    return text;
}

/// The chosen path; "" after a cancel. The name comes back as it was typed: no suffix is added.
QString RunDialog(QFileDialog &dialog)
{
    if (qEnvironmentVariable("KELVO_PLAIN_FILE_DIALOG") == "1")
        dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

void TellFailure(QWidget *window, const Message &cannot, const QString &path, const FileFailure &failure)
{
    if (failure.wrongFormat)
        Tell(window, messages::WrongFormat);
    else
        Tell(window, cannot, {QDir::toNativeSeparators(path), QString::fromStdString(failure.reason)});
}

} // namespace

void FrmMain::mnuNew_Click()
{
    if (!entries_.CommitEntry())
        return;
    if (file_.SettingsChanged && Ask(this, messages::SaveChanges) && !SaveAsked())
        return;
    RoomSettings room = room_;
    ResetAll(room);
    room.TheaterInfo = {};
    editor_.Adopt(std::move(room), Source::Reset);
    ShowTestSignals({});
    ShowTitle(messages::Untitled);
    file_.FileLoaded = false;
    file_.SettingsChanged = false;
    // The open file's name stays with the settings; with Save disabled it is never written by mistake.
    mnuSave_->setEnabled(false);
    dialogFile_.clear();
}

void FrmMain::mnuLoad_Click()
{
    if (!entries_.CommitEntry())
        return;
    if (file_.FileLoaded && file_.SettingsChanged && Ask(this, messages::SaveChanges) && !SaveAsked())
        return;
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({messages::SettingsFilter, messages::OldFilter});
    const QString path = RunDialog(dialog);
    if (!path.isEmpty())
        OpenFile(path);
}

bool FrmMain::OpenFile(const QString &path)
{
    link_.SetPolling(false);
    RoomSettings room = room_;
    const auto failure = LoadConfigFile(path.toStdString(), room);
    if (failure) {
        TellFailure(this, messages::CannotOpen, path, *failure);
    } else {
        {
            const FlagGuard loading(link_.Updating);
            editor_.Adopt(std::move(room), Source::File);
            SendLoadedValues(link_, optical_->Stream());
        }
        file_.CurrentFileName = path.toStdString();
        dialogFile_ = path;
        mnuSave_->setEnabled(true);
        ShowTitle(QDir::toNativeSeparators(path));
        file_.SettingsChanged = false;
        file_.FileLoaded = true;
    }
    // A stream keeps the poll off until it stops.
    if (!optical_->Stream().Running())
        link_.SetPolling(true);
    return !failure;
}

bool FrmMain::Save()
{
    if (file_.CurrentFileName.empty())
        return SaveAs();
    return entries_.CommitEntry() && SaveTo(QString::fromStdString(file_.CurrentFileName));
}

bool FrmMain::SaveAs()
{
    if (!entries_.CommitEntry())
        return false;
    QFileDialog dialog(this);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters({messages::SettingsFilter});
    if (!dialogFile_.isEmpty())
        dialog.setDirectory(QFileInfo(dialogFile_).absolutePath());
    dialog.selectFile(ProposedName());
    const QString path = RunDialog(dialog);
    if (path.isEmpty() || !SaveTo(path))
        return false;
    dialogFile_ = path;
    mnuSave_->setEnabled(true);
    return true;
}

QString FrmMain::ProposedName() const
{
    QString last = QFileInfo(dialogFile_).fileName();
    if (!last.isEmpty() && last != DefaultName)
        return last;
    const QString theater = QString::fromStdString(room_.TheaterInfo[NameOfTheater]);
    return theater.isEmpty() ? QString(DefaultName) : AsFileName(theater) + ".zcf";
}

bool FrmMain::SaveAsked()
{
    return mnuSave_->isEnabled() ? Save() : SaveAs();
}

bool FrmMain::SaveTo(const QString &path)
{
    if (const auto failure = SaveConfigFile(path.toStdString(), room_)) {
        TellFailure(this, messages::CannotSave, path, *failure);
        return false;
    }
    file_.CurrentFileName = path.toStdString();
    ShowTitle(QDir::toNativeSeparators(path));
    file_.SettingsChanged = false;
    return true;
}

} // namespace kelvo
