#include "ui/main/stateline.h"

#include "model/flagguard.h"
#include "model/tables.h"
#include "ui/controls/appearance.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int Gap = 3;
constexpr int InkMargin = 4;
// What a label that gives way keeps: the noise tells more in its first words than a fault.
constexpr int LeastOfNoise = 96;
constexpr int LeastOfNotice = 48;

constexpr Colours Kind{QColor(64, 64, 64), QColorConstants::White};
constexpr Colours Plain{QColor(208, 208, 208), QColorConstants::Black};
constexpr Colours On{QColorConstants::Yellow, QColorConstants::Black};

/// In the order of the line's states.
constexpr std::array<Colours, 6> StateColours{Kind, Plain, Red, On, On, On};

/// A label that gives way where there is no room for all of its text.
class ElidedLabel : public QLabel {
  public:
    explicit ElidedLabel(int leastWidth) : leastWidth_(leastWidth) {}

    QSize minimumSizeHint() const override
    {
        return {std::min(leastWidth_, sizeHint().width()), QLabel::minimumSizeHint().height()};
    }

  protected:
    void paintEvent(QPaintEvent *) override
    {
        const QRect room = contentsRect();
        QPainter painter(this);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(room, Qt::AlignVCenter,
                         fontMetrics().elidedText(text(), Qt::ElideRight, room.width()));
    }

  private:
    int leastWidth_;
};

QLabel *Prepared(QLabel *label, const Colours &colours)
{
    label->setFont(Bold(label->font()));
    label->setContentsMargins(InkMargin, 0, InkMargin, 0);
    label->setAlignment(Qt::AlignCenter);
    label->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Ignored);
    label->setVisible(false);
    // A menu bar's own are a button's.
    label->setBackgroundRole(QPalette::Window);
    label->setForegroundRole(QPalette::WindowText);
    Fill(label, colours);
    return label;
}

template <class Names>
QString Joined(const std::array<bool, ChannelCount> &chosen, const Names &names, const QString &between)
{
    QStringList joined;
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (chosen[channel])
            joined += names[channel];
    return joined.join(between);
}

/// "NOISE L C", "PHASE ALL"; nothing when no channel is chosen.
QString ShortForm(const char *what, const std::array<bool, ChannelCount> &chosen)
{
    const auto count = std::ranges::count(chosen, true);
    if (count == 0)
        return {};
    const QString names = Joined(chosen, messages::ShortChannelName, " ");
    return QString("%1 %2").arg(what, count == ChannelCount ? QString(messages::AllChannels) : names);
}

/// "Pink noise: Left, Center"
QString LongForm(const char *what, const char *nothing, const std::array<bool, ChannelCount> &chosen)
{
    const QString names = Joined(chosen, ChannelName, ", ");
    return names.isEmpty() ? QString(nothing) : QString("%1: %2").arg(what, names);
}

} // namespace

StateLine::StateLine(QMenuBar *bar)
    : bar_(bar),
      lblNotice_(Prepared(Named(new ElidedLabel(LeastOfNotice), "lblNotice"), Amber))
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(Gap, 1, Gap, 1);
    row->setSpacing(Gap);
    row->addStretch();
    row->addWidget(lblNotice_, 1);
    for (int state = 0; state < StateCount; ++state) {
        QLabel *label = state == Noise ? new ElidedLabel(LeastOfNoise) : new QLabel;
        lblState_[state] = Prepared(Named(label, "lblState", state), StateColours[std::size_t(state)]);
        row->addWidget(label);
    }
    lblNotice_->setCursor(Qt::PointingHandCursor);
    lblNotice_->installEventFilter(this);
    // It gets what the states leave: what sounds in the hall tells more than a fault.
    lblNotice_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    bar->setCornerWidget(this);
}

/// All that the menus leave, whatever is shown. The bar asks back while it is asked what they take.
QSize StateLine::sizeHint() const
{
    if (askingBar_)
        return minimumSizeHint();
    const FlagGuard asking(askingBar_);
    return {std::max(bar_->width() - bar_->sizeHint().width(), 0), minimumSizeHint().height()};
}

QSize StateLine::minimumSizeHint() const
{
    return {0, fontMetrics().height() + 2};
}

void StateLine::ShowUnitKind(const QString &kind, const QString &meaning)
{
    ShowState(UnitKind, kind, meaning);
}

void StateLine::Show(const Facts &facts)
{
    if (shown_ == facts)
        return;
    shown_ = facts;
    const TestSignals &playing = facts.playing;
    ShowState(Line, QString("%1 %2").arg(facts.port, facts.speed),
              QString(messages::LineMeaning).arg(facts.port, facts.speed));
    ShowState(Mute, facts.muted ? messages::MutedState : "",
              facts.muted ? messages::MutedMeaning : messages::NotMuted);
    QStringList both{ShortForm(messages::NoiseState, playing.Pink),
                     ShortForm(messages::PhaseState, playing.Inverted)};
    both.removeAll("");
    ShowState(Noise, both.join("  "),
              LongForm(messages::NoiseMeaning, messages::NoNoise, playing.Pink) + "; " +
                  LongForm(messages::PhaseMeaning, messages::NoPhase, playing.Inverted));
    ShowState(Reverberation, playing.RT60 ? messages::RT60State : "",
              playing.RT60 ? messages::RT60Meaning : messages::NoRT60);
    const bool measuring = facts.measuring != nullptr;
    ShowState(Measuring, measuring ? QString(messages::MeasuringState).arg(facts.measuring) : QString(),
              measuring ? QString(messages::MeasuringMeaning).arg(facts.measuring) : messages::NotMeasuring);
}

/// A label without text is hidden; what it means is announced all the same.
void StateLine::ShowState(State state, const QString &text, const QString &meaning)
{
    QLabel *label = lblState_[state];
    if (label->text() == text && label->accessibleName() == meaning)
        return;
    label->setText(text);
    label->setToolTip(meaning);
    label->setAccessibleName(meaning);
    label->setVisible(!text.isEmpty());
    Announce(label);
}

bool StateLine::Tell(const QString &fault)
{
    if (told_.contains(fault))
        return false;
    told_ += fault;
    notices_ += fault;
    if (notices_.size() == 1)
        ShowNotice();
    return true;
}

void StateLine::ShowNotice()
{
    const QString notice = notices_.value(0);
    lblNotice_->setText(notice);
    lblNotice_->setMaximumWidth(lblNotice_->sizeHint().width());
    lblNotice_->setToolTip(notice);
    lblNotice_->setAccessibleName(notice);
    lblNotice_->setVisible(!notice.isEmpty());
    if (!notice.isEmpty())
        Announce(lblNotice_);
}

void StateLine::Announce(QWidget *label) const
{
    if (!isVisible())
        return;
    QAccessibleEvent event(label, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

bool StateLine::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lblNotice_ && event->type() == QEvent::MouseButtonRelease && !notices_.isEmpty()) {
        notices_.removeFirst();
        ShowNotice();
    }
    return QWidget::eventFilter(watched, event);
}

} // namespace kelvo
