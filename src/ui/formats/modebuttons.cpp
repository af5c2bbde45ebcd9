#include "ui/formats/modebuttons.h"

#include "model/tables.h"
#include "ui/controls/named.h"

#include <QGridLayout>

namespace kelvo {

namespace {

constexpr int Columns = 2;

} // namespace

ModeButtons::ModeButtons(Settings &settings, UnitLink &link)
    : QGroupBox("Mode:"),
      settings_(settings),
      link_(link)
{
    Named(this, "Frame1", 3);
    auto *grid = new QGridLayout(this);
    for (int index = 0; index < FormatCount; ++index) {
        auto *button = Named(new StateButton(ModeCaption[index]), "cmdMode", index);
        connect(button, &QPushButton::clicked, this, [this, index] { cmdMode_Click(index); });
        button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        button->setMaximumHeight(3 * button->sizeHint().height());
        grid->addWidget(button, index / Columns, index % Columns);
        cmdMode_[index] = button;
    }
    ReflectModeStatus();
}

void ModeButtons::cmdMode_Click(int index)
{
    if (index == settings_.CurrentFormat)
        return;
    settings_.CurrentFormat = Word(index);
    link_.RetryFunction(UnitOp::SelectFormat);
    ReflectModeStatus();
}

/// While an optical stream runs the unit plays the stream's format; the buttons keep the operator's.
void ModeButtons::ReflectModeStatus()
{
    for (int index = 0; index < FormatCount; ++index)
        cmdMode_[index]->SetFace(index == settings_.OperatorFormat() ? Face::Current : Face::Normal);
}

void ModeButtons::SetF1Caption(const QString &caption)
{
    cmdMode_[0]->setText(caption);
}

} // namespace kelvo
