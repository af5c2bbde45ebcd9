#include "ui/theatre/theaterpanel.h"

#include "model/tables.h"
#include "ui/controls/named.h"
#include "ui/theatre/messages.h"
#include "unit/unitclock.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace kelvo {

TheaterPanel::TheaterPanel(const Editor &editor, std::function<void()> edit) : editor_(editor)
{
    QPalette flat = palette();
    flat.setBrush(QPalette::Base, flat.window());
    for (QLineEdit *box : form_.txtTheaterInfo) {
        box->setReadOnly(true);
        box->setPalette(flat);
    }
    auto *cmdEdit = Named(new QPushButton(messages::EditCaption), "cmdEdit");
    cmdEdit->setAccessibleName(messages::EditName);
    connect(cmdEdit, &QPushButton::clicked, this, [edit = std::move(edit)] { edit(); });

    auto *column = new QVBoxLayout(this);
    column->addLayout(form_.layout);
    column->addWidget(cmdEdit, 0, Qt::AlignRight);
    column->addStretch();
    ApplyTheaterTabFields();
}

void TheaterPanel::ApplyTheaterTabFields()
{
    form_.Show(editor_.Room().TheaterInfo);
}

void TheaterPanel::Show(const Changed &changed)
{
    if (changed.HasTexts())
        ApplyTheaterTabFields();
    if (changed.source == Source::Upload)
        ShowDate();
}

void TheaterPanel::ShowDate()
{
    clockText_ = QString::fromStdString(kelvo::ClockText(editor_.Room().Audio));
    form_.txtTheaterInfo[DateInstalled]->setText(clockText_);
}

} // namespace kelvo
