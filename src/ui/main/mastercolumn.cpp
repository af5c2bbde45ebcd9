#include "ui/main/mastercolumn.h"

#include "ui/controls/appearance.h"
#include "ui/controls/named.h"
#include "ui/main/messages.h"
#include "unit/messages.h"

#include <QLabel>
#include <QMouseEvent>
#include <QPushButton>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int ColumnWidth = 104;

struct Lamp {
    Colours colours;
    const char *caption;
};

/// In the order of `LinkState`.
constexpr std::array<Lamp, 3> Lamps{
    {{Red, "Off Line"}, {Green, "On Line"}, {{QColor(255, 128, 0), QColorConstants::Black}, "Data?"}}};

} // namespace

MasterColumn::MasterColumn(QWidget *masterFader)
    : lblStat_(Named(new QLabel, "lblStat")),
      lblSent_(Named(new QLabel, "lblSent")),
      lblSlot_(Named(new QLabel, "lblSlot")),
      lblClock_(Named(new QLabel, "lblClock")),
      cmdConnect_(Named(new QPushButton(messages::ConnectCaption), "cmdConnect"))
{
    lblStat_->setAlignment(Qt::AlignCenter);
    lblStat_->setMargin(6);
    lblStat_->setFont(Bold(lblStat_->font()));
    connect(cmdConnect_, &QPushButton::clicked, this, &MasterColumn::ConnectClicked);
    lblSent_->setWordWrap(true);
    lblSent_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    lblSent_->setMinimumHeight(3 * lblSent_->fontMetrics().lineSpacing());
    lblSlot_->setAlignment(Qt::AlignCenter);
    lblSent_->setCursor(Qt::PointingHandCursor);
    lblSent_->setAccessibleDescription(messages::SentHint);
    lblSent_->installEventFilter(this);
    lblClock_->setAlignment(Qt::AlignCenter);

    setFixedWidth(ColumnWidth);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lblStat_);
    layout->addWidget(cmdConnect_);
    layout->addWidget(lblSent_);
    layout->addWidget(lblSlot_);
    layout->addWidget(masterFader, 1);
    layout->addWidget(lblClock_);
}

void MasterColumn::ShowConnectStatus(LinkState state)
{
    const Lamp &lamp = Lamps[int(state)];
    Fill(lblStat_, lamp.colours);
    lblStat_->setText(lamp.caption);
    // A failing call keeps the thread for seconds: the lamp must be on the screen before it goes on.
    lblStat_->repaint();
}

void MasterColumn::ShowSent(std::optional<int> differences, bool onLine, const QString &offer)
{
    const bool lacks = differences.value_or(0) != 0;
    lblSent_->setText(
        lacks || offer.isEmpty() ? QString::fromStdString(messages::SentText(differences, onLine)) : offer);
    if (lacks)
        Fill(lblSent_, Amber);
    else
        ClearFill(lblSent_);
}

void MasterColumn::ShowSlots(const Slots &kept, const RoomSettings &room)
{
    QStringList equal;
    for (int slot = 0; slot < SlotCount; ++slot)
        if (kept.Equals(slot, room))
            equal += QString(Slots::NameOf(slot));
    lblSlot_->setText(equal.isEmpty() ? QString() : QString(messages::SlotShown).arg(equal.join(", ")));
}

bool MasterColumn::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == lblSent_ && event->type() == QEvent::MouseButtonRelease) {
        const auto *mouse = static_cast<QMouseEvent *>(event);
        if (mouse->button() == Qt::LeftButton && lblSent_->rect().contains(mouse->position().toPoint()))
            emit SentClicked();
    }
    return QWidget::eventFilter(watched, event);
}

void MasterColumn::ShowTime(const std::string &time)
{
    lblClock_->setText(QString::fromStdString(time));
}

void MasterColumn::EnableConnect(bool enable)
{
    cmdConnect_->setEnabled(enable);
}

} // namespace kelvo
