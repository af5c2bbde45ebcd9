#pragma once

class QDialog;
class QDialogButtonBox;

namespace kelvo {

/// The buttons `cmdOK`, which accepts on Enter, and `cmdCan`, which rejects as Escape does. The dialog says
/// what accepting does.
QDialogButtonBox *OkAndCancel(QDialog *dialog);

} // namespace kelvo
