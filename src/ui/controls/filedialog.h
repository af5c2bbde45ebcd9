#pragma once

#include <QString>

class QFileDialog;

namespace kelvo {

/// The chosen path; "" after a cancel. The name comes back as it was typed: no suffix is added.
QString RunDialog(QFileDialog &dialog);

} // namespace kelvo
