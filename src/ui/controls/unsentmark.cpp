#include "ui/controls/unsentmark.h"

#include "ui/controls/messages.h"

#include <QPainter>
#include <QWidget>

namespace kelvo {

namespace {

/// An amber that is dark enough to be seen on a light ground and light enough on a dark one.
constexpr QColor Dot(196, 106, 0);

} // namespace

void UnsentMark::Show(bool unsent)
{
    if (shown_ == unsent)
        return;
    shown_ = unsent;
    control_->setAccessibleDescription(unsent ? messages::NotInUnit : "");
    control_->update();
}

void UnsentMark::Paint(QPainter &painter, QPoint topLeft)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Dot);
    painter.drawEllipse(QRectF(topLeft, QSizeF(Size, Size)));
    painter.restore();
}

} // namespace kelvo
