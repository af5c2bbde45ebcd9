#include "ui/controls/okcancel.h"

#include "ui/controls/messages.h"
#include "ui/controls/named.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QPushButton>

namespace kelvo {

QDialogButtonBox *OkAndCancel(QDialog *dialog)
{
    auto *buttons = new QDialogButtonBox;
    auto *cmdOK = Named(buttons->addButton(messages::OkCaption, QDialogButtonBox::AcceptRole), "cmdOK");
    cmdOK->setDefault(true);
    Named(buttons->addButton(messages::CancelCaption, QDialogButtonBox::RejectRole), "cmdCan");
    QObject::connect(buttons, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return buttons;
}

} // namespace kelvo
