#pragma once

#include "model/records.h"
#include "ui/controls/levelpair.h"

#include <QButtonGroup>
#include <QGroupBox>

#include <functional>

namespace kelvo {

/// The frame `frmBass`: the subwoofer's one-band parametric equaliser.
class SubBassFrame : public QGroupBox {
    Q_OBJECT

  public:
    /// `choose` takes the user's click on an option: which byte of the slice it stands for, and its index.
    SubBassFrame(EntryWindow &entries, LevelPair::Actions gain,
                 std::function<void(SubwooferByte byte, int index)> choose);

    LevelPair *Gain() const { return gain_; }
    void ShowChannel(const QString &channel);
    /// A width or frequency beyond the buttons shows no choice.
    void Show(const ChannelSlice &slice);

  private:
    QGroupBox *BuildOptions(const char *name, const QString &title, std::span<const char *const> captions,
                            SubwooferByte byte, QButtonGroup *&group);

    std::function<void(SubwooferByte byte, int index)> choose_;
    LevelPair *gain_;
    QButtonGroup *optBand_ = nullptr;
    QButtonGroup *optSPB_ = nullptr;
};

} // namespace kelvo
