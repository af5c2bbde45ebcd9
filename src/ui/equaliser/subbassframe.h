#pragma once

#include "ui/controls/choices.h"
#include "ui/equaliser/channelframe.h"

namespace kelvo {

/// The frame `frmBass`: the subwoofer's one-band parametric equaliser.
class SubBassFrame : public ChannelFrame {
    Q_OBJECT

  public:
    SubBassFrame(Editor &editor, EntryWindow &entries);

    /// A width or frequency beyond the buttons shows no choice.
    void Show(const Changed &changed) override;

  private:
    QGroupBox *BuildOptions(const char *name, const QString &title, FieldId field, Editor &editor);

    std::vector<FieldChoice> choices_;
};

} // namespace kelvo
