#pragma once

#include "ui/controls/levelslider.h"

#include <QGridLayout>
#include <QWidget>

#include <vector>

namespace kelvo {

/// A line of a board's scale.
struct LevelMark {
    int position;
    const char *text;
    bool isZero = false; ///< drawn as a double line
};

/// Sliders of one rule side by side over their common scale: marks at the left, lines across, and on
/// request a thin curve through the thumbs. It draws behind the sliders and never moves for a value.
class LevelBoard : public QWidget {
    Q_OBJECT

  public:
    explicit LevelBoard(std::vector<LevelMark> marks);

    /// The grid row of the sliders, the one that grows. The owner may fill the rows above and below.
    static constexpr int SliderRow = 1;

    /// Sliders come from left to right, from grid column 1 on; column 0 shows the marks.
    void Add(LevelSlider *slider, int column, int columns = 1);
    QGridLayout *Grid() const { return grid_; }
    void ShowCurve();

  protected:
    void paintEvent(QPaintEvent *event) override;
    void changeEvent(QEvent *event) override;

  private:
    void FitMarks();
    QPoint ThumbOf(const LevelSlider &slider) const;
    void DrawScale(QPainter &painter) const;
    void DrawCurve(QPainter &painter) const;

    std::vector<LevelMark> marks_;
    std::vector<LevelSlider *> sliders_;
    QGridLayout *grid_;
    bool curve_ = false;
};

/// The marks that go with the rules of model/levels.h.
std::vector<LevelMark> HalfDecibelMarks();
std::vector<LevelMark> ShelfMarks();
std::vector<LevelMark> FaderMarks();

} // namespace kelvo
