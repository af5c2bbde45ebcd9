#pragma once

#include "model/levels.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/unsentmark.h"
#include "ui/controls/wheelsteps.h"

#include <QSlider>
#include <QTimer>

#include <functional>

namespace kelvo {

/// A vertical slider of level positions, 0 at the top. It knows when it is in the user's hand: from a key's
/// press to its real release, from a mouse press to its release, for one change of the wheel. A release that
/// does not come, with no repeat and no other key for a second, counts as come.
class LevelSlider : public QSlider {
    Q_OBJECT

  public:
    LevelSlider(const LevelRule &rule, EntryWindow &entries);
    ~LevelSlider() override;

    /// Shows a position without a signal of the four below; beyond the range it shows the nearest end.
    void ShowPosition(int position);
    /// What a key or the wheel does with its number of positions; without it the slider itself moves.
    void SetStep(std::function<void(int positions)> step) { step_ = std::move(step); }
    /// Home and End do nothing: at its ends the hall is silent or far too loud.
    void RefuseLeaps() { leaps_ = false; }
    /// Where Left and Right lead. Without neighbours Left acts as Down and Right as Up.
    void SetNeighbours(LevelSlider *left, LevelSlider *right);
    /// Ends the user's hold, whatever began it.
    void LetGo();
    /// The unit does not hold what it shows.
    void MarkUnsent(bool unsent) { unsent_.Show(unsent); }
    /// The middle of the thumb at a position, down from the slider's top.
    int CentreOf(int position) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void Taken();   ///< the user's hand is on it
    void Moved();   ///< in the hand, it moved
    void Dropped(); ///< the hand is off
    void Placed();  ///< it moved with no hand on it, by a typed value or by code

  protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

  private:
    enum class Hand { None, Key, Mouse, Wheel };

    bool TakeBy(Hand hand);
    void AwaitRelease();
    void Step(int positions);
    void TurnBy(int notches);
    int PositionsOf(const QKeyEvent &key) const;
    LevelSlider *NeighbourFor(int key) const;
    QRect ThumbAt(int position) const;
    QPoint MarkBeside(const QRect &thumb) const;

    const LevelRule rule_;
    EntryWindow &entries_;
    std::function<void(int positions)> step_;
    LevelSlider *left_ = nullptr;
    LevelSlider *right_ = nullptr;
    Hand hand_ = Hand::None;
    QTimer *tmrHold_ = nullptr; ///< made for the first key that is held
    UnsentMark unsent_{this};
    WheelSteps wheel_{this, [this](int notches) { TurnBy(notches); }};
    int wheelAngle_ = 0;
    bool quiet_ = false;
    bool leaps_ = true;
};

} // namespace kelvo
