#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "Op&tions": every stored option of `SystemBlock`. Each choice of the user goes into its byte and
/// is sent at once, a repeated choice of the same item too.
class OptionsPanel : public QWidget {
    Q_OBJECT

  public:
    /// `showF1Caption` takes the caption that `cmdMode(0)` is to show after a choice of the user.
    OptionsPanel(Settings &settings, UnitLink &link, EntryWindow &entries,
                 std::function<void(const QString &)> showF1Caption);

    /// Fills the reader delay list.
    void InitialiseLookupArrays();
    /// Every control shows the model, quietly; a byte beyond its list shows no choice.
    void Show();
    /// The caption of `cmdMode(0)` after a connection.
    QString F1CaptionOfUnit() const;

  private:
    QGroupBox *BuildPowerOnFormat();
    QGroupBox *BuildF1Key();
    QGroupBox *BuildNonsync();
    QGroupBox *BuildDelays();
    QGroupBox *BuildMatrix();
    QComboBox *BuildList(const char *name, const QString &label);

    /// The handler of a control whose choice is its byte.
    std::function<void(int index)> StoreIn(Byte SystemBlock::*option);
    void optF1Key_Click(int index);
    void cboReaderDelay_Click(int index);
    void chkDisableMatrix_Click(bool checked);
    /// What every handler does once its byte is stored.
    void SendOption();

    Settings &settings_;
    UnitLink &link_;
    std::function<void(const QString &)> showF1Caption_;
    QButtonGroup *optDefaultFormat_;
    QButtonGroup *optF1Key_;
    QComboBox *cboNonsyncMode_;
    QComboBox *cboNonsyncTrim_;
    QComboBox *cboReaderDelay_;
    QComboBox *cboSurroundDelay_;
    QCheckBox *chkDisableMatrix_;
};

} // namespace kelvo
