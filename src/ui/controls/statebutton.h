#pragma once

#include <QPushButton>

namespace kelvo {

/// What a button's face tells. Every face but `Normal` comes with bold text.
enum class Face {
    Normal,
    Current,  ///< grey (128,128,128), white text: the current choice of a group
    On,       ///< yellow (255,255,0), black text: a function that is switched on
    Muted,    ///< red (255,0,0), white text
    Selected, ///< green (0,255,0), black text: the measured projector
};

/// A push button whose face and weight show a state. The state colour fills the face flat, whatever the
/// style and the theme; the size is that of the bold text, so that nothing moves when the state does.
class StateButton : public QPushButton {
    Q_OBJECT

  public:
    explicit StateButton(const QString &caption, QWidget *parent = nullptr);

    /// Caption, face and weight change together.
    void Show(const QString &caption, Face face);
    void SetFace(Face face);
    Face ShownFace() const { return face_; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    Face face_ = Face::Normal;
};

/// A function is on or off as its button shows.
class ToggleButton : public StateButton {
    Q_OBJECT

  public:
    ToggleButton(const char *on, const char *off) : StateButton(off), on_(on), off_(off) {}

    void SetOn(bool on) { Show(on ? on_ : off_, on ? Face::On : Face::Normal); }
    bool IsOn() const { return ShownFace() == Face::On; }
    /// Shows off. True when the unit is to be told so: the function was on here, or `heldOn` by the unit,
    /// which a new set of settings on the screen does not silence.
    bool SwitchOff(bool heldOn);

  private:
    const char *on_;
    const char *off_;
};

} // namespace kelvo
