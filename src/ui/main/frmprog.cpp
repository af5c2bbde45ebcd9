#include "ui/main/frmprog.h"

#include "ui/controls/messages.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QCoreApplication>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QWindow>

namespace kelvo {

FrmProg::FrmProg(QWidget *parent) : QDialog(parent)
{
    Named(this, "frmProg");
    setWindowTitle(messages::ConnectingTitle);

    lblCap_ = Named(new QLabel, "lblCap");
    pb_ = Named(new QProgressBar, "pb");
    pb_->setRange(0, 10);
    pb_->setValue(0);
    pb_->setTextVisible(false);
    pb_->setMinimumWidth(280);
    pb_->setAccessibleName(messages::ConnectingTitle);
    auto *cmdCan = Named(new QPushButton(messages::CancelCaption), "cmdCan");
    connect(cmdCan, &QPushButton::clicked, this, &QDialog::hide);

    auto *layout = new QVBoxLayout(this);
    layout->addWidget(lblCap_);
    layout->addWidget(pb_);
    layout->addWidget(cmdCan, 0, Qt::AlignRight);
}

void FrmProg::ShowNow()
{
    constexpr int LongestWait = 100; // ms
    show();
    QTimer patience;
    patience.setSingleShot(true);
    patience.start(LongestWait);
    while (!windowHandle()->isExposed() && patience.isActive())
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

void FrmProg::ShowCaption(const QString &caption)
{
    lblCap_->setText(caption);
    repaint();
}

void FrmProg::ShowFailures(int failures)
{
    pb_->setValue(failures);
}

} // namespace kelvo
