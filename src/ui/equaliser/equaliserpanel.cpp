#include "ui/equaliser/equaliserpanel.h"

#include "model/tables.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"
#include "ui/controls/taborder.h"
#include "ui/controls/uploadbutton.h"
#include "ui/equaliser/messages.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvo {

namespace {

constexpr std::array<char, ChannelCount> ChannelKey{'l', 'p', 'c', 'q', 'r', 'e'};

/// Takes a slider's position into its byte. A byte beyond the slider's range is kept while the slider stands
/// at the end that is nearest to it.
void Store(Byte &byte, const LevelPair &pair)
{
    if (std::min(int(byte), pair.Slider()->maximum()) != pair.Position())
        byte = Byte(pair.Position());
}

} // namespace

EqualiserPanel::EqualiserPanel(Settings &settings, UnitLink &link, EntryWindow &entries, MuteButtons &mute,
                               MasterFader &fader, QWidget *faderFrame)
    : settings_(settings),
      link_(link),
      entries_(entries),
      mute_(mute),
      fader_(fader),
      faderFrame_(faderFrame)
{
    const LevelPair::Actions apply{[this](int) { StoreChange(); }, [this] { Upload(); }};
    auto *frmBandA = new BandFrame({"frmBandA", "lblBand", "sclA"}, ThirdOctaves, entries, apply);
    auto *frmBandB = new BandFrame({"frmBandB", "lblLSRSv", "sclB"}, Octaves, entries, apply);
    auto *frmBass = new SubBassFrame(entries, apply,
                                     [this](SubwooferByte byte, int index) { optSub_Click(byte, index); });
    frames_ = {frmBandA, frmBandB, frmBass};
    bass_ = new LevelPair(ShelfRule, entries, {"lblBass", "sclBass"}, apply, this);
    treble_ = new LevelPair(ShelfRule, entries, {"lblTreb", "sclTreb"}, apply, this);
    JoinNeighbours(std::array{bass_, treble_});

    bandArea_ = new QStackedWidget;
    for (ChannelFrame *frame : frames_)
        bandArea_->addWidget(frame);

    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->addWidget(BuildChannelButtons(), 0, 0, 1, 2);
    grid->addWidget(bandArea_, 1, 0, 2, 1);
    grid->addWidget(BuildTone(), 1, 1);
    grid->addWidget(faderFrame, 2, 1);
    grid->addWidget(BuildCommands(), 3, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setRowStretch(1, 1);
    ChainTabs();
    frmBandB->ShowChannel(ChannelTitle[LeftSurround]);
    frmBass->ShowChannel(ChannelTitle[Subwoofer]);
    ReflectChannelButtons();
    ShowChannelPanel();
    LoadChannelData();
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

QWidget *EqualiserPanel::BuildCommands()
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
    columns->addWidget(mute_.Build("cmdMute"));
    columns->addWidget(BuildUploadButton(1, link_, entries_));
    return row;
}

void EqualiserPanel::ChainTabs()
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
    for (QWidget *control : faderFrame_->findChildren<QWidget *>(Qt::FindDirectChildrenOnly))
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
    SaveChannelData();
    currentChannel_ = channel;
    ReflectChannelButtons();
    // Filled before it is shown: showing may hand the focus on, and the position it is taken at counts.
    LoadChannelData();
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
    const QString title = ChannelTitle[currentChannel_];
    Frame().ShowChannel(title);
    bandArea_->setCurrentWidget(&Frame());
    bass_->SetAccessibleName(title + ", bass, dB");
    treble_->SetAccessibleName(title + ", treble, dB");
}

void EqualiserPanel::SaveChannelData()
{
    ChannelSlice &slice = Slice();
    const auto pairs = Frame().Pairs();
    for (std::size_t i = 0; i < pairs.size(); ++i)
        Store(slice.Band[i], *pairs[i]);
    Store(slice.BassLevel, *bass_);
    Store(slice.TrebleLevel, *treble_);
}

void EqualiserPanel::LoadChannelData()
{
    const ChannelSlice &slice = Slice();
    Frame().Show(slice);
    bass_->ShowPosition(slice.BassLevel);
    treble_->ShowPosition(slice.TrebleLevel);
}

// Changes

void EqualiserPanel::StoreChange()
{
    if (settings_.Updating)
        return;
    settings_.SettingsChanged = true;
    SaveChannelData();
    link_.ShowSent();
}

void EqualiserPanel::Upload()
{
    link_.UploadToUnit(UploadSelector::AudioOnly, UploadTrigger::AfterEdit);
}

void EqualiserPanel::ApplyChannelChange()
{
    StoreChange();
    Upload();
}

void EqualiserPanel::optSub_Click(SubwooferByte byte, int index)
{
    Slice().Band[byte] = Byte(index);
    ApplyChannelChange();
}

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
    PasteChannelData(copiedChannel_);
    ApplyChannelChange();
}

/// The target takes what its sliders show, so a source byte beyond their range arrives as the nearest end.
void EqualiserPanel::PasteChannelData(int source)
{
    const ChannelSlice from = settings_.Audio.ChannelEq[source];
    ChannelSlice &to = Slice();
    const auto paste = [](LevelPair &pair, Byte position, Byte &into) {
        pair.ShowPosition(position);
        into = Byte(pair.Position());
    };
    const auto pairs = Frame().Pairs();
    for (std::size_t i = 0; i < pairs.size(); ++i)
        paste(*pairs[i], from.Band[i], to.Band[i]);
    paste(*bass_, from.BassLevel, to.BassLevel);
    paste(*treble_, from.TrebleLevel, to.TrebleLevel);
}

void EqualiserPanel::cmdClear_Click()
{
    if (!entries_.CommitEntry() || !Ask(this, messages::ResetChannel, {ChannelTitle[currentChannel_]}))
        return;
    ResetChannelData(settings_, currentChannel_);
    LoadChannelData();
    ApplyChannelChange();
}

// Test signals and shortcuts

void EqualiserPanel::cmdPink_Click()
{
    cmdPink_->SetOn(!cmdPink_->IsOn());
    SetEQPinkNoise(cmdPink_->IsOn());
}

void EqualiserPanel::SetEQPinkNoise(bool on)
{
    link_.RetryFunction(UnitOp::SetPink, Word(currentChannel_), on ? True : False);
}

void EqualiserPanel::ShowTestSignalsOff()
{
    cmdPink_->SetOn(false);
}

void EqualiserPanel::LeaveTab()
{
    if (cmdPink_->SwitchOff(link_.Holds().Pink[currentChannel_]))
        SetEQPinkNoise(false);
}

bool EqualiserPanel::RunShortcut(QChar key)
{
    const auto channel = std::ranges::find(ChannelKey, key.toLatin1());
    if (channel == ChannelKey.end() && key != 'm' && key != '7' && key != 'g')
        return false;
    // A level still being typed belongs to what was shown when it was begun. Sending it may lose the link.
    if (!entries_.CommitEntry() || !isEnabled())
        return true;
    if (channel != ChannelKey.end())
        cmdEQChan_Click(int(channel - ChannelKey.begin()));
    else if (key == 'm')
        mute_.cmdMute_Click();
    else if (key == '7')
        fader_.cmdSet7_Click();
    else
        cmdPink_Click();
    return true;
}

} // namespace kelvo
