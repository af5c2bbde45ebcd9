#pragma once

#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"

#include <QDialog>

namespace kelvo {

/// The fader dialog `frmFader`, "Fader:": one slider and its field in a window of their own. Closing hides
/// it and takes what is typed; Enter and Escape never close it.
class FrmFader : public QDialog {
    Q_OBJECT

  public:
    /// `take` is what a level typed here does.
    FrmFader(QWidget *parent, LevelField::Take take);

    LevelField *Field() const { return lblVol_; }
    LevelSlider *Slider() const { return sclVol_; }
    EntryWindow &Entries() { return entries_; }

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void closeEvent(QCloseEvent *event) override;

  private:
    EntryWindow entries_;
    LevelField *lblVol_;
    LevelSlider *sclVol_;
};

} // namespace kelvo
