#include "ui/controls/levelslider.h"

#include "ui/controls/focus.h"
#include "ui/controls/named.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionSlider>

#include <algorithm>
#include <array>
#include <chrono>

namespace kelvo {

namespace {

constexpr std::chrono::milliseconds LongestSilence{1000}; ///< of a key that is held
constexpr int WheelNotch = 120;                           ///< eighths of a degree
constexpr int GrooveWidth = 4;
constexpr int SliderWidth = 16;
constexpr int ShortestSlider = 70;

struct KeyStep {
    int key;
    bool keypadOnly;
    int positions; ///< negative is upwards
    int pages;
};

/// The far end, from wherever the slider stands.
constexpr int WholeRange = 1000;

constexpr std::array<KeyStep, 10> KeySteps{{{Qt::Key_Up, false, -1, 0},
                                            {Qt::Key_Down, false, 1, 0},
                                            {Qt::Key_Right, false, -1, 0},
                                            {Qt::Key_Left, false, 1, 0},
                                            {Qt::Key_Plus, true, -1, 0},
                                            {Qt::Key_Minus, true, 1, 0},
                                            {Qt::Key_PageUp, false, 0, -1},
                                            {Qt::Key_PageDown, false, 0, 1},
                                            {Qt::Key_Home, false, -WholeRange, 0},
                                            {Qt::Key_End, false, WholeRange, 0}}};

bool IsModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_AltGr ||
           key == Qt::Key_Meta;
}

} // namespace

LevelSlider::LevelSlider(const LevelRule &rule, EntryWindow &entries)
    : QSlider(Qt::Vertical),
      rule_(rule),
      entries_(entries)
{
    setRange(0, rule.lastPosition);
    setInvertedAppearance(true);
    setPageStep((rule.lastPosition + 1) / 10);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    connect(this, &QSlider::valueChanged, this, [this] {
        if (!quiet_)
            emit(hand_ == Hand::None ? Placed() : Moved());
    });
    // A handle that is taken without the mouse, by a tool for the disabled say, is a drag as well.
    connect(this, &QSlider::sliderPressed, this, [this] { TakeBy(Hand::Mouse); });
    connect(this, &QSlider::sliderReleased, this, [this] {
        if (hand_ == Hand::Mouse)
            LetGo();
    });
}

LevelSlider::~LevelSlider()
{
    if (entries_.sliderHeld == this)
        entries_.sliderHeld = nullptr;
}

void LevelSlider::ShowPosition(int position)
{
    const int before = value();
    const QScopedValueRollback quiet(quiet_, true);
    setValue(position);
    // Moved under the user's eyes but not by the user: a move away from there is a change of its own.
    if (value() != before && hand_ == Hand::None && window()->focusWidget() == this)
        entries_.FocusPosition = value();
}

void LevelSlider::SetNeighbours(LevelSlider *left, LevelSlider *right)
{
    left_ = left;
    right_ = right;
}

/// False when what the hand before it had to send lost the link, and the slider with it.
bool LevelSlider::TakeBy(Hand hand)
{
    if (hand_ == hand)
        return true;
    if (entries_.sliderHeld)
        entries_.sliderHeld->LetGo();
    if (!isEnabled())
        return false;
    hand_ = hand;
    entries_.sliderHeld = this;
    entries_.SendArmed = hand != Hand::Key;
    emit Taken();
    return true;
}

void LevelSlider::AwaitRelease()
{
    if (!tmrHold_) {
        tmrHold_ = Named(new QTimer(this), "tmrHold");
        tmrHold_->setSingleShot(true);
        tmrHold_->setInterval(LongestSilence);
        connect(tmrHold_, &QTimer::timeout, this, &LevelSlider::LetGo);
    }
    tmrHold_->start();
}

void LevelSlider::LetGo()
{
    if (hand_ == Hand::None)
        return;
    if (tmrHold_)
        tmrHold_->stop();
    hand_ = Hand::None;
    entries_.sliderHeld = nullptr;
    entries_.SendArmed = true;
    setSliderDown(false);
    emit Dropped();
}

void LevelSlider::Step(int positions)
{
    if (step_)
        step_(positions);
    else
        setValue(value() + positions);
}

/// How far a key moves the slider; 0 when it does not.
int LevelSlider::PositionsOf(const QKeyEvent &key) const
{
    for (const KeyStep &step : KeySteps)
        if (step.key == key.key() && (!step.keypadOnly || key.modifiers().testFlag(Qt::KeypadModifier)))
            return step.positions + step.pages * pageStep();
    return 0;
}

LevelSlider *LevelSlider::NeighbourFor(int key) const
{
    if (key == Qt::Key_Left)
        return left_;
    return key == Qt::Key_Right ? right_ : nullptr;
}

/// The toolkit's own key steps never run: a press and each auto-repeat are one step of the table.
void LevelSlider::keyPressEvent(QKeyEvent *event)
{
    if (IsModifier(event->key()) || hand_ == Hand::Mouse) {
        event->ignore();
        return;
    }
    if (!leaps_ && (event->key() == Qt::Key_Home || event->key() == Qt::Key_End))
        return;
    if (!TakeBy(Hand::Key))
        return;
    AwaitRelease();
    if (LevelSlider *neighbour = NeighbourFor(event->key()))
        neighbour->setFocus(Qt::OtherFocusReason);
    else if (const int positions = PositionsOf(*event))
        Step(positions);
    else
        event->ignore();
}

void LevelSlider::keyReleaseEvent(QKeyEvent *event)
{
    if (hand_ == Hand::Key && !event->isAutoRepeat() && !IsModifier(event->key()))
        LetGo();
    else
        event->ignore();
}

void LevelSlider::mousePressEvent(QMouseEvent *event)
{
    if (event->buttons() == event->button() && !TakeBy(Hand::Mouse))
        return;
    QSlider::mousePressEvent(event);
    // The toolkit goes on paging while the button is down; a button held in the groove is one step.
    setRepeatAction(SliderNoAction);
}

void LevelSlider::mouseMoveEvent(QMouseEvent *event)
{
    if (hand_ == Hand::Mouse)
        QSlider::mouseMoveEvent(event);
    else
        event->ignore();
}

void LevelSlider::mouseReleaseEvent(QMouseEvent *event)
{
    QSlider::mouseReleaseEvent(event);
    if (hand_ == Hand::Mouse && event->buttons() == Qt::NoButton)
        LetGo();
}

void LevelSlider::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || hand_ != Hand::None) {
        event->ignore();
        return;
    }
    event->accept();
    wheelAngle_ += event->inverted() ? -event->angleDelta().y() : event->angleDelta().y();
    const int notches = wheelAngle_ / WheelNotch;
    wheelAngle_ -= notches * WheelNotch;
    if (notches != 0)
        wheel_.Take(notches, *event);
}

void LevelSlider::TurnBy(int notches)
{
    if (hand_ != Hand::None)
        return;
    if (!TakeBy(Hand::Wheel))
        return;
    Step(-notches);
    LetGo();
}

void LevelSlider::focusInEvent(QFocusEvent *event)
{
    wheelAngle_ = 0;
    if (MovesInsideWindow(event->reason()))
        entries_.FocusPosition = value();
    QSlider::focusInEvent(event);
}

void LevelSlider::focusOutEvent(QFocusEvent *event)
{
    wheel_.Drop();
    LetGo();
    QSlider::focusOutEvent(event);
}

void LevelSlider::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        LetGo();
    QSlider::changeEvent(event);
}

void LevelSlider::hideEvent(QHideEvent *event)
{
    LetGo();
    QSlider::hideEvent(event);
}

QSize LevelSlider::sizeHint() const
{
    return {SliderWidth, 2 * ShortestSlider};
}

QSize LevelSlider::minimumSizeHint() const
{
    return {SliderWidth, ShortestSlider};
}

QRect LevelSlider::ThumbAt(int position) const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    option.sliderPosition = position;
    return style()->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, this);
}

int LevelSlider::CentreOf(int position) const
{
    return ThumbAt(position).center().y();
}

/// At the right of the groove's upper end, or of its lower one while the thumb stands there. A slider may be
/// much wider than its thumb, and the mark of one is not to be taken for its neighbour's.
QPoint LevelSlider::MarkBeside(const QRect &thumb) const
{
    const QPoint upper(std::min(thumb.right() + 1, width() - UnsentMark::Size), 0);
    const bool free = thumb.top() >= UnsentMark::Size;
    return free ? upper : QPoint(upper.x(), height() - UnsentMark::Size);
}

/// The groove is filled between the thumb and value 0, which the toolkit's own slider cannot show.
void LevelSlider::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QRect thumb = ThumbAt(value());
    const int left = thumb.center().x() - GrooveWidth / 2;
    const auto stretch = [this, left](int from, int to) {
        const auto [top, bottom] = std::minmax({CentreOf(from), CentreOf(to)});
        return QRectF(left + 0.5, top, GrooveWidth, bottom - top);
    };
    painter.setPen(palette().color(QPalette::Dark));
    painter.setBrush(palette().color(QPalette::Base));
    painter.drawRoundedRect(stretch(0, maximum()), GrooveWidth / 2.0, GrooveWidth / 2.0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(QPalette::Highlight));
    painter.drawRect(stretch(rule_.zeroAt, value()).adjusted(0.5, 0, -0.5, 0));

    painter.setPen(
        QPen(palette().color(hasFocus() ? QPalette::Highlight : QPalette::Shadow), hasFocus() ? 2.0 : 1.0));
    painter.setBrush(palette().color(isSliderDown() ? QPalette::Midlight : QPalette::Button));
    painter.drawRoundedRect(QRectF(thumb).adjusted(1, 1, -1, -1), 2.5, 2.5);
    painter.setPen(palette().color(QPalette::ButtonText));
    painter.drawLine(QPointF(thumb.left() + 4, thumb.center().y() + 0.5),
                     QPointF(thumb.right() - 3, thumb.center().y() + 0.5));
    if (unsent_.Shown())
        UnsentMark::Paint(painter, MarkBeside(thumb));
}

} // namespace kelvo
