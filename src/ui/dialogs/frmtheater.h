#pragma once

#include "model/settings.h"

#include <QDialog>

namespace kelvo {

/// "Set Theater Information": the eleven texts. OK copies them back and marks a change when one differs.
class FrmTheater : public QDialog {
    Q_OBJECT

  public:
    FrmTheater(Settings &settings, QWidget *parent);

  private:
    Settings &settings_;
};

} // namespace kelvo
