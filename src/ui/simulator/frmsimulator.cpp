#include "ui/simulator/frmsimulator.h"

#include "model/levels.h"
#include "model/tables.h"
#include "ui/controls/named.h"
#include "ui/simulator/messages.h"
#include "unit/messages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>
#include <QTimer>

#include <cmath>
#include <optional>

namespace kelvo {

namespace {

constexpr int FollowInterval = 200; ///< ms
constexpr int SlowestCall = 3000;   ///< ms
constexpr int MostTimes = 99;
constexpr int UsualTimes = 6; ///< what ends a connection

/// A knob of the reader: the slider's position p stands for the value `first + p * step`, shown as
/// `sign * (value - zero)`.
struct Knob {
    const char *name;
    const char *caption;
    double SimulatedUnit::Reader::*value;
    double first;
    double step;
    int positions;
    double zero;
    int sign;
    int decimals;
};

// A smaller gain reading is a taller bar, so that turning a gain up goes down in readings.
constexpr Knob Knobs[]{
    {"sclGainLeft", "Gain left", &SimulatedUnit::Reader::gainLeft, 255, -1, 255, 80, -1, 0},
    {"sclGainRight", "Gain right", &SimulatedUnit::Reader::gainRight, 255, -1, 255, 80, -1, 0},
    {"sclAzimuth", "Azimuth angle", &SimulatedUnit::Reader::azimuthDegrees, -45, 0.5, 180, 0, 1, 1},
    {"sclSlitLoss", "Slit loss", &SimulatedUnit::Reader::slitLoss, 0, 0.5, 120, 0, 1, 1},
    {"sclFocusNoise", "Focus noise", &SimulatedUnit::Reader::focusNoise, 0, 0.5, 60, 0, 1, 1},
};

constexpr const char *StreamName[]{"", "Gain", "Slit loss", "Azimuth"};

QString KnobText(const Knob &knob, double value)
{
    const double shown = knob.sign * (value - knob.zero);
    return QString("%1%2").arg(shown > 0 && knob.zero != 0 ? "+" : "").arg(shown, 0, 'f', knob.decimals);
}

QString ChannelNames(const std::array<bool, ChannelCount> &chosen)
{
    QStringList names;
    for (std::size_t channel = 0; channel < chosen.size(); ++channel)
        if (chosen[channel])
            names += ChannelName[channel];
    return names.join(", ");
}

} // namespace

FrmSimulator::FrmSimulator(SimulatedUnit &unit, QWidget *parent)
    : QDialog(parent),
      unit_(unit),
      tmrUnit_(Named(new QTimer(this), "tmrUnit")),
      cboOperation_(Named(new QComboBox, "cboOperation")),
      cboAnswer_(Named(new QComboBox, "cboAnswer")),
      txtTimes_(Named(new QSpinBox, "txtTimes"))
{
    Named(this, "frmSimulator");
    setWindowTitle(messages::SimulatorTitle);
    auto *left = new QVBoxLayout;
    left->addWidget(BuildReader());
    left->addWidget(BuildRunning(), 1);
    auto *right = new QVBoxLayout;
    right->addWidget(BuildFrontPanel());
    right->addWidget(BuildNextError());
    right->addStretch();
    auto *columns = new QHBoxLayout(this);
    columns->addLayout(left, 1);
    columns->addLayout(right);

    tmrUnit_->setInterval(FollowInterval);
    connect(tmrUnit_, &QTimer::timeout, this, &FrmSimulator::ShowUnit);
    ShowUnit();
}

template <typename Value>
void FrmSimulator::Follow(std::function<Value()> read, std::function<void(Value)> show)
{
    followers_.push_back([read, show, last = std::optional<Value>()]() mutable {
        // Only a new value is shown, so that a box being typed in is left alone.
        if (const Value now = read(); last != now) {
            last = now;
            show(now);
        }
    });
}

QGroupBox *FrmSimulator::BuildReader()
{
    auto *box = new QGroupBox(messages::ReaderCaption);
    auto *rows = new QFormLayout(box);
    for (const Knob &knob : Knobs) {
        auto *slider = Named(new QSlider(Qt::Horizontal), knob.name);
        slider->setRange(0, knob.positions);
        slider->setMinimumWidth(160);
        slider->setAccessibleName(knob.caption);
        auto *text = new QLabel;
        text->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        text->setMinimumWidth(text->fontMetrics().horizontalAdvance("-175.0"));
        auto *row = new QHBoxLayout;
        row->addWidget(slider);
        row->addWidget(text);
        rows->addRow(knob.caption, row);
        double &value = unit_.reader.*knob.value;
        connect(slider, &QSlider::valueChanged, this, [&value, &knob, text](int position) {
            value = knob.first + position * knob.step;
            text->setText(KnobText(knob, value));
        });
        text->setText(KnobText(knob, value));
        const QSignalBlocker quiet(slider);
        slider->setValue(int(std::lround((value - knob.first) / knob.step)));
    }
    auto *chkLock = Named(new QCheckBox(messages::StreamLockCaption), "chkLock");
    chkLock->setChecked(unit_.reader.locked);
    connect(chkLock, &QCheckBox::toggled, this, [this](bool on) { unit_.reader.locked = on; });
    rows->addRow(chkLock);
    return box;
}

QGroupBox *FrmSimulator::BuildFrontPanel()
{
    auto *box = new QGroupBox(messages::FrontPanelCaption);
    auto *rows = new QFormLayout(box);

    auto *txtLevel = Named(new QDoubleSpinBox, "txtLevel");
    txtLevel->setDecimals(1);
    txtLevel->setSingleStep(0.1);
    txtLevel->setRange(0, FaderRule.highest / 10.0);
    txtLevel->setKeyboardTracking(false);
    txtLevel->setAccessibleName(messages::FaderCaption);
    connect(txtLevel, &QDoubleSpinBox::valueChanged, this,
            [this](double level) { unit_.panel.level = Word(std::lround(10 * level)); });
    Follow<Word>([this] { return unit_.panel.level; },
                 [txtLevel](Word level) {
                     const QSignalBlocker quiet(txtLevel);
                     txtLevel->setValue(level / 10.0);
                 });
    rows->addRow(messages::FaderCaption, txtLevel);

    auto *chkMute = Named(new QCheckBox(messages::MutedCaption), "chkMute");
    connect(chkMute, &QCheckBox::clicked, this, [this](bool on) { unit_.panel.mute = on ? True : False; });
    Follow<Word>([this] { return unit_.panel.mute; },
                 [chkMute](Word mute) { chkMute->setChecked(mute != False); });
    rows->addRow(chkMute);

    auto *cboFormat = Named(new QComboBox, "cboFormat");
    for (const char *caption : ModeCaption)
        cboFormat->addItem(caption);
    cboFormat->setAccessibleName(messages::FormatCaption);
    connect(cboFormat, &QComboBox::activated, this,
            [this](int format) { unit_.panel.format = Word(format); });
    Follow<Word>([this] { return unit_.panel.format; },
                 [cboFormat](Word format) {
                     cboFormat->setCurrentIndex(format >= 0 && format < FormatCount ? format : -1);
                 });
    rows->addRow(messages::FormatCaption, cboFormat);

    auto *chkPlugged = Named(new QCheckBox(messages::PluggedCaption), "chkPlugged");
    chkPlugged->setChecked(unit_.panel.plugged);
    connect(chkPlugged, &QCheckBox::toggled, this, [this](bool on) { unit_.panel.plugged = on; });
    rows->addRow(chkPlugged);

    auto *txtSlow = Named(new QSpinBox, "txtSlow");
    txtSlow->setRange(0, SlowestCall);
    txtSlow->setSingleStep(50);
    txtSlow->setSuffix(messages::Milliseconds);
    txtSlow->setKeyboardTracking(false);
    txtSlow->setAccessibleName(messages::SlowCaption);
    txtSlow->setValue(int(unit_.panel.slow.count()));
    connect(txtSlow, &QSpinBox::valueChanged, this,
            [this](int time) { unit_.panel.slow = std::chrono::milliseconds(time); });
    rows->addRow(messages::SlowCaption, txtSlow);
    return box;
}

QGroupBox *FrmSimulator::BuildNextError()
{
    auto *box = new QGroupBox(messages::NextErrorCaption);
    cboOperation_->addItem(messages::AnyOperation);
    for (const OperationRow &row : Operations)
        if (row.required) // the other one is never called
            cboOperation_->addItem(row.name, int(row.operation));
    cboOperation_->setAccessibleName(messages::OperationCaption);
    for (std::size_t bit = 0; bit < messages::ErrorLine.size(); ++bit)
        cboAnswer_->addItem(QString(messages::ErrorLine[bit]).sliced(2), 1 << bit);
    cboAnswer_->addItem(messages::NoStreamAnswer, StreamNotLocked);
    cboAnswer_->setAccessibleName(messages::AnswerCaption);
    txtTimes_->setRange(1, MostTimes);
    txtTimes_->setValue(UsualTimes);
    txtTimes_->setAccessibleName(messages::TimesCaption);

    auto *cmdFail = Named(new QPushButton(messages::FailCaption), "cmdFail");
    auto *cmdForget = Named(new QPushButton(messages::ForgetCaption), "cmdForget");
    for (QPushButton *button : {cmdFail, cmdForget})
        button->setAutoDefault(false);
    connect(cmdFail, &QPushButton::clicked, this, &FrmSimulator::cmdFail_Click);
    connect(cmdForget, &QPushButton::clicked, this, [this] {
        unit_.ForgetFailures();
        ShowUnit();
    });
    auto *lblFailures = Named(new QLabel, "lblFailures");
    Follow<int>([this] { return unit_.FailuresLeft(); },
                [lblFailures](int left) {
                    lblFailures->setText(left == 0 ? QString(messages::NothingFails)
                                                   : QString(messages::CallsWillFail).arg(left));
                });

    auto *buttons = new QHBoxLayout;
    buttons->addWidget(cmdFail);
    buttons->addWidget(cmdForget);
    auto *rows = new QFormLayout(box);
    rows->addRow(messages::OperationCaption, cboOperation_);
    rows->addRow(messages::AnswerCaption, cboAnswer_);
    rows->addRow(messages::TimesCaption, txtTimes_);
    rows->addRow(buttons);
    rows->addRow(lblFailures);
    return box;
}

QGroupBox *FrmSimulator::BuildRunning()
{
    auto *box = new QGroupBox(messages::RunningCaption);
    auto *lblRunning = Named(new QLabel, "lblRunning");
    lblRunning->setWordWrap(true);
    lblRunning->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    lblRunning->setMinimumHeight(4 * lblRunning->fontMetrics().lineSpacing());
    Follow<QString>([this] { return RunningText(); },
                    [lblRunning](const QString &text) { lblRunning->setText(text); });
    (new QVBoxLayout(box))->addWidget(lblRunning);
    return box;
}

QString FrmSimulator::RunningText() const
{
    QStringList lines;
    if (unit_.stream != SimulatedUnit::Stream::None)
        lines += QString(messages::StreamRuns).arg(StreamName[int(unit_.stream)]).arg(unit_.projector + 1);
    if (const QString channels = ChannelNames(unit_.testSignals.pink); !channels.isEmpty())
        lines += QString(messages::NoiseRuns).arg(channels);
    if (const QString channels = ChannelNames(unit_.testSignals.inverted); !channels.isEmpty())
        lines += QString(messages::PhaseInverted).arg(channels);
    if (unit_.testSignals.rt60)
        lines += messages::ReverberationRuns;
    return lines.isEmpty() ? QString(messages::NothingRuns) : lines.join('\n');
}

void FrmSimulator::cmdFail_Click()
{
    const QVariant chosen = cboOperation_->currentData();
    unit_.FailNext(chosen.isValid() ? std::optional(Operation(chosen.toInt())) : std::nullopt,
                   Status(cboAnswer_->currentData().toInt()), txtTimes_->value());
    ShowUnit();
}

void FrmSimulator::ShowUnit()
{
    for (auto &follower : followers_)
        follower();
}

void FrmSimulator::showEvent(QShowEvent *event)
{
    QDialog::showEvent(event);
    ShowUnit();
    tmrUnit_->start();
}

void FrmSimulator::hideEvent(QHideEvent *event)
{
    tmrUnit_->stop();
    QDialog::hideEvent(event);
}

} // namespace kelvo
