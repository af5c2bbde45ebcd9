#pragma once

#include "ui/picture/azimuthpicture.h"
#include "ui/picture/graphpicture.h"

#include <QTimer>
#include <QWidget>

namespace kelvo {

/// A picture box on white ground. However often its content changes, it is painted at most once a display
/// frame, where it has changed, and then with the newest content.
class PictureBox : public QWidget {
    Q_OBJECT

  public:
    PictureBox();

    /// What it shows is of a stream that runs, or is a last reading: that one looks so.
    void ShowLive(bool live);
    /// Paints what has changed since the last painting; the display frame's timer calls it.
    void PaintChanged();

  protected:
    /// Asks for a painting of this part within one display frame.
    void Changed(const QRect &part);
    bool Live() const { return live_; }

  private:
    QTimer frame_;
    QRect changed_;
    bool live_ = true;
};

/// The box `OptGraph`: maps the graph's units linearly onto its whole area. Lines, bars and dashes begin
/// and end on whole pixels of the screen, whatever its scale.
class OptGraph : public PictureBox {
    Q_OBJECT
    /// The name that the routines give the graph's font. Those fonts need not exist: texts are drawn in the
    /// console's own, narrowed for the small name.
    Q_PROPERTY(QString fontName READ FontName)

  public:
    QString FontName() const { return QLatin1String(fontName_); }
    void SetFontName(const char *name) { fontName_ = name; }
    void Draw(GraphPicture picture);
    void Clear() { Draw({}); }

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    QRect ToWindow(const QRect &units) const;

    const char *fontName_ = GraphFont;
    GraphPicture picture_;
};

/// The box `optAzi`: a square that shows the azimuth surface.
class OptAzi : public PictureBox {
    Q_OBJECT

  public:
    void Draw(const std::vector<AzimuthBox> &boxes);
    void Clear();

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    AzimuthSurface surface_;
};

} // namespace kelvo
