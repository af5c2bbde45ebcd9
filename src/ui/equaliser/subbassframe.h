#pragma once

#include "ui/equaliser/channelframe.h"

#include <QButtonGroup>

#include <functional>

namespace kelvo {

/// The frame `frmBass`: the subwoofer's one-band parametric equaliser.
class SubBassFrame : public ChannelFrame {
    Q_OBJECT

  public:
    /// `choose` takes the user's click on an option: which byte of the slice it stands for, and its index.
    SubBassFrame(EntryWindow &entries, LevelPair::Actions gain,
                 std::function<void(SubwooferByte byte, int index)> choose);

    void ShowChannel(const QString &channel) override;
    /// A width or frequency beyond the buttons shows no choice.
    void Show(const ChannelSlice &slice) override;

  private:
    QGroupBox *BuildOptions(const char *name, const QString &title, std::span<const char *const> captions,
                            SubwooferByte byte, QButtonGroup *&group);

    std::function<void(SubwooferByte byte, int index)> choose_;
    QButtonGroup *optBand_ = nullptr;
    QButtonGroup *optSPB_ = nullptr;
};

} // namespace kelvo
