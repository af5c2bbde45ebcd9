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

    /// On the screen before it returns, as far as the window system lets it within a tenth of a second: the
    /// call that follows may keep the thread for seconds. The user's input waits meanwhile.
    void ShowNow();
    /// Painted before it returns.
    void ShowCaption(const QString &caption);
    void ShowFailures(int failures);

  private:
    QProgressBar *pb_;
    QLabel *lblCap_;
};

} // namespace kelvo
