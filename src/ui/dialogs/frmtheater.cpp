#include "ui/dialogs/frmtheater.h"

namespace kelvo {

FrmTheater::FrmTheater(Settings &settings, QWidget *parent) : QDialog(parent), settings_(settings)
{
}

} // namespace kelvo
