#include "ui/main/formatpage.h"

#include "ui/controls/appearance.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/main/messages.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QVBoxLayout>

namespace kelvo {

FormatPage::FormatPage(QWidget *modes, QWidget *cmdMute5)
{
    auto *information = Named(new QGroupBox(messages::UnitInformation), "Frame1", 21);
    unitInformation_ = information;
    auto *lines = new QVBoxLayout(information);
    for (int line = 0; line < int(lnlInfo_.size()); ++line) {
        lnlInfo_[line] = Named(new QLabel, "lnlInfo", line);
        lines->addWidget(lnlInfo_[line]);
    }
    KeepPlaceWhenHidden(information);

    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(GroupSpacing);
    layout->addWidget(modes, 0, 0, 2, 1);
    layout->addWidget(information, 0, 1);
    layout->addWidget(cmdMute5, 2, 0);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    layout->setRowStretch(1, 3);
    layout->setRowStretch(3, 1);
}

void FormatPage::ShowUnitVersion(const std::array<std::string, 3> &lines)
{
    const bool known = !lines[0].empty();
    for (std::size_t line = 0; known && line < lines.size(); ++line)
        lnlInfo_[line]->setText(QString::fromStdString(lines[line]));
    unitInformation_->setVisible(known);
}

} // namespace kelvo
