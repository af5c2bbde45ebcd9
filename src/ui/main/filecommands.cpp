#include "files/configfile.h"
#include "model/flagguard.h"
#include "model/tables.h"
#include "ui/main/frmmain.h"
#include "ui/main/messages.h"

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
    if (settings_.SettingsChanged && kelvo::Ask(this, messages::SaveChanges) && !SaveAsked())
        return;
    ResetConsole();
    ShowTitle(messages::Untitled);
    settings_.TheaterInfo = {};
    theater_->ApplyTheaterTabFields();
    settings_.FileLoaded = false;
    settings_.SettingsChanged = false;
    // The open file's name stays with the settings; with Save disabled it is never written by mistake.
    mnuSave_->setEnabled(false);
    dialogFile_.clear();
    ShowSent();
}

void FrmMain::ResetConsole()
{
    const FlagGuard resetting(settings_.Updating);
    ResetAll(settings_);
    ReflectVolumeLevel(true);
    ReflectMuteStatus();
    ReflectModeStatus();
    ShowSystemSettings();
    ShowAudioSettings();
    LoadChannelData();
    outputTrim_->ShowTestSignalsOff();
    equaliser_->ShowTestSignalsOff();
    obe_->ShowTestSignalsOff();
    optical_->ShowTestSignalsOff();
}

void FrmMain::mnuLoad_Click()
{
    if (!entries_.CommitEntry())
        return;
    if (settings_.FileLoaded && settings_.SettingsChanged && kelvo::Ask(this, messages::SaveChanges) &&
        !SaveAsked())
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
    const auto failure = LoadConfigFile(path.toStdString(), settings_);
    if (failure) {
        TellFailure(this, messages::CannotOpen, path, *failure);
    } else {
        ShowLoadedSettings();
        settings_.CurrentFileName = path.toStdString();
        dialogFile_ = path;
        mnuSave_->setEnabled(true);
        ShowTitle(QDir::toNativeSeparators(path));
        settings_.SettingsChanged = false;
        settings_.FileLoaded = true;
    }
    // A stream keeps the poll off until it stops.
    if (!optical_->Streaming())
        link_.SetPolling(true);
    ShowSent();
    return !failure;
}

void FrmMain::ShowLoadedSettings()
{
    const FlagGuard loading(settings_.Updating);
    link_.RetryFunction(UnitOp::SetVol);
    ReflectVolumeLevel(true);
    // While a stream runs, the loaded format waits until its stop selects it.
    if (!optical_->Streaming())
        link_.RetryFunction(UnitOp::SelectFormat);
    ReflectModeStatus();
    const auto sendMute = [this] { link_.RetryFunction(UnitOp::SetMute); };
    if (optical_->Streaming())
        optical_->WithoutStream(sendMute);
    else
        sendMute();
    ReflectMuteStatus();
    LoadChannelData();
    link_.ApplyUnitSystemSettings();
    link_.ApplyUnitAudioSettings();
    theater_->ApplyTheaterTabFields();
}

bool FrmMain::Save()
{
    if (settings_.CurrentFileName.empty())
        return SaveAs();
    return entries_.CommitEntry() && SaveTo(QString::fromStdString(settings_.CurrentFileName));
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
    const QString theater = QString::fromStdString(settings_.TheaterInfo[TheaterName]);
    return theater.isEmpty() ? QString(DefaultName) : AsFileName(theater) + ".zcf";
}

bool FrmMain::SaveAsked()
{
    return mnuSave_->isEnabled() ? Save() : SaveAs();
}

bool FrmMain::SaveTo(const QString &path)
{
    equaliser_->SaveChannelData();
    const std::string before = std::exchange(settings_.CurrentFileName, path.toStdString());
    if (const auto failure = SaveConfigFile(settings_)) {
        settings_.CurrentFileName = before;
        TellFailure(this, messages::CannotSave, path, *failure);
        return false;
    }
    ShowTitle(QDir::toNativeSeparators(path));
    settings_.SettingsChanged = false;
    return true;
}

} // namespace kelvo
