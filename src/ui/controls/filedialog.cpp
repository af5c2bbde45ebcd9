#include "ui/controls/filedialog.h"

#include <QFileDialog>

namespace kelvo {

QString RunDialog(QFileDialog &dialog)
{
    if (qEnvironmentVariable("KELVO_PLAIN_FILE_DIALOG") == "1")
        dialog.setOption(QFileDialog::DontUseNativeDialog);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

} // namespace kelvo
