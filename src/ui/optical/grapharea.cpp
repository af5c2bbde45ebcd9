#include "ui/optical/grapharea.h"

#include "ui/controls/named.h"

#include <algorithm>

namespace kelvo {

namespace {

constexpr int Gap = 6;
constexpr QSize SmallestGraph{300, 280};
constexpr int SmallestAzimuth = 120;

} // namespace

GraphArea::GraphArea() : OptGraph_(Named(new OptGraph, "OptGraph")), optAzi_(Named(new OptAzi, "optAzi"))
{
    OptGraph_->setParent(this);
    optAzi_->setParent(this);
    optAzi_->hide();
    OptGraph_->setAccessibleName(tr("Graph of the reader's gain or slit loss"));
    optAzi_->setAccessibleName(tr("Azimuth picture"));
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
    return SmallestGraph + QSize(Gap + SmallestAzimuth, 0);
}

void GraphArea::resizeEvent(QResizeEvent *)
{
    Arrange();
}

void GraphArea::Arrange()
{
    int graphHeight = std::min(height(), width() * GraphHeight / GraphWidth);
    if (!optAzi_->isHidden()) {
        // Both boxes are equally high where the width allows; the graph never gets too small to be read.
        const int shared = (width() - Gap) * GraphHeight / (GraphWidth + GraphHeight);
        graphHeight = std::min(height(), std::max(shared, SmallestGraph.height()));
    }
    const QSize graph(graphHeight * GraphWidth / GraphHeight, graphHeight);
    OptGraph_->setGeometry(QRect(QPoint(0, 0), graph));
    const int side = std::min(height(), width() - graph.width() - Gap);
    optAzi_->setGeometry(graph.width() + Gap, 0, side, side);
}

} // namespace kelvo
