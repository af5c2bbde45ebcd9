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

    /// Caption, face and weight of a toggle change together.
    void Show(const QString &caption, Face face);
    void SetFace(Face face);
    Face ShownFace() const { return face_; }
    /// A toggle is what its button shows.
    bool IsOn() const { return face_ == Face::On; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent *event) override;

  private:
    Face face_ = Face::Normal;
};

} // namespace kelvo
