#pragma once

#include "ui/controls/panel.h"
#include "ui/controls/statebutton.h"
#include "ui/equaliser/bandframe.h"
#include "ui/equaliser/subbassframe.h"

#include <QStackedWidget>
#include <QWidget>

#include <array>

namespace kelvo {

/// The tab "&E.Q": one channel's bands, shelves or sub-bass equaliser at a time.
class EqualiserPanel : public QWidget, public Panel {
    Q_OBJECT

  public:
    /// What the main window places on the tab.
    struct Guests {
        QWidget *faderFrame;
        QPushButton *cmdMute;
        QPushButton *cmdUp;
    };

    EqualiserPanel(Editor &editor, UnitLink &link, EntryWindow &entries, const Guests &guests);

    void Show(const Changed &changed) override;
    void LeaveTab() override;
    void ShowTestSignals(const TestSignals &playing) override;
    void ShowUnsent(const FieldSet &unsent) override;

    void cmdEQChan_Click(int channel);
    void cmdPink_Click();

  private:
    static constexpr int NothingCopied = 7;

    QWidget *BuildChannelButtons();
    QWidget *BuildTone();
    QWidget *BuildCommands(const Guests &guests);
    void ChainTabs(const QWidget &faderFrame);

    void cmdCopy_Click();
    void cmdPaste_Click();
    void cmdClear_Click();

    /// The current channel in the controls, quietly.
    void LoadChannelData();
    void ShowChannelPanel();
    void ReflectChannelButtons();
    Edit PasteChannelData() const;
    void SetEQPinkNoise(bool on);
    ChannelFrame &Frame() { return *frames_[int(KindOf(currentChannel_))]; }

    Editor &editor_;
    UnitLink &link_;
    EntryWindow &entries_;

    std::array<StateButton *, ChannelCount> cmdEQChan_{};
    QStackedWidget *bandArea_;
    std::array<ChannelFrame *, 3> frames_{}; ///< index = `ChannelKind`
    LevelPair *bass_;
    LevelPair *treble_;
    ToggleButton *cmdPink_;

    int currentChannel_ = Left;
    int copiedChannel_ = NothingCopied;
};

} // namespace kelvo
