#pragma once

#include <QDialog>

class QSettings;

namespace kelvo {

/// A window of its own beside the main one: it may stay open, closes with Escape and remembers its size and
/// place under its object's name.
class ToolWindow : public QDialog {
    Q_OBJECT

  public:
    /// `usual` is its size until it remembers another one. Hidden when it closes, never destroyed.
    ToolWindow(const char *name, const QString &title, QSize usual, QSettings &memory, QWidget *parent);

    /// On the screen, in front, with the focus.
    void BringUp();

  protected:
    void hideEvent(QHideEvent *event) override;

  private:
    QSettings &memory_;
};

} // namespace kelvo
