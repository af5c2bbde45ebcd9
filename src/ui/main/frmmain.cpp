#include "ui/main/frmmain.h"

namespace kelvo {

FrmMain::FrmMain() = default;

} // namespace kelvo
