#pragma once

#include "model/preferences.h"

#include <QDialog>

#include <optional>

class QCheckBox;
class QLineEdit;

namespace kelvo {

/// "Automatic Update": whether and how often the settings are re-read. Closing it by any way takes what it
/// shows into the preferences; the main window is disabled meanwhile.
class FrmRef : public QDialog {
    Q_OBJECT

  public:
    FrmRef(Preferences &options, QWidget *parent);

    void done(int result) override;

  private:
    Preferences &options_;
    QCheckBox *chkRef_;
    QLineEdit *txtRef_;
};

/// The period that a typed text stands for: its leading number without its fraction, when that is 1 to 32767.
std::optional<Word> RefreshPeriod(const QString &text);

} // namespace kelvo
