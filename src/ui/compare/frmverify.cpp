#include "ui/compare/frmverify.h"

#include "ui/compare/messages.h"
#include "ui/compare/words.h"
#include "ui/controls/named.h"

#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr QSize UsualSize(520, 320);

} // namespace

FrmVerify::FrmVerify(QSettings &memory, QWidget *parent)
    : ToolWindow("frmVerify", messages::VerifyTitle, UsualSize, memory, parent),
      lblVerify_(Named(new QLabel, "lblVerify")),
      tblDiffers_(new DifferencesTable)
{
    lblVerify_->setWordWrap(true);
    lblVerify_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    auto *column = new QVBoxLayout(this);
    column->addWidget(lblVerify_);
    column->addWidget(tblDiffers_, 1);
}

void FrmVerify::ShowVerified(const Differences &found)
{
    Tell(VerifyText(found), found.rows);
}

void FrmVerify::ShowNotVerified(const std::vector<UnitOp> &unread)
{
    Tell(UnreadText(messages::NotVerified, unread), {});
}

void FrmVerify::Outdate()
{
    const QString text = lblVerify_->text();
    if (isVisible() && !text.startsWith(messages::Outdated))
        lblVerify_->setText(messages::Outdated + text);
}

void FrmVerify::Tell(const QString &text, const std::vector<DifferenceRow> &rows)
{
    lblVerify_->setText(text);
    tblDiffers_->Show(rows, messages::ScreenName, messages::UnitName);
    tblDiffers_->setVisible(!rows.empty());
}

} // namespace kelvo
