#pragma once

#include <QObject>

#include <functional>

namespace kelvo {

/// Takes one file at a time that is dropped on a window, wherever on it: none of its controls takes drops of
/// its own.
class DropTarget : public QObject {
    Q_OBJECT

  public:
    DropTarget(std::function<bool()> mayOpen, QWidget *window);

  signals:
    void Dropped(const QString &path);

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void Take(const QString &path);

    std::function<bool()> mayOpen_;
    QWidget *window_;
};

} // namespace kelvo
