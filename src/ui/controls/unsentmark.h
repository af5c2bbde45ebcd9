#pragma once

class QPainter;
class QPoint;
class QWidget;

namespace kelvo {

/// The mark of a control whose setting is not in the unit: a dot that the control paints where nothing else
/// stands, and words for a screen reader.
class UnsentMark {
  public:
    static constexpr int Size = 5; ///< pixels, both ways

    explicit UnsentMark(QWidget *control) : control_(control) {}

    void Show(bool unsent);
    bool Shown() const { return shown_; }
    static void Paint(QPainter &painter, QPoint topLeft);

  private:
    QWidget *control_;
    bool shown_ = false;
};

} // namespace kelvo
