#include "ui/main/frmref.h"

#include "model/levels.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include <cmath>
#include <limits>

namespace kelvo {

std::optional<Word> RefreshPeriod(const QString &text)
{
    const double seconds = std::floor(LeadingNumber(text.toStdString()));
    if (!(seconds >= 1 && seconds <= std::numeric_limits<Word>::max()))
        return std::nullopt;
    return Word(seconds);
}

FrmRef::FrmRef(Preferences &options, QWidget *parent) : QDialog(parent), options_(options)
{
    Named(this, "frmRef");
    setWindowTitle(messages::AutomaticUpdateTitle);
    // The main window is disabled while this dialog is open, and a child would be disabled with it.
    setEnabled(true);

    chkRef_ = Named(new QCheckBox(messages::EnableAutomaticUpdate), "chkRef");
    txtRef_ = Named(new QLineEdit(QString::number(options.RefreshSeconds)), "txtRef");
    txtRef_->setAccessibleName(messages::RefreshPeriodName);
    auto *Command1 = Named(new QPushButton(messages::CloseCaption), "Command1");
    Command1->setDefault(true);
    connect(Command1, &QPushButton::clicked, this, &QDialog::close);

    chkRef_->setChecked(options.AutoRefresh);
    txtRef_->setEnabled(chkRef_->isChecked());
    connect(chkRef_, &QCheckBox::toggled, txtRef_, &QWidget::setEnabled);

    auto *period = new QHBoxLayout;
    period->addWidget(new QLabel(messages::Every));
    period->addWidget(txtRef_);
    period->addWidget(new QLabel(messages::Seconds));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(chkRef_);
    layout->addLayout(period);
    layout->addWidget(Command1, 0, Qt::AlignRight);
}

void FrmRef::done(int result)
{
    options_.RefreshSeconds = RefreshPeriod(txtRef_->text()).value_or(options_.RefreshSeconds);
    options_.AutoRefresh = chkRef_->isChecked();
    QDialog::done(result);
}

} // namespace kelvo
