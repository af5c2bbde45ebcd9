#pragma once

#include "edit/editor.h"
#include "ui/theatre/theaterform.h"

#include <QDialog>

namespace kelvo {

/// "Set Theater Information": the eleven texts. OK copies them back and marks a change when one differs.
class FrmTheater : public QDialog {
    Q_OBJECT

  public:
    FrmTheater(Editor &editor, QWidget *parent);

  private:
    void cmdOK_Click();

    Editor &editor_;
    TheaterForm form_;
};

} // namespace kelvo
