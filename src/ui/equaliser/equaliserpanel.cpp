#include "ui/equaliser/equaliserpanel.h"

#include "model/tables.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"
#include "ui/controls/taborder.h"
#include "ui/equaliser/messages.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvo {

namespace {

/// What a channel's equaliser and tone are stored in.
std::vector<FieldId> FieldsOf(int channel)
{
    std::vector<FieldId> fields{field::Bass(channel), field::Treble(channel)};
    for (int band = 0; band < EqualiserBytes(KindOf(channel)); ++band)
        fields.push_back(field::Band(channel, band));
    return fields;
}

} // namespace

EqualiserPanel::EqualiserPanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests)
    : editor_(editor),
      link_(link),
      entries_(entries)
{
    frames_ = {new BandFrame({"frmBandA", "lblBand", "sclA"}, Left, editor, entries),
               new BandFrame({"frmBandB", "lblLSRSv", "sclB"}, LeftSurround, editor, entries),
               new SubBassFrame(editor, entries)};
    bass_ = new LevelPair(field::Bass(Left), ShelfRule, editor, entries, {"lblBass", "sclBass"}, this);
    treble_ = new LevelPair(field::Treble(Left), ShelfRule, editor, entries, {"lblTreb", "sclTreb"}, this);
    JoinNeighbours(std::array{bass_, treble_});

    bandArea_ = new QStackedWidget;
    for (ChannelFrame *frame : frames_)
        bandArea_->addWidget(frame);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(BuildChannelButtons(), 0, 0, 1, 2);
    grid->addWidget(bandArea_, 1, 0, 2, 1);
    grid->addWidget(BuildTone(), 1, 1);
    grid->addWidget(guests.faderFrame, 2, 1);
    grid->addWidget(BuildCommands(guests), 3, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    ChainTabs(*guests.faderFrame);
    ReflectChannelButtons();
    LoadChannelData();
    ShowChannelPanel();
}

QWidget *EqualiserPanel::BuildChannelButtons()
{
    auto *row = new QWidget;
    auto *columns = new QHBoxLayout(row);
    columns->setContentsMargins(0, 0, 0, 0);
    for (int channel = 0; channel < ChannelCount; ++channel) {
        auto *button = Named(new StateButton(ChannelName[channel]), "cmdEQChan", channel);
        connect(button, &QPushButton::clicked, this, [this, channel] { cmdEQChan_Click(channel); });
        columns->addWidget(button);
        cmdEQChan_[channel] = button;
    }
    return row;
}

QWidget *EqualiserPanel::BuildTone()
{
    auto *board = new LevelBoard(ShelfMarks());
    int column = 1;
    for (const auto &[pair, caption] : {std::pair(bass_, "Bass"), std::pair(treble_, "Treble")}) {
        board->Add(pair->Slider(), column);
        board->Grid()->addWidget(new QLabel(caption), LevelBoard::SliderRow - 1, column, Qt::AlignHCenter);
        board->Grid()->addWidget(pair->Field(), LevelBoard::SliderRow + 1, column, Qt::AlignHCenter);
        ++column;
    }
    board->Grid()->setHorizontalSpacing(4);
    auto *frame = new QGroupBox("Tone");
    (new QVBoxLayout(frame))->addWidget(board);
    return frame;
}

QWidget *EqualiserPanel::BuildCommands(const Guests &guests)
{
    auto *cmdCopy = Named(new QPushButton("Copy"), "cmdCopy");
    auto *cmdPaste = Named(new QPushButton("Paste"), "cmdPaste");
    auto *cmdClear = Named(new QPushButton("Reset"), "cmdClear");
    cmdPink_ = Named(new ToggleButton("Pink Noise On", "Pink Noise Off"), "cmdPink");
    connect(cmdCopy, &QPushButton::clicked, this, [this] { cmdCopy_Click(); });
    connect(cmdPaste, &QPushButton::clicked, this, [this] { cmdPaste_Click(); });
    connect(cmdClear, &QPushButton::clicked, this, [this] { cmdClear_Click(); });
    connect(cmdPink_, &QPushButton::clicked, this, [this] { cmdPink_Click(); });

    auto *row = new QWidget;
    auto *columns = new QHBoxLayout(row);
    columns->setContentsMargins(0, 0, 0, 0);
    columns->addWidget(cmdCopy);
    columns->addWidget(cmdPaste);
    columns->addWidget(cmdClear);
    columns->addStretch();
    columns->addWidget(cmdPink_);
    columns->addWidget(guests.cmdMute);
    columns->addWidget(guests.cmdUp);
    return row;
}

void EqualiserPanel::ChainTabs(const QWidget &faderFrame)
{
    std::vector<QWidget *> sequence(cmdEQChan_.begin(), cmdEQChan_.end());
    const auto add = [&sequence](const LevelPair *pair) {
        sequence.push_back(pair->Slider());
        sequence.push_back(pair->Field());
    };
    for (const ChannelFrame *frame : frames_) {
        std::ranges::for_each(frame->Pairs(), add);
        for (QAbstractButton *option : frame->findChildren<QAbstractButton *>())
            sequence.push_back(option);
    }
    add(bass_);
    add(treble_);
    for (QWidget *control : faderFrame.findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
        sequence.push_back(control);
    SetTabSequence(sequence);
}

// Channels

/// The test signal follows the user: off on the channel that is left, on again on the one that is shown.
void EqualiserPanel::cmdEQChan_Click(int channel)
{
    if (!entries_.CommitEntry())
        return;
    SetEQPinkNoise(false);
    currentChannel_ = channel;
    ReflectChannelButtons();
    // Filled before it is shown: showing may hand the focus on, and the position it is taken at counts.
    LoadChannelData();
    ShowUnsent(link_.NotInUnit());
    ShowChannelPanel();
    if (cmdPink_->IsOn())
        SetEQPinkNoise(true);
}

void EqualiserPanel::ReflectChannelButtons()
{
    for (int channel = 0; channel < ChannelCount; ++channel)
        cmdEQChan_[channel]->SetFace(channel == currentChannel_ ? Face::Current : Face::Normal);
}

void EqualiserPanel::ShowChannelPanel()
{
    bandArea_->setCurrentWidget(&Frame());
}

void EqualiserPanel::LoadChannelData()
{
    Frame().Bind(currentChannel_);
    for (const auto &[pair, field] : {std::pair(bass_, field::Bass(currentChannel_)),
                                      std::pair(treble_, field::Treble(currentChannel_))}) {
        pair->Bind(field);
        pair->SetAccessibleName(SpokenName(field));
    }
}

void EqualiserPanel::Show(const Changed &changed)
{
    for (ChannelFrame *frame : frames_)
        frame->Show(changed);
    bass_->Show(changed);
    treble_->Show(changed);
}

void EqualiserPanel::ShowUnsent(const FieldSet &unsent)
{
    for (ChannelFrame *frame : frames_)
        frame->ShowUnsent(unsent);
    bass_->ShowUnsent(unsent);
    treble_->ShowUnsent(unsent);
}

// Commands

void EqualiserPanel::cmdCopy_Click()
{
    copiedChannel_ = currentChannel_;
}

void EqualiserPanel::cmdPaste_Click()
{
    if (copiedChannel_ == currentChannel_ || !entries_.CommitEntry())
        return;
    if (copiedChannel_ == NothingCopied) {
        Tell(this, messages::NothingToPaste);
        return;
    }
    const ChannelKind kind = KindOf(currentChannel_);
    if (kind == ChannelKind::Subwoofer || kind != KindOf(copiedChannel_)) {
        Tell(this, messages::IncompatibleChannel);
        return;
    }
    if (!Ask(this, messages::CopyChannel, {ChannelTitle[copiedChannel_], ChannelTitle[currentChannel_]}))
        return;
    editor_.Apply(PasteChannelData());
}

/// The target takes what the controls can show, so a source byte beyond their range arrives as the nearest
/// end.
Edit EqualiserPanel::PasteChannelData() const
{
    const std::vector<FieldId> from = FieldsOf(copiedChannel_);
    const std::vector<FieldId> to = FieldsOf(currentChannel_);
    std::vector<Edit::Change> changes;
    changes.reserve(to.size());
    for (std::size_t i = 0; i < to.size(); ++i)
        changes.push_back({to[i], std::min(Get(editor_.Room(), from[i]), FieldOf(to[i]).scale->last)});
    return Edit::Of(std::string("Paste ") + ChannelName[copiedChannel_] + " to " +
                        ChannelName[currentChannel_],
                    std::move(changes));
}

void EqualiserPanel::cmdClear_Click()
{
    if (!entries_.CommitEntry() || !Ask(this, messages::ResetChannel, {ChannelTitle[currentChannel_]}))
        return;
    editor_.Apply(
        {.name = std::string("Reset ") + ChannelName[currentChannel_],
         .fields = FieldsOf(currentChannel_),
         .make = [channel = currentChannel_](RoomSettings &room) { ResetChannelData(room, channel); }});
}

// Test signals

void EqualiserPanel::cmdPink_Click()
{
    cmdPink_->SetOn(!cmdPink_->IsOn());
    SetEQPinkNoise(cmdPink_->IsOn());
}

void EqualiserPanel::SetEQPinkNoise(bool on)
{
    SwitchNoise(link_, currentChannel_, on);
}

void EqualiserPanel::ShowTestSignals(const TestSignals &playing)
{
    cmdPink_->SetOn(playing.Pink[currentChannel_]);
}

void EqualiserPanel::LeaveTab()
{
    if (cmdPink_->SwitchOff(link_.Holds().Playing.Pink[currentChannel_]))
        SetEQPinkNoise(false);
}

} // namespace kelvo
