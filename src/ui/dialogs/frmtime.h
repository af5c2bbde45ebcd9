#pragma once

#include "unit/wallclock.h"

#include <QDialog>

namespace kelvo {

/// "Please choose date and time": a calendar, hour 1 to 12 with AM or PM, minutes and seconds.
class FrmTime : public QDialog {
    Q_OBJECT

  public:
    FrmTime(LocalTime start, QWidget *parent);

    LocalTime Chosen() const;
};

} // namespace kelvo
