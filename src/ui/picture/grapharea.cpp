#include "ui/picture/grapharea.h"

#include "ui/controls/named.h"

#include <QPainter>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int Frame = 1;
constexpr QSize SmallestGraph{305, 280};

} // namespace

GraphArea::GraphArea() : OptGraph_(Named(new OptGraph, "OptGraph")), optAzi_(Named(new OptAzi, "optAzi"))
{
    OptGraph_->setParent(this);
    optAzi_->setParent(this);
    optAzi_->hide();
    OptGraph_->setAccessibleName("Graph of the reader's gain or slit loss");
    optAzi_->setAccessibleName("Azimuth picture");
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

void GraphArea::ShowAzimuth(bool show)
{
    if (optAzi_->isHidden() != show)
        return;
    optAzi_->setVisible(show);
    OptGraph_->setVisible(!show);
    update(); // the frame of the one and of the other
}

void GraphArea::ShowLive(bool live)
{
    OptGraph_->ShowLive(live);
    optAzi_->ShowLive(live);
}

QSize GraphArea::minimumSizeHint() const
{
    return SmallestGraph + QSize(2 * Frame, 2 * Frame);
}

void GraphArea::resizeEvent(QResizeEvent *)
{
    const QSize room = size() - QSize(2 * Frame, 2 * Frame);
    const int graphHeight = std::min(room.height(), room.width() * GraphHeight / GraphWidth);
    OptGraph_->setGeometry(Frame, Frame, graphHeight * GraphWidth / GraphHeight, graphHeight);
    const int side = std::min(room.width(), room.height());
    optAzi_->setGeometry(Frame, Frame, side, side);
}

/// The boxes are white on whatever ground the theme gives: a thin frame sets them off.
void GraphArea::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::Mid));
    for (const QWidget *box : {static_cast<QWidget *>(OptGraph_), static_cast<QWidget *>(optAzi_)}) {
        if (box->isVisible())
            painter.drawRect(box->geometry().adjusted(-Frame, -Frame, 0, 0));
    }
}

} // namespace kelvo
