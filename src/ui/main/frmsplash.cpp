#include "ui/main/frmsplash.h"

#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QCoreApplication>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace kelvo {

FrmSplash::FrmSplash() : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint)
{
    Named(this, "frmSplash");
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(36, 24, 36, 24);
    layout->addWidget(new QLabel(messages::Loading));
}

void FrmSplash::ShowNow()
{
    show();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    auto *Timer1 = Named(new QTimer(this), "Timer1");
    Timer1->setSingleShot(true);
    connect(Timer1, &QTimer::timeout, this, &QDialog::close);
    Timer1->start(0);
}

} // namespace kelvo
