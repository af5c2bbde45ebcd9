#pragma once

#include "edit/editor.h"
#include "ui/controls/choices.h"
#include "ui/controls/panel.h"

#include <QGroupBox>
#include <QPushButton>
#include <QWidget>

#include <vector>

namespace kelvo {

/// The tab "Op&tions": every stored option of `SystemBlock`. Each choice of the user goes into its byte and
/// is sent at once, a repeated choice of the same item too.
class OptionsPanel : public QWidget, public Panel {
    Q_OBJECT

  public:
    OptionsPanel(Editor &editor, QPushButton *cmdUp);

    /// Fills the reader delay list.
    void InitialiseLookupArrays();
    /// A byte beyond its list shows no choice.
    void Show(const Changed &changed) override;
    void ShowUnsent(const FieldSet &unsent) override;

  private:
    QGroupBox *BuildPowerOnFormat();
    QGroupBox *BuildF1Key();
    QGroupBox *BuildNonsync();
    QGroupBox *BuildDelays();
    QGroupBox *BuildMatrix();
    ChoiceList *BuildList(const char *name, FieldId field);
    QButtonGroup *BuildGroup(QWidget *parent, FieldId field);

    void chkDisableMatrix_Click(bool checked);

    Editor &editor_;
    std::vector<FieldChoice> choices_;
    QComboBox *cboReaderDelay_;
    QCheckBox *chkDisableMatrix_;
};

} // namespace kelvo
