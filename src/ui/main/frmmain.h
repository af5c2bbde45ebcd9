#pragma once

#include "model/settings.h"

#include <QMainWindow>

namespace kelvo {

/// The main window `frmMain`.
class FrmMain : public QMainWindow {
    Q_OBJECT

  public:
    FrmMain();
};

} // namespace kelvo
