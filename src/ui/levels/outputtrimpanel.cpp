#include "ui/levels/outputtrimpanel.h"

#include "model/tables.h"
#include "ui/controls/appearance.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"
#include "ui/controls/taborder.h"

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

OutputTrimPanel::OutputTrimPanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests)
    : editor_(editor),
      link_(link),
      entries_(entries)
{
    auto *columns = new QHBoxLayout(this);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(BuildChannels(), 1);
    columns->addWidget(BuildCommands(guests));
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
    const FieldId field = field::Trim(channel);
    auto *trim =
        new LevelPair(field, HalfDecibelRule, editor_, entries_, {"lblPNG", "sclPNG", channel}, this);
    trim->SetAccessibleName(QString::fromStdString(Name(field)) + ", dB");
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

QWidget *OutputTrimPanel::BuildCommands(const Guests &guests)
{
    auto *cmdReset = Named(new QPushButton("Reset Trims"), "cmdReset");
    connect(cmdReset, &QPushButton::clicked, this, [this] { cmdReset_Click(); });
    auto *side = new QWidget;
    auto *rows = new QVBoxLayout(side);
    rows->setContentsMargins(0, 0, 0, 0);
    rows->addWidget(guests.faderFrame);
    rows->addStretch();
    rows->addWidget(cmdReset);
    rows->addWidget(guests.cmdMute2);
    rows->addWidget(guests.cmdUp);
    return side;
}

void OutputTrimPanel::Show(const Changed &changed)
{
    for (const ChannelColumn &column : columns_)
        column.trim->Show(changed);
}

void OutputTrimPanel::ShowUnsent(const FieldSet &unsent)
{
    for (const ChannelColumn &column : columns_)
        column.trim->ShowUnsent(unsent);
}

void OutputTrimPanel::cmdReset_Click()
{
    if (!entries_.CommitEntry())
        return;
    std::vector<Edit::Change> changes;
    changes.reserve(ChannelCount);
    for (int channel = 0; channel < ChannelCount; ++channel)
        changes.push_back({field::Trim(channel), FieldOf(field::Trim(channel)).scale->flat});
    editor_.Apply(Edit::Of("Reset Trims", std::move(changes)));
}

// Test signals

void OutputTrimPanel::cmdPN_Click(int channel)
{
    ToggleButton &cmdPN = *Column(channel).cmdPN;
    const bool on = !cmdPN.IsOn();
    // A noise on a muted unit would stay unheard and puzzle whoever listens for it.
    if (on && editor_.Room().MuteState != False)
        editor_.Apply(ToggleMute(editor_.Room()));
    cmdPN.SetOn(on);
    SwitchNoise(link_, channel, on);
}

void OutputTrimPanel::cmdPhase_Click(int channel)
{
    ToggleButton &cmdPhase = *Column(channel).cmdPhase;
    cmdPhase.SetOn(!cmdPhase.IsOn());
    SwitchPhase(link_, channel, cmdPhase.IsOn());
}

void OutputTrimPanel::ShowNoiseOff()
{
    for (const ChannelColumn &column : columns_)
        column.cmdPN->SetOn(false);
}

void OutputTrimPanel::ShowTestSignals(const TestSignals &playing)
{
    for (int channel = 0; channel < ChannelCount; ++channel) {
        Column(channel).cmdPN->SetOn(playing.Pink[channel]);
        Column(channel).cmdPhase->SetOn(playing.Inverted[channel]);
    }
}

void OutputTrimPanel::LeaveTab()
{
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (Column(channel).cmdPN->SwitchOff(link_.Holds().Playing.Pink[channel]))
            SwitchNoise(link_, channel, false);
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (Column(channel).cmdPhase->SwitchOff(link_.Holds().Playing.Inverted[channel]))
            SwitchPhase(link_, channel, false);
}

} // namespace kelvo
