#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/main/places.h"
#include "ui/main/recentfiles.h"
#include "unit/opticalstream.h"

#include <QObject>

#include <string>

class QWidget;

namespace kelvo {

/// New, Open, Save and Save As. It owns how the room on the screen stands to its file: name, title and
/// whether a Save may write without asking for a name.
class FileCommands : public QObject {
    Q_OBJECT

  public:
    FileCommands(Editor &editor, FileState &file, UnitLink &link, OpticalStream &stream, EntryWindow &entries,
                 RecentFiles &recent, const Places &places, QWidget *window);

    void mnuNew_Click();
    void mnuLoad_Click();
    /// False after a cancel or a report.
    bool mnuSave_Click();
    bool mnuSaveAs_Click();
    /// The save that a question asked for; through Save As when Save is disabled.
    bool SaveAsked();
    /// Opens a settings file as `mnuLoad` would once its dialog has chosen it. False after a report.
    bool OpenFile(const QString &path);
    /// The same with the question that `mnuLoad` asks first, for a file that was chosen without its dialog.
    void OpenChosen(const QString &path);
    /// Takes the settings of a snapshot, which is nobody's file. False after a report.
    bool Revert(const QString &path);
    /// Title and Save follow what the editor or the unit made of the file's state.
    void FollowFile();

  signals:
    void Named(const QString &title); ///< what stands between the title's angle brackets
    void MaySave(bool may);           ///< `mnuSave`
    void Opened();                    ///< what was not saved before may have been left behind
    void Reset();                     ///< what plays is no part of the new settings

  private:
    bool Load(const QString &path, Source source);
    bool MayBeReplaced();
    bool SaveTo(const QString &path);
    void ShowFile();
    QString ProposedName() const;
    QString Title() const;

    Editor &editor_;
    FileState &file_;
    UnitLink &link_;
    OpticalStream &stream_;
    EntryWindow &entries_;
    RecentFiles &recent_;
    const Places &places_;
    QWidget *window_;
    QString title_;      ///< as the file's state gives it
    QString dialogFile_; ///< what the file dialogs chose last; "" = nothing
};

} // namespace kelvo
