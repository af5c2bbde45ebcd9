#pragma once

#include <QDialog>

namespace kelvo {

/// Shows while the program starts, and closes itself as soon as the event loop runs: it delays nothing.
class FrmSplash : public QDialog {
    Q_OBJECT

  public:
    FrmSplash();

    /// On the screen before it returns, as far as the window system lets it.
    void ShowNow();
};

} // namespace kelvo
