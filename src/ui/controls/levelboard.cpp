#include "ui/controls/levelboard.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int MarkGap = 4;     ///< between a mark's text and the first slider
constexpr int CurveReach = 60; ///< how far to both sides a moved thumb bends the curve, at least

QColor Faded(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

} // namespace

LevelBoard::LevelBoard(std::vector<LevelMark> marks) : marks_(std::move(marks)), grid_(new QGridLayout(this))
{
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setHorizontalSpacing(0);
    grid_->setVerticalSpacing(3);
    grid_->setRowStretch(SliderRow, 1);
    FitMarks();
}

void LevelBoard::FitMarks()
{
    int width = 0;
    for (const LevelMark &mark : marks_)
        width = std::max(width, fontMetrics().horizontalAdvance(QLatin1String(mark.text)));
    grid_->setColumnMinimumWidth(0, width + MarkGap);
}

void LevelBoard::Add(LevelSlider *slider, int column, int columns)
{
    grid_->addWidget(slider, SliderRow, column, 1, columns);
    for (int i = column; i < column + columns; ++i)
        grid_->setColumnStretch(i, 1);
    sliders_.push_back(slider);
    connect(slider, &QSlider::valueChanged, this, [this, slider] {
        if (curve_) {
            const int reach = std::max(CurveReach, 3 * slider->width());
            update(slider->geometry().adjusted(-reach, 0, reach, 0));
        }
    });
}

void LevelBoard::ShowCurve()
{
    curve_ = true;
    update();
}

void LevelBoard::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        FitMarks();
    QWidget::changeEvent(event);
}

QPoint LevelBoard::ThumbOf(const LevelSlider &slider) const
{
    return {slider.x() + slider.width() / 2, slider.y() + slider.CentreOf(slider.value())};
}

void LevelBoard::paintEvent(QPaintEvent *)
{
    if (sliders_.empty())
        return;
    QPainter painter(this);
    DrawScale(painter);
    if (curve_) {
        painter.setRenderHint(QPainter::Antialiasing);
        DrawCurve(painter);
    }
}

void LevelBoard::DrawScale(QPainter &painter) const
{
    const LevelSlider &first = *sliders_.front();
    const int left = grid_->cellRect(SliderRow, 0).right() + 1;
    const int right = sliders_.back()->geometry().right();
    const int textHeight = fontMetrics().height();
    const QColor ink = palette().color(QPalette::WindowText);
    for (const LevelMark &mark : marks_) {
        const int y = first.y() + first.CentreOf(mark.position);
        painter.setPen(ink);
        painter.drawText(QRect(0, y - textHeight / 2, left - MarkGap, textHeight),
                         Qt::AlignRight | Qt::AlignVCenter, QLatin1String(mark.text));
        painter.setPen(Faded(ink, mark.isZero ? 130 : 50));
        if (mark.isZero) {
            painter.drawLine(left, y - 1, right, y - 1);
            painter.drawLine(left, y + 1, right, y + 1);
        } else {
            painter.drawLine(left, y, right, y);
        }
    }
}

/// A picture of the positions, not a computed response: smooth, through each thumb, and never beyond a peak.
void LevelBoard::DrawCurve(QPainter &painter) const
{
    std::vector<QPointF> thumbs;
    for (const LevelSlider *slider : sliders_)
        thumbs.emplace_back(ThumbOf(*slider));
    const auto slopeAfter = [&thumbs](std::size_t i) {
        return (thumbs[i + 1].y() - thumbs[i].y()) / (thumbs[i + 1].x() - thumbs[i].x());
    };
    std::vector<double> slopes(thumbs.size(), 0.0);
    for (std::size_t i = 1; i + 1 < thumbs.size(); ++i) {
        const double before = slopeAfter(i - 1);
        const double after = slopeAfter(i);
        if (before * after > 0)
            slopes[i] = 2 * before * after / (before + after);
    }
    QPainterPath curve(thumbs.front());
    for (std::size_t i = 1; i < thumbs.size(); ++i) {
        const double third = (thumbs[i].x() - thumbs[i - 1].x()) / 3;
        curve.cubicTo(thumbs[i - 1] + QPointF(third, third * slopes[i - 1]),
                      thumbs[i] - QPointF(third, third * slopes[i]), thumbs[i]);
    }
    painter.setPen(QPen(palette().color(QPalette::Highlight), 1.5));
    painter.drawPath(curve);
}

std::vector<LevelMark> HalfDecibelMarks()
{
    return {{0, "+6"}, {6, "+3"}, {12, "0", true}, {18, "-3"}, {24, "-6"}};
}

std::vector<LevelMark> ShelfMarks()
{
    return {{0, "+10"}, {5, "+5"}, {10, "0", true}, {15, "-5"}, {20, "-10"}};
}

std::vector<LevelMark> FaderMarks()
{
    return {{0, "9.9"}, {29, "7.0", true}, {99, "0.0"}};
}

} // namespace kelvo
