#include "ui/optical/opticalpanel.h"

#include "ui/controls/appearance.h"
#include "ui/controls/choices.h"
#include "ui/controls/messages.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/optical/messages.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>
#include <chrono>
#include <utility>

namespace kelvo {

namespace {

using namespace std::chrono_literals;

constexpr auto ReadingInterval = 1ms;
/// What a busy moment of the window may leave to be caught up, one reading a round of the event loop.
constexpr auto MostBehind = 4ms;
constexpr auto BlinkInterval = 1000ms;

} // namespace

const std::array<OpticalPanel::Kind, MeasurementCount> OpticalPanel::Kinds{
    {{"Gain", &OpticalPanel::ReadGain},
     {"Slit Loss", &OpticalPanel::ReadSlitLoss},
     {"Azimuth", &OpticalPanel::ReadAzimuth}}};

OpticalPanel::OpticalPanel(Editor &editor, UnitLink &link, const Guests &guests)
    : editor_(editor),
      link_(link),
      timersMayTouchUnit_(guests.timersMayTouchUnit),
      stream_(link, *this),
      graphs_(new GraphArea),
      cmdMute4_(guests.cmdMute4)
{
    auto *controls = new QVBoxLayout;
    controls->setSpacing(GroupSpacing);
    controls->addWidget(BuildMeasurements());
    controls->addWidget(BuildProjectors());
    controls->addWidget(BuildStart());
    controls->addWidget(cmdMute4_);
    controls->addStretch();
    connect(cmdMute4_, &QPushButton::clicked, this, &OpticalPanel::cmdMute4_Click);

    auto *layout = new QGridLayout(this);
    layout->setSpacing(GroupSpacing);
    layout->addWidget(graphs_, 0, 0);
    layout->addLayout(controls, 0, 1);
    layout->addWidget(BuildRT60(), 1, 0);
    layout->addWidget(guests.cmdUp, 1, 1);
    layout->setColumnStretch(0, 1);
    layout->setRowStretch(0, 1);

    tmrOptical_ = Named(new QTimer(guests.window), "tmrOptical");
    tmrOptical_->setTimerType(Qt::PreciseTimer);
    tmrOptical_->setInterval(ReadingInterval);
    connect(tmrOptical_, &QTimer::timeout, this, &OpticalPanel::tmrOptical_Timer);
    Timer2_ = Named(new QTimer(guests.window), "Timer2");
    connect(Timer2_, &QTimer::timeout, this, &OpticalPanel::Timer2_Timer);
    Timer2_->start(BlinkInterval);
}

QGroupBox *OpticalPanel::BuildMeasurements()
{
    auto *group = new QGroupBox("Measurement");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    auto *optOptical = new QButtonGroup(group);
    for (int index = 0; index < MeasurementCount; ++index) {
        auto *option = Named(new OptionButton(Kinds[index].caption), "optOptical", index);
        option->setChecked(Measurement(index) == stream_.Selected());
        optOptical->addButton(option, index);
        layout->addWidget(option);
    }
    connect(optOptical, &QButtonGroup::idClicked, this, &OpticalPanel::optOptical_Click);
    return group;
}

QGroupBox *OpticalPanel::BuildProjectors()
{
    auto *group = new QGroupBox("Projector");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    for (int index = 0; index < int(cmdPro_.size()); ++index) {
        auto *cmdPro = Named(new StateButton(messages::Projectors[index]), "cmdPro", index);
        cmdPro->SetFace(index == stream_.Projector() ? Face::Selected : Face::Normal);
        connect(cmdPro, &QPushButton::clicked, this, [this, index] { cmdPro_Click(index); });
        layout->addWidget(cmdPro);
        cmdPro_[index] = cmdPro;
    }
    return group;
}

QWidget *OpticalPanel::BuildStart()
{
    lblStart_ = Named(new QLabel(messages::PressStart), "lblStart");
    KeepPlaceWhenHidden(lblStart_);
    cmdStart_ = Named(new QPushButton(messages::CaptionStart), "cmdStart");
    // The column stays as narrow as its label allows: the graphs need the room.
    cmdStart_->setMinimumWidth(cmdStart_->fontMetrics().horizontalAdvance(cmdStart_->text()) +
                               2 * GroupSpacing);
    cmdStart_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    connect(cmdStart_, &QPushButton::clicked, this, &OpticalPanel::cmdStart_Click);
    lblLock_ = Named(new QLabel(messages::Locked), "lblLock");
    lblLock_->setAlignment(Qt::AlignCenter);
    lblLock_->setMargin(Spacing);
    KeepPlaceWhenHidden(lblLock_);
    lblLock_->hide();

    auto *row = new QWidget;
    auto *layout = new QGridLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Spacing);
    layout->addWidget(lblStart_, 0, 0);
    layout->addWidget(cmdStart_, 0, 1);
    layout->setColumnStretch(1, 1);
    layout->addWidget(lblLock_, 1, 0, 1, 2);
    return row;
}

QGroupBox *OpticalPanel::BuildRT60()
{
    auto *group = new QGroupBox("RT60");
    auto *layout = new QHBoxLayout(group);
    layout->setSpacing(Spacing);
    cmdRT60_ = Named(new ToggleButton(messages::CaptionOn, messages::CaptionOff), "cmdRT60");
    cmdRT60_->setAccessibleName("Reverberation time test");
    connect(cmdRT60_, &QPushButton::clicked, this, &OpticalPanel::cmdRT60_Click);
    layout->addWidget(new QLabel("Reverberation time test"));
    layout->addWidget(cmdRT60_);
    layout->addStretch();
    return group;
}

void OpticalPanel::cmdStart_Click()
{
    if (!stream_.Running())
        BlankLock();
    history_ = {};
    stream_.Toggle();
}

void OpticalPanel::optOptical_Click(int index)
{
    if (Measurement(index) != stream_.Selected())
        BlankLock();
    stream_.Select(Measurement(index));
}

void OpticalPanel::cmdPro_Click(int index)
{
    BlankLock();
    stream_.SelectProjector(Word(index));
}

void OpticalPanel::ShowStream()
{
    for (int index = 0; index < int(cmdPro_.size()); ++index)
        cmdPro_[index]->SetFace(index == stream_.Projector() ? Face::Selected : Face::Normal);
    if (!stream_.Running())
        ShowIdle();
    else if (!tmrOptical_->isActive())
        ShowRunning();
    if (std::exchange(shownMeasurement_, stream_.Selected()) != stream_.Selected())
        ClearPictures();
}

void OpticalPanel::ShowRunning()
{
    Timer2_->stop();
    lblStart_->hide();
    cmdMute4_->setEnabled(false);
    cmdStart_->setText(messages::CaptionStop);
    lblLock_->show();
    tmrOptical_->start(ReadingInterval);
    emit StreamShown(true);
}

void OpticalPanel::ShowIdle()
{
    if (!tmrOptical_->isActive())
        return;
    tmrOptical_->stop();
    tmrOptical_->setInterval(0);
    cmdStart_->setText(messages::CaptionStart);
    lblLock_->hide();
    ClearPictures();
    graphs_->ShowAzimuth(false);
    cmdMute4_->setEnabled(true);
    Timer2_->start(BlinkInterval);
    emit StreamShown(false);
}

void OpticalPanel::ForgetReadings()
{
    slit_ = NoSlitReadings();
}

void OpticalPanel::ClearPictures()
{
    graphs_->Graph().Clear();
    graphs_->Azimuth().Clear();
}

void OpticalPanel::cmdMute4_Click()
{
    stream_.Without([this] { editor_.Apply(ToggleMute(editor_.Room())); });
}

void OpticalPanel::cmdRT60_Click()
{
    emit NoiseShownOff();
    cmdRT60_->SetOn(!cmdRT60_->IsOn());
    SwitchRT60(link_, cmdRT60_->IsOn());
}

void OpticalPanel::ShowTestSignals(const TestSignals &playing)
{
    cmdRT60_->SetOn(playing.RT60);
}

void OpticalPanel::StreamLock(bool locked)
{
    if (shownLock_ == locked)
        return;
    shownLock_ = locked;
    graphs_->ShowLive(locked);
    lblLock_->setText(locked ? messages::Locked : messages::NotLocked);
    Fill(lblLock_, locked ? Green : Red);
}

void OpticalPanel::BlankLock()
{
    shownLock_.reset();
    graphs_->ShowLive(false);
    lblLock_->clear();
    ClearFill(lblLock_);
}

void OpticalPanel::tmrOptical_Timer()
{
    if (inTick_ || !tmrOptical_->isActive() || !timersMayTouchUnit_())
        return;
    const QScopedValueRollback<bool> inTick(inTick_, true);
    const auto began = std::chrono::steady_clock::now();
    nextReading_ = std::max(nextReading_ + ReadingInterval, began - MostBehind);
    graphs_->Graph().SetFontName(GraphFont);
    (this->*Kinds[int(stream_.Selected())].read)();
    if (tmrOptical_->isActive())
        KeepPace(std::chrono::steady_clock::now() - began);
}

void OpticalPanel::KeepPace(std::chrono::nanoseconds took)
{
    const auto now = std::chrono::steady_clock::now();
    if (took > ReadingInterval) {
        // After a slow read the next one waits a whole interval, so that clicks and paintings that came
        // meanwhile have their turn first.
        nextReading_ = now + ReadingInterval;
        tmrOptical_->start();
    } else if (nextReading_ <= now) {
        // The toolkit's timer rounds every wait up and falls behind; the reading that it lost by that comes
        // with the next round of the event loop.
        QMetaObject::invokeMethod(this, &OpticalPanel::tmrOptical_Timer, Qt::QueuedConnection);
    }
}

void OpticalPanel::ReadGain()
{
    GainReading gain{};
    if (link_.ReadGain(gain) != Success)
        return;
    StreamLock(true);
    graphs_->ShowAzimuth(false);
    graphs_->Graph().Draw(DrawGain(gain));
}

void OpticalPanel::ReadSlitLoss()
{
    std::array<Byte, SlitLossBytes> sample{};
    Word side = 0;
    if (link_.ReadSlitLoss(sample, side) != Success)
        return;
    StreamLock(true);
    graphs_->ShowAzimuth(false);
    slit_[side == 0 ? 0 : 1] = sample;
    graphs_->Graph().Draw(DrawSlit(slit_));
}

void OpticalPanel::ReadAzimuth()
{
    std::array<Byte, AzimuthBytes> frame{};
    if (link_.ReadAzimuth(frame) != Success)
        return;
    StreamLock(true);
    graphs_->ShowAzimuth(true);
    history_.Store(frame);
    const int next = history_.NextLine();
    graphs_->Azimuth().Draw(DrawAzimuth(history_, Word(history_.line), Word(next)));
    history_.line = next;
}

void OpticalPanel::Timer2_Timer()
{
    lblStart_->setVisible(lblStart_->isHidden());
}

} // namespace kelvo
