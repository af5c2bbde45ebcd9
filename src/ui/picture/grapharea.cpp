#include "ui/picture/grapharea.h"

#include "ui/controls/named.h"

#include <QPainter>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int Gap = 8;
constexpr int Frame = 1;
constexpr QSize SmallestGraph{305, 280};
constexpr int SmallestAzimuth = 130;

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
    Arrange();
}

QSize GraphArea::minimumSizeHint() const
{
    return SmallestGraph + QSize(Gap + SmallestAzimuth, 0) + QSize(2 * Frame, 2 * Frame);
}

void GraphArea::resizeEvent(QResizeEvent *)
{
    Arrange();
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

void GraphArea::Arrange()
{
    const QSize room = size() - QSize(2 * Frame, 2 * Frame);
    int graphHeight = std::min(room.height(), room.width() * GraphHeight / GraphWidth);
    if (!optAzi_->isHidden()) {
        // Both boxes are equally high where the width allows; the graph never gets too small to be read.
        const int shared = (room.width() - Gap) * GraphHeight / (GraphWidth + GraphHeight);
        graphHeight = std::min(room.height(), std::max(shared, SmallestGraph.height()));
    }
    const QSize graph(graphHeight * GraphWidth / GraphHeight, graphHeight);
    OptGraph_->setGeometry(QRect(QPoint(Frame, Frame), graph));
    const int side = std::min(room.height(), room.width() - graph.width() - Gap);
    optAzi_->setGeometry(Frame + graph.width() + Gap, Frame, side, side);
    update();
}

} // namespace kelvo
