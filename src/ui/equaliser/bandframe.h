#pragma once

#include "ui/equaliser/channelframe.h"

namespace kelvo {

/// A graphic equaliser: one pair a band side by side, the frequencies under them, the curve behind.
/// `frmBandA` has 27 bands, `frmBandB` nine; its title is the name of the channel it shows.
class BandFrame : public ChannelFrame {
    Q_OBJECT

  public:
    struct Names {
        const char *frame;
        const char *field;
        const char *slider;
    };

    /// `channel` is the one that it shows first, of the kind that it shows.
    BandFrame(const Names &names, int channel, Editor &editor, EntryWindow &entries);

  private:
    void AddBand(LevelPair *pair, int hertz, bool staggered, class LevelBoard &board);
};

} // namespace kelvo
