#pragma once

#include "unit/testsignals.h"

#include <QMenuBar>

#include <array>
#include <optional>

class QLabel;

namespace kelvo {

/// The right end of the menu bar: what cannot be seen on the tab in front, in small filled labels that come
/// and go, and one line for a fault that needs no box. Whatever changes is announced to a screen reader. It
/// takes what room the menus leave, so that none of them moves.
class StateLine : public QWidget {
    Q_OBJECT

  public:
    /// What is told besides the kind of unit. The texts outlive the line; null = nothing to say.
    struct Facts {
        const char *port;
        const char *speed;
        bool muted;
        TestSignals playing;             ///< what the unit was last told to play
        const char *measuring = nullptr; ///< the format that a running measurement has forced

        bool operator==(const Facts &) const = default;
    };

    /// Stands in the right corner of this bar.
    explicit StateLine(QMenuBar *bar);

    /// What answers when it is no unit: "SIMULATED".
    void ShowUnitKind(const QString &kind, const QString &meaning);
    void Show(const Facts &facts);
    /// A fault in one line, told once: it stands until it is clicked, and never comes again in the same
    /// words. False when it was told before.
    bool Tell(const QString &fault);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    enum State { UnitKind, Line, Mute, Noise, Reverberation, Measuring };
    static constexpr int StateCount = 6;

    void ShowState(State state, const QString &text, const QString &meaning);
    void ShowNotice();
    void Announce(QWidget *label) const;

    QMenuBar *bar_;
    mutable bool askingBar_ = false;
    std::array<QLabel *, StateCount> lblState_{};
    QLabel *lblNotice_;
    std::optional<Facts> shown_;
    QStringList told_;    ///< every fault of this run
    QStringList notices_; ///< those that nobody has clicked yet
};

} // namespace kelvo
