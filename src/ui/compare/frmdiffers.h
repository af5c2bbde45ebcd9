#pragma once

#include "ui/compare/differencestable.h"
#include "ui/compare/sidebox.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/toolwindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>

namespace kelvo {

/// "What Differs": any two of the screen, the unit, snapshots, slots, files and the factory values, side by
/// side. It follows edits while it is open, and takes chosen rows of another side into the screen.
class FrmDiffers : public ToolWindow {
    Q_OBJECT

  public:
    /// What it works on, and what it cannot know itself.
    struct Desk {
        Editor &editor;
        UnitLink &link;
        EntryWindow &entries;            ///< the main window's: what is half typed there is taken
        std::function<bool()> streaming; ///< the unit is not to be read now
        std::function<std::vector<NamedSide>()> kept{}; ///< snapshots and slots, as they are now
    };

    FrmDiffers(Desk desk, QSettings &memory, QWidget *parent);

    /// Something has changed in the room, in the unit or between them. One look an event, however many.
    void Follow();
    /// What there is to choose from has changed, or what is stored there.
    void SidesChanged();

  protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

  private:
    QLayout *BuildSides();
    QLayout *BuildButtons();
    QPushButton *Button(const char *name, const char *caption, void (FrmDiffers::*handler)());
    void Refresh();
    void ReflectButtons();
    void ChooseFile(SideBox *box);
    /// The side that may be taken into the screen, or null.
    SideBox *TakenFrom() const;
    bool HasUnit() const;

    void cmdReadAgain_Click();
    void cmdTake_Click();
    void cmdCopyTable_Click();
    void cmdSaveTable_Click();

    Desk desk_;
    std::vector<NamedSide> files_; ///< that were opened here
    bool following_ = false;       ///< a look is due
    SideBox *cboLeft_;
    SideBox *cboRight_;
    QLineEdit *txtFilter_;
    QStackedWidget *place_; ///< of the table, or of why there is none
    DifferencesTable *tblDiffers_;
    QLabel *lblProblem_;
    QLabel *lblDiffers_;
    QPushButton *cmdReadAgain_;
    QPushButton *cmdTake_;
    QPushButton *cmdCopyTable_;
    QPushButton *cmdSaveTable_;
};

} // namespace kelvo
