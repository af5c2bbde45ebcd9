#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"
#include "ui/controls/panel.h"

#include <QGroupBox>

#include <array>

namespace kelvo {

class FrmFader;

/// The unit's main volume in all its places: the frame beside the tabs, the "Master Fader" frames of
/// three tabs and the fader dialog. `RoomSettings::FaderLevel` is its home; one change on any of them is sent
/// once.
class MasterFader : public QObject, public Panel {
    Q_OBJECT

  public:
    /// `window` is the main window: it owns the dialog `frmFader` and the boxes.
    MasterFader(Editor &editor, UnitLink &link, EntryWindow &entries, QWidget *window);

    /// `Frame1(5)`: slider `sclVol`, its label and `lblVol(3)`.
    QGroupBox *BuildMaster();
    /// A "Master Fader" frame named `name` with `lblVol(index)`, `cmdSet7(index)`, `cmdAdjust(index)`.
    QGroupBox *BuildFrame(const char *name, int index);
    /// `frmFader`, once the main window's own controls stand: a search for `sclVol` below the window is to
    /// find the main one first.
    void BuildDialog();

    void Show(const Changed &changed) override;
    void ShowUnsent(const FieldSet &unsent) override;
    /// The text of `lblVol(0)`.
    QString FieldText() const;
    /// Puts "7.0" into `lblVol(0)` and validates it.
    void SetNominal();
    /// The question and, unless No, fader 7.0.
    void cmdSet7_Click();

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    /// Brings every fader display into line with the room; nothing is sent.
    void ReflectVolumeLevel();
    bool FaderDialogActive() const;
    void Wire(LevelSlider *slider);
    void sclVol_Step(int positions);
    void sclVol_Moved(const LevelSlider &slider);
    void sclVol_Placed(const LevelSlider &slider);
    void sclVol_Taken();
    void sclVol_Dropped();
    void cmdAdjust_Click();
    void SetLevel(int level);

    static constexpr int FieldCount = 4;

    Editor &editor_;
    UnitLink &link_;
    EntryWindow &entries_;
    QWidget *window_;
    QGroupBox *master_ = nullptr;
    LevelSlider *sclVol_;
    std::array<LevelField *, FieldCount> lblVol_{};
    FrmFader *frmFader_ = nullptr;
    Word takenAt_ = 0;
    bool held_ = false; ///< a hold is one change, however far it goes
    bool pausedPolling_ = false;
};

} // namespace kelvo
