#pragma once

#include "edit/slots.h"
#include "unit/linkview.h"

#include <QWidget>

#include <optional>

class QLabel;
class QPushButton;

namespace kelvo {

/// What stands beside the tabs, always in sight: the lamp, Connect, what the unit lacks, the master fader and
/// the PC's time.
class MasterColumn : public QWidget {
    Q_OBJECT

  public:
    explicit MasterColumn(QWidget *masterFader);

    /// The lamp is on the screen before this returns.
    void ShowConnectStatus(LinkState state);
    /// `offer`, when there is one, stands there while the unit lacks nothing.
    void ShowSent(std::optional<int> differences, bool onLine, const QString &offer);
    /// Which slots the room equals.
    void ShowSlots(const Slots &kept, const RoomSettings &room);
    void ShowTime(const std::string &time);
    void EnableConnect(bool enable);

  signals:
    void ConnectClicked();
    void SentClicked(); ///< on the line that tells what the unit lacks

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    QLabel *lblStat_;
    QLabel *lblSent_;
    QLabel *lblSlot_;
    QLabel *lblClock_;
    QPushButton *cmdConnect_;
};

} // namespace kelvo
