#include "ui/levels/obepanel.h"

#include "model/tables.h"
#include "ui/controls/choices.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/messages.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/controls/uploadbutton.h"
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

ObePanel::ObePanel(Settings &settings, UnitLink &link, EntryWindow &entries, QPushButton *cmdMute3,
                   QWidget *faderFrame)
    : settings_(settings),
      link_(link)
{
    auto *right = new QVBoxLayout;
    right->setSpacing(GroupSpacing);
    right->addWidget(BuildNoise(cmdMute3));
    right->addWidget(faderFrame);
    right->addStretch();
    right->addWidget(BuildUploadButton(2, link, entries));

    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(GroupSpacing);
    layout->addWidget(BuildObe(), 0, 0, Qt::AlignTop);
    layout->addWidget(BuildLevel(entries), 0, 1);
    layout->addLayout(right, 0, 2);
    for (int column = 0; column < 3; ++column)
        layout->setColumnMinimumWidth(column, ColumnWidth);
    layout->setColumnStretch(3, 1);
    Show();
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
    for (const char *frequency : messages::ObeFrequencies)
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
    level_ = new LevelPair(ObeRule, entries, {"lblOBE", "sclOBE"},
                           {[this](int position) { StoreLevel(position); }, [this] { Upload(); }}, this);
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

void ObePanel::Show()
{
    level_->ShowPosition(ObeRule.lastPosition - settings_.Audio.ObeLevel);
    ReflectOBEStatus();
}

void ObePanel::ReflectOBEStatus()
{
    const bool on = settings_.ObeEnabled;
    cmdOBEEnable_->SetOn(on);
    ShowChoice(cboObeF_, settings_.ObeMode - 1);
    // Disabling the field takes what is typed in it, which is not for the unit's or a file's settings to do.
    if (!on && settings_.Updating)
        level_->Field()->Drop();
    level_->Slider()->setEnabled(on);
    level_->Field()->setEnabled(on);
    cboObeF_->setEnabled(on);
}

void ObePanel::ShowTestSignalsOff()
{
    for (const Noise &noise : noise_)
        noise.button->SetOn(false);
}

void ObePanel::LeaveTab()
{
    for (const Noise &noise : noise_) {
        if (noise.button->SwitchOff(link_.Holds().Pink[noise.channel]))
            link_.RetryFunction(UnitOp::SetPink, noise.channel, False);
    }
}

void ObePanel::cmdOBEEnable_Click()
{
    settings_.ObeEnabled = !settings_.ObeEnabled;
    settings_.Audio.ObeFreq = settings_.ObeEnabled ? settings_.ObeMode : Byte(0);
    settings_.SettingsChanged = true;
    Upload();
    ReflectOBEStatus();
}

void ObePanel::cboObeF_Click(int index)
{
    if (!settings_.ObeEnabled)
        return;
    settings_.ObeMode = Byte(index + 1);
    settings_.Audio.ObeFreq = settings_.ObeMode;
    settings_.SettingsChanged = true;
    Upload();
}

void ObePanel::StoreLevel(int position)
{
    if (settings_.Updating)
        return;
    settings_.Audio.ObeLevel = Byte(ObeRule.lastPosition - position);
    settings_.SettingsChanged = true;
    link_.ShowSent();
}

void ObePanel::Upload()
{
    link_.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit);
}

void ObePanel::cmdNoise_Click(const Noise &noise)
{
    noise.button->SetOn(!noise.button->IsOn());
    link_.RetryFunction(UnitOp::SetPink, noise.channel, noise.button->IsOn() ? True : False);
}

} // namespace kelvo
