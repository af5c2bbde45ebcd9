#include "ui/controls/statebutton.h"

#include "ui/controls/appearance.h"

#include <QFontMetrics>
#include <QPainter>
#include <QStyleOptionButton>
#include <QStylePainter>

#include <array>

namespace kelvo {

namespace {

/// In the order of `Face`; the style paints the first.
constexpr std::array<Colours, 5> FaceColours{{{},
                                              {QColor(128, 128, 128), QColorConstants::White},
                                              {QColorConstants::Yellow, QColorConstants::Black},
                                              Red,
                                              Green}};

} // namespace

StateButton::StateButton(const QString &caption, QWidget *parent) : QPushButton(caption, parent)
{
}

void StateButton::Show(const QString &caption, Face face)
{
    setText(caption);
    SetFace(face);
}

void StateButton::SetFace(Face face)
{
    face_ = face;
    setFont(Bold(font(), face != Face::Normal));
    update();
}

QSize StateButton::sizeHint() const
{
    const QFontMetrics bold(Bold(font()));
    const QSize plain = QPushButton::sizeHint();
    const int growth = bold.size(Qt::TextShowMnemonic, text()).width() -
                       fontMetrics().size(Qt::TextShowMnemonic, text()).width();
    return plain + QSize(growth, 0);
}

QSize StateButton::minimumSizeHint() const
{
    return sizeHint();
}

void StateButton::paintEvent(QPaintEvent *event)
{
    if (face_ == Face::Normal) {
        QPushButton::paintEvent(event);
        return;
    }
    auto [fill, ink] = FaceColours[int(face_)];
    if (!isEnabled())
        ink.setAlpha(110);
    QStyleOptionButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    painter.setPen(fill.darker(160));
    painter.setBrush(isDown() ? fill.darker(115) : fill);
    painter.drawRect(rect().adjusted(0, 0, -1, -1));
    painter.setPen(ink);
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextShowMnemonic, text());
    if (hasFocus()) {
        painter.setPen(QPen(ink, 1, Qt::DotLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(rect().adjusted(3, 3, -4, -4));
    }
}

bool ToggleButton::SwitchOff(bool heldOn)
{
    const bool wasOn = IsOn();
    SetOn(false);
    return wasOn || heldOn;
}

} // namespace kelvo
