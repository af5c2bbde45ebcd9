#include "ui/levels/outputtrimpanel.h"

#include "model/tables.h"
#include "ui/controls/appearance.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"
#include "ui/controls/taborder.h"
#include "ui/controls/uploadbutton.h"

#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvo {

namespace {

enum Row { NameRow = LevelBoard::SliderRow - 1, FieldRow = LevelBoard::SliderRow + 1, NoiseRow, PhaseRow };

/// Six columns stand side by side in the smallest window: a toggle there is as narrow as the wider one of its
/// captions lets it be.
ToggleButton *NarrowToggle(const char *on, const char *off)
{
    auto *button = new ToggleButton(on, off);
    const QFontMetrics bold(Bold(button->font()));
    button->setMinimumWidth(std::max(bold.horizontalAdvance(on), bold.horizontalAdvance(off)) + 12);
    return button;
}

} // namespace

OutputTrimPanel::OutputTrimPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                                 QWidget *faderFrame)
    : settings_(settings),
      link_(link),
      entries_(entries),
      mute_(mute)
{
    auto *columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(BuildChannels(), 1);
    columns->addWidget(BuildCommands(faderFrame));
    std::vector<QWidget *> sequence;
    for (const ChannelColumn &column : columns_) {
        sequence.push_back(column.trim->Slider());
        sequence.push_back(column.trim->Field());
    }
    for (const ChannelColumn &column : columns_)
        sequence.push_back(column.cmdPN);
    for (const ChannelColumn &column : columns_)
        sequence.push_back(column.cmdPhase);
    SetTabSequence(sequence);
    Show();
}

QWidget *OutputTrimPanel::BuildChannels()
{
    auto *board = new LevelBoard(HalfDecibelMarks());
    board->Grid()->setHorizontalSpacing(6);
    board->Grid()->setVerticalSpacing(6);
    board->Grid()->addWidget(new QLabel("Noise"), NoiseRow, 0);
    board->Grid()->addWidget(new QLabel("Phase"), PhaseRow, 0);
    std::array<LevelPair *, ChannelCount> trims{};
    for (int channel = 0; channel < ChannelCount; ++channel) {
        BuildColumn(channel, *board);
        trims[channel] = Column(channel).trim;
    }
    JoinNeighbours(trims);
    auto *frame = new QGroupBox("Output Trim");
    auto *rows = new QVBoxLayout(frame);
    rows->setContentsMargins(6, 6, 6, 6);
    rows->addWidget(board);
    return frame;
}

void OutputTrimPanel::BuildColumn(int channel, LevelBoard &board)
{
    const QString name = ChannelName[channel];
    auto *trim = new LevelPair(HalfDecibelRule, entries_, {"lblPNG", "sclPNG", channel},
                               {[this, channel](int) { StoreTrim(channel); }, [this] { Upload(); }}, this);
    trim->SetAccessibleName(name + ", output trim, dB");
    auto *cmdPN = Named(NarrowToggle("On", "Off"), "cmdPN", channel);
    cmdPN->setAccessibleName(name + ", pink noise");
    auto *cmdPhase = Named(NarrowToggle("Inverted", "In Phase"), "cmdPhase", channel);
    cmdPhase->setAccessibleName(name + ", phase");
    connect(cmdPN, &QPushButton::clicked, this, [this, channel] { cmdPN_Click(channel); });
    connect(cmdPhase, &QPushButton::clicked, this, [this, channel] { cmdPhase_Click(channel); });

    const int column = channel + 1;
    board.Add(trim->Slider(), column);
    auto *label = new QLabel(QString(name).replace(' ', '\n'));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    board.Grid()->addWidget(label, NameRow, column);
    board.Grid()->addWidget(trim->Field(), FieldRow, column, Qt::AlignHCenter);
    board.Grid()->addWidget(cmdPN, NoiseRow, column);
    board.Grid()->addWidget(cmdPhase, PhaseRow, column);
    Column(channel) = {trim, cmdPN, cmdPhase};
}

QWidget *OutputTrimPanel::BuildCommands(QWidget *faderFrame)
{
    auto *cmdReset = Named(new QPushButton("Reset Trims"), "cmdReset");
    connect(cmdReset, &QPushButton::clicked, this, [this] { cmdReset_Click(); });
    auto *side = new QWidget;
    auto *rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(faderFrame);
    rows->addStretch();
    rows->addWidget(cmdReset);
    rows->addWidget(mute_.Build("cmdMute2"));
    rows->addWidget(BuildUploadButton(0, link_, entries_));
    return side;
}

void OutputTrimPanel::Show()
{
    for (int channel = 0; channel < ChannelCount; ++channel)
        Column(channel).trim->ShowPosition(settings_.Audio.ChannelTrim[channel]);
}

void OutputTrimPanel::StoreTrim(int channel)
{
    if (settings_.Updating)
        return;
    settings_.Audio.ChannelTrim[channel] = Byte(Column(channel).trim->Position());
    settings_.SettingsChanged = true;
    link_.ShowSent();
}

void OutputTrimPanel::Upload()
{
    link_.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit);
}

void OutputTrimPanel::cmdReset_Click()
{
    if (!entries_.CommitEntry())
        return;
    settings_.Audio.ChannelTrim.fill(FlatHalfDecibel);
    settings_.SettingsChanged = true;
    Show();
    Upload();
}

// Test signals

void OutputTrimPanel::cmdPN_Click(int channel)
{
    ToggleButton &cmdPN = *Column(channel).cmdPN;
    const bool on = !cmdPN.IsOn();
    // A noise on a muted unit would stay unheard and puzzle whoever listens for it.
    if (on && settings_.MuteState != False)
        mute_.cmdMute_Click();
    cmdPN.SetOn(on);
    link_.RetryFunction(UnitOp::SetPink, Word(channel), on ? True : False);
}

void OutputTrimPanel::cmdPhase_Click(int channel)
{
    ToggleButton &cmdPhase = *Column(channel).cmdPhase;
    cmdPhase.SetOn(!cmdPhase.IsOn());
    link_.RetryFunction(UnitOp::SetPhase, Word(channel), cmdPhase.IsOn() ? True : False);
}

void OutputTrimPanel::ShowNoiseOff()
{
    for (const ChannelColumn &column : columns_)
        column.cmdPN->SetOn(false);
}

void OutputTrimPanel::ShowTestSignalsOff()
{
    ShowNoiseOff();
    for (const ChannelColumn &column : columns_)
        column.cmdPhase->SetOn(false);
}

void OutputTrimPanel::LeaveTab()
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        if (Column(channel).cmdPN->SwitchOff(link_.Holds().Pink[channel]))
            link_.RetryFunction(UnitOp::SetPink, Word(channel), False);
    }
    for (int channel = 0; channel < ChannelCount; ++channel) {
        if (Column(channel).cmdPhase->SwitchOff(link_.Holds().Inverted[channel]))
            link_.RetryFunction(UnitOp::SetPhase, Word(channel), False);
    }
}

} // namespace kelvo
