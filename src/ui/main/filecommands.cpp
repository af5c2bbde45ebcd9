#include "ui/main/filecommands.h"

#include "files/configfile.h"
#include "model/flagguard.h"
#include "model/tables.h"
#include "ui/controls/filedialog.h"
#include "ui/main/messages.h"
#include "unit/sequences.h"

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

void TellFailure(QWidget *window, const Message &cannot, const QString &path, const FileFailure &failure)
{
    if (failure.wrongFormat)
        Tell(window, messages::WrongFormat);
    else
        Tell(window, cannot, {QDir::toNativeSeparators(path), QString::fromStdString(failure.reason)});
}

} // namespace

FileCommands::FileCommands(Editor &editor, FileState &file, UnitLink &link, OpticalStream &stream,
                           EntryWindow &entries, RecentFiles &recent, const Places &places, QWidget *window)
    : QObject(window),
      editor_(editor),
      file_(file),
      link_(link),
      stream_(stream),
      entries_(entries),
      recent_(recent),
      places_(places),
      window_(window)
{
}

void FileCommands::mnuNew_Click()
{
    if (!entries_.CommitEntry())
        return;
    if (file_.SettingsChanged && Ask(window_, messages::SaveChanges) && !SaveAsked())
        return;
    RoomSettings room = editor_.Room();
    ResetAll(room);
    room.TheaterInfo = {};
    editor_.Adopt(std::move(room), Source::Reset);
    emit Reset();
    // The open file's name stays with the settings; with Save disabled it is never written by mistake.
    file_ = {.CurrentFileName = file_.CurrentFileName, .MaySave = false};
    ShowFile();
    dialogFile_.clear();
}

/// What stands on the screen may give way to a file: its save question is answered.
bool FileCommands::MayBeReplaced()
{
    if (!entries_.CommitEntry())
        return false;
    const bool asks = file_.FileLoaded && file_.SettingsChanged;
    return !asks || !Ask(window_, messages::SaveChanges) || SaveAsked();
}

void FileCommands::mnuLoad_Click()
{
    if (!MayBeReplaced())
        return;
    QFileDialog dialog(window_, {}, recent_.Folder());
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({messages::SettingsFilter, messages::OldFilter});
    const QString path = RunDialog(dialog);
    if (!path.isEmpty())
        OpenFile(path);
}

void FileCommands::OpenChosen(const QString &path)
{
    if (MayBeReplaced())
        OpenFile(path);
}

bool FileCommands::OpenFile(const QString &path)
{
    const bool loaded = Load(path, Source::File);
    if (loaded) {
        dialogFile_ = path;
        recent_.Add(path);
        emit Opened();
    }
    return loaded;
}

bool FileCommands::Revert(const QString &path)
{
    return Load(path, Source::Revert);
}

bool FileCommands::Load(const QString &path, Source source)
{
    link_.SetPolling(false);
    RoomSettings room = editor_.Room();
    const auto failure = LoadConfigFile(path.toStdString(), room);
    if (failure) {
        TellFailure(window_, messages::CannotOpen, path, *failure);
        if (!QFileInfo::exists(path))
            recent_.Remove(path);
    } else {
        const FlagGuard loading(link_.Updating);
        editor_.Adopt(std::move(room), source);
        SendLoadedValues(link_, stream_);
        // A snapshot that was opened is saved elsewhere: it stays what the unit had.
        file_ = {
            .CurrentFileName = path.toStdString(), .FileLoaded = true, .MaySave = !places_.IsSnapshot(path)};
        ShowFile();
    }
    // A stream keeps the poll off until it stops.
    if (!stream_.Running())
        link_.SetPolling(true);
    return !failure;
}

QString FileCommands::Title() const
{
    if (file_.UnitRead)
        return messages::FromUnit;
    const bool leftByNew = !file_.FileLoaded && !file_.MaySave;
    if (leftByNew || file_.CurrentFileName.empty())
        return messages::Untitled;
    return QDir::toNativeSeparators(QString::fromStdString(file_.CurrentFileName));
}

void FileCommands::FollowFile()
{
    // An automatic re-read puts the unit into the title by itself; only a change of the file's state takes it
    // away.
    if (title_ != Title())
        ShowFile();
}

void FileCommands::ShowFile()
{
    title_ = Title();
    emit MaySave(file_.MaySave);
    emit Named(title_);
}

bool FileCommands::mnuSave_Click()
{
    if (file_.CurrentFileName.empty())
        return mnuSaveAs_Click();
    if (!entries_.CommitEntry())
        return false;
    const QString path = QString::fromStdString(file_.CurrentFileName);
    if (file_.UnitRead && !Ask(window_, messages::SaveUnitOverFile, {QDir::toNativeSeparators(path)}))
        return mnuSaveAs_Click();
    return SaveTo(path);
}

bool FileCommands::mnuSaveAs_Click()
{
    if (!entries_.CommitEntry())
        return false;
    QFileDialog dialog(window_, {}, recent_.Folder());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters({messages::SettingsFilter});
    dialog.selectFile(ProposedName());
    const QString path = RunDialog(dialog);
    if (path.isEmpty() || !SaveTo(path))
        return false;
    dialogFile_ = path;
    return true;
}

QString FileCommands::ProposedName() const
{
    QString last = QFileInfo(dialogFile_).fileName();
    if (!last.isEmpty() && last != DefaultName)
        return last;
    const QString theater = QString::fromStdString(editor_.Room().TheaterInfo[NameOfTheater]);
    return theater.isEmpty() ? QString(DefaultName) : AsFileName(theater) + ".zcf";
}

bool FileCommands::SaveAsked()
{
    return file_.MaySave ? mnuSave_Click() : mnuSaveAs_Click();
}

bool FileCommands::SaveTo(const QString &path)
{
    if (const auto failure = SaveConfigFile(path.toStdString(), editor_.Room())) {
        TellFailure(window_, messages::CannotSave, path, *failure);
        return false;
    }
    editor_.Saved(path.toStdString());
    recent_.Add(path);
    ShowFile();
    return true;
}

} // namespace kelvo
