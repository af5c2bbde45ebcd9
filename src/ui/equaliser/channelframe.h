#pragma once

#include "model/records.h"
#include "ui/controls/levelpair.h"

#include <QGroupBox>

#include <span>
#include <vector>

namespace kelvo {

/// What one kind of channel is equalised with.
class ChannelFrame : public QGroupBox {
    Q_OBJECT

  public:
    /// Its title and what a screen reader says are the channel's.
    virtual void ShowChannel(const QString &channel) = 0;
    /// The slice into its controls, quietly.
    virtual void Show(const ChannelSlice &slice);
    /// A slice's first bytes are theirs, in this order.
    std::span<LevelPair *const> Pairs() const { return pairs_; }

  protected:
    std::vector<LevelPair *> pairs_;
};

} // namespace kelvo
