#include "ui/formats/modebuttons.h"

#include "model/tables.h"
#include "ui/controls/named.h"
#include "ui/formats/messages.h"

#include <QGridLayout>

namespace kelvo {

namespace {

constexpr int Columns = 2;

} // namespace

ModeButtons::ModeButtons(Editor &editor) : QGroupBox("Mode:"), editor_(editor)
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
    if (index != editor_.Room().CurrentFormat)
        editor_.Apply(Edit::One(field::Format, index));
}

void ModeButtons::Show(const Changed &changed)
{
    if (changed.Has(field::Format))
        ReflectModeStatus();
    if (changed.Has(field::F1KeyMode))
        ShowF1Format(changed.source);
}

void ModeButtons::ReflectModeStatus()
{
    for (int index = 0; index < FormatCount; ++index)
        cmdMode_[index]->SetFace(index == editor_.Room().CurrentFormat ? Face::Current : Face::Normal);
}

/// Deliberate: nothing but a connection and the user's choice changes the caption, and each in its own words.
void ModeButtons::ShowF1Format(Source source)
{
    const Byte mode = editor_.Room().System.F1KeyMode;
    const bool known = mode < messages::F1Captions.size();
    if (source == Source::Connection)
        cmdMode_[0]->setText(known ? messages::F1Captions[mode].afterConnection : messages::F1Unknown);
    else if (source == Source::Edit && known)
        cmdMode_[0]->setText(messages::F1Captions[mode].afterChoice);
}

} // namespace kelvo
