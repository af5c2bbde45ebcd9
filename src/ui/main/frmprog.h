#pragma once

#include <QDialog>

class QLabel;
class QProgressBar;

namespace kelvo {

/// The progress of a connection attempt. "Cancel" only hides it: the attempt goes on.
class FrmProg : public QDialog {
    Q_OBJECT

  public:
    explicit FrmProg(QWidget *parent);

    /// Painted before it returns.
    void ShowCaption(const QString &caption);
    void ShowFailures(int failures);

  private:
    QProgressBar *pb_;
    QLabel *lblCap_;
};

} // namespace kelvo
