#pragma once

#include "ui/picture/pictureboxes.h"

#include <QWidget>

namespace kelvo {

/// The room of the two picture boxes, of which one is shown: the graph in its own proportions, or the azimuth
/// picture as a square, each as large as fits.
class GraphArea : public QWidget {
    Q_OBJECT

  public:
    GraphArea();

    OptGraph &Graph() { return *OptGraph_; }
    OptAzi &Azimuth() { return *optAzi_; }
    void ShowAzimuth(bool show);
    /// False: the readings shown are the last of a stream that is not there.
    void ShowLive(bool live);

    QSize minimumSizeHint() const override;
    QSize sizeHint() const override { return minimumSizeHint(); }

  protected:
    void resizeEvent(QResizeEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    OptGraph *OptGraph_;
    OptAzi *optAzi_;
};

} // namespace kelvo
