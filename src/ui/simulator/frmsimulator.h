#pragma once

#include "unit/simulatedunit.h"

#include <QDialog>

#include <functional>
#include <vector>

class QComboBox;
class QGroupBox;
class QLabel;
class QSpinBox;

namespace kelvo {

/// "Simulated Unit": the knobs of the optical reader, the front panel, and what the unit is to do wrong.
/// It stands open beside the main window and follows what the console sets in the unit.
class FrmSimulator : public QDialog {
    Q_OBJECT

  public:
    FrmSimulator(SimulatedUnit &unit, QWidget *parent);

  protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

  private:
    QGroupBox *BuildReader();
    QGroupBox *BuildFrontPanel();
    QGroupBox *BuildNextError();
    QGroupBox *BuildRunning();
    /// Runs `show` with the newest value whenever `read` answers another one than before.
    template <typename Value>
    void Follow(std::function<Value()> read, std::function<void(Value)> show);
    void cmdFail_Click();
    void ShowUnit();
    QString RunningText() const;

    SimulatedUnit &unit_;
    QTimer *tmrUnit_;
    std::vector<std::function<void()>> followers_;
    QComboBox *cboOperation_;
    QComboBox *cboAnswer_;
    QSpinBox *txtTimes_;
};

} // namespace kelvo
