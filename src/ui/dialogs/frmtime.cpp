#include "ui/dialogs/frmtime.h"

namespace kelvo {

FrmTime::FrmTime(LocalTime, QWidget *parent) : QDialog(parent)
{
}
LocalTime FrmTime::Chosen() const
{
    return {};
}

} // namespace kelvo
