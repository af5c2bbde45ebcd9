#pragma once

#include "ui/controls/levelpair.h"

#include <QGroupBox>

#include <span>
#include <vector>

namespace kelvo {

/// What one kind of channel is equalised with.
class ChannelFrame : public QGroupBox {
    Q_OBJECT

  public:
    /// Shows this channel from now on; its title and what a screen reader says are the channel's.
    virtual void Bind(int channel);
    virtual void Show(const Changed &changed);
    void ShowUnsent(const FieldSet &unsent);
    /// A slice's first bytes are theirs, in this order.
    std::span<LevelPair *const> Pairs() const { return pairs_; }

  protected:
    std::vector<LevelPair *> pairs_;
};

/// What a screen reader says of a channel's level: "Left Channel, 1 kHz, dB".
QString SpokenName(FieldId field);

} // namespace kelvo
