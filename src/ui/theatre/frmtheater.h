#pragma once

#include "ui/theatre/theaterform.h"

#include <QDialog>

#include <functional>

namespace kelvo {

/// "Set Theater Information": the eleven texts. OK copies them back and marks a change when one differs.
class FrmTheater : public QDialog {
    Q_OBJECT

  public:
    /// `apply` shows the new texts where they are shown; OK runs it before the dialog closes.
    FrmTheater(Settings &settings, std::function<void()> apply, QWidget *parent);

  private:
    void cmdOK_Click();

    Settings &settings_;
    std::function<void()> apply_;
    TheaterForm form_;
};

} // namespace kelvo
