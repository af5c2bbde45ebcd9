#include "ui/levels/obepanel.h"

#include "model/tables.h"
#include "ui/controls/choices.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/messages.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/levels/messages.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int BigButtonHeight = 48;
constexpr int ColumnWidth = 205;

/// Deliberate: position 0, the top, is the lowest level here.
constexpr std::array<LevelMark, 5> ObeMarks{
    {{0, "-6 dB"}, {6, "-3"}, {12, "0", true}, {18, "+3"}, {24, "+6 dB"}}};

} // namespace

ObePanel::ObePanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests)
    : editor_(editor),
      link_(link)
{
    auto *right = new QVBoxLayout;
    right->setSpacing(GroupSpacing);
    right->addWidget(BuildNoise(guests.cmdMute3));
    right->addWidget(guests.faderFrame);
    right->addStretch();
    right->addWidget(guests.cmdUp);

    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(GroupSpacing);
    layout->addWidget(BuildObe(), 0, 0, Qt::AlignTop);
    layout->addWidget(BuildLevel(entries), 0, 1);
    layout->addLayout(right, 0, 2);
    for (int column = 0; column < 3; ++column)
        layout->setColumnMinimumWidth(column, ColumnWidth);
    layout->setColumnStretch(3, 1);
    ReflectOBEStatus(false);
}

QGroupBox *ObePanel::BuildObe()
{
    auto *group = new QGroupBox("OBE");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    cmdOBEEnable_ = Named(new ToggleButton(messages::ObeOn, messages::ObeOff), "cmdOBEEnable");
    cmdOBEEnable_->setMinimumHeight(BigButtonHeight);
    connect(cmdOBEEnable_, &QPushButton::clicked, this, &ObePanel::cmdOBEEnable_Click);
    cboObeF_ = Named(new ChoiceList, "cboObeF");
    cboObeF_->setAccessibleName("OBE frequency");
    // The first choice of the field is "Off", which the button above says.
    for (const char *frequency : FieldOf(field::ObeFreq).scale->choices.subspan(1))
        cboObeF_->addItem(frequency);
    connect(cboObeF_, &QComboBox::activated, this, &ObePanel::cboObeF_Click);
    layout->addWidget(cmdOBEEnable_);
    layout->addSpacing(GroupSpacing);
    layout->addWidget(new QLabel("Frequency:"));
    layout->addWidget(cboObeF_);
    return group;
}

QGroupBox *ObePanel::BuildLevel(EntryWindow &entries)
{
    level_ = new LevelPair(field::ObeLevel, ObeRule, editor_, entries, {"lblOBE", "sclOBE"}, this);
    level_->SetAccessibleName("OBE level, dB");
    auto *board = new LevelBoard({ObeMarks.begin(), ObeMarks.end()});
    board->Add(level_->Slider(), 1);
    board->Grid()->addWidget(level_->Field(), LevelBoard::SliderRow + 1, 1, Qt::AlignHCenter);
    auto *group = new QGroupBox("Level");
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(board, 1, Qt::AlignHCenter);
    return group;
}

QGroupBox *ObePanel::BuildNoise(QPushButton *cmdMute3)
{
    auto *group = new QGroupBox("Pink Noise");
    auto *layout = new QFormLayout(group);
    layout->setSpacing(Spacing);
    noise_ = {{{Named(new ToggleButton(messages::CaptionOn, messages::CaptionOff), "cmdPNC"), Center},
               {Named(new ToggleButton(messages::CaptionOn, messages::CaptionOff), "cmdPNS"), Subwoofer}}};
    for (const Noise &noise : noise_) {
        const QString name = ChannelName[noise.channel];
        noise.button->setAccessibleName(QString("Pink noise, %1").arg(name));
        connect(noise.button, &QPushButton::clicked, this, [this, noise] { cmdNoise_Click(noise); });
        layout->addRow(name + QLatin1Char(':'), noise.button);
    }
    layout->addRow(cmdMute3);
    return group;
}

void ObePanel::Show(const Changed &changed)
{
    level_->Show(changed);
    if (!changed.Has(field::ObeFreq))
        return;
    const int frequency = editor_.Room().Audio.ObeFreq;
    if (frequency != 0)
        ObeMode_ = frequency;
    else if (changed.Adopted())
        ObeMode_ = 1;
    ReflectOBEStatus(changed.Adopted());
}

void ObePanel::ShowUnsent(const FieldSet &unsent)
{
    level_->ShowUnsent(unsent);
    cboObeF_->MarkUnsent(unsent.test(std::size_t(field::ObeFreq)));
}

void ObePanel::ReflectOBEStatus(bool adopted)
{
    const bool on = ObeEnabled(editor_.Room().Audio);
    cmdOBEEnable_->SetOn(on);
    ShowChoice(cboObeF_, ObeMode_ - 1);
    // Disabling the field takes what is typed in it, which is not for the unit's or a file's settings to do.
    if (!on && adopted)
        level_->Field()->Drop();
    level_->Slider()->setEnabled(on);
    level_->Field()->setEnabled(on);
    cboObeF_->setEnabled(on);
}

void ObePanel::ShowTestSignals(const TestSignals &playing)
{
    for (const Noise &noise : noise_)
        noise.button->SetOn(playing.Pink[noise.channel]);
}

void ObePanel::LeaveTab()
{
    for (const Noise &noise : noise_)
        if (noise.button->SwitchOff(link_.Holds().Playing.Pink[noise.channel]))
            SwitchNoise(link_, noise.channel, false);
}

void ObePanel::cmdOBEEnable_Click()
{
    editor_.Apply(Edit::One(field::ObeFreq, ObeEnabled(editor_.Room().Audio) ? 0 : ObeMode_));
}

void ObePanel::cboObeF_Click(int index)
{
    if (ObeEnabled(editor_.Room().Audio))
        editor_.Apply(Edit::One(field::ObeFreq, index + 1));
}

void ObePanel::cmdNoise_Click(const Noise &noise)
{
    noise.button->SetOn(!noise.button->IsOn());
    SwitchNoise(link_, noise.channel, noise.button->IsOn());
}

} // namespace kelvo
