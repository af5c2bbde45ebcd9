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

    /// `frequencies` are the bands' full names, "1.25 kHz".
    BandFrame(const Names &names, std::span<const char *const> frequencies, EntryWindow &entries,
              const LevelPair::Actions &actions);

    void ShowChannel(const QString &channel) override;

  private:
    void AddBand(LevelPair *pair, const QString &frequency, class LevelBoard &board);

    std::span<const char *const> frequencies_;
};

extern const std::span<const char *const> ThirdOctaves; ///< of `frmBandA`
extern const std::span<const char *const> Octaves;      ///< of `frmBandB`

} // namespace kelvo
