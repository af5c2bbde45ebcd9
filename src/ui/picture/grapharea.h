#pragma once

#include "ui/picture/pictureboxes.h"

#include <QWidget>

namespace kelvo {

/// The two picture boxes side by side: the graph in its own proportions as large as fits, the azimuth
/// picture square beside it while it is shown.
class GraphArea : public QWidget {
    Q_OBJECT

  public:
    GraphArea();

    OptGraph &Graph() { return *OptGraph_; }
    OptAzi &Azimuth() { return *optAzi_; }
    void ShowAzimuth(bool show);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    void Arrange();

    OptGraph *OptGraph_;
    OptAzi *optAzi_;
};

} // namespace kelvo
