#pragma once

#include "ui/controls/entrywindow.h"
#include "ui/controls/panel.h"
#include "ui/levels/masterfader.h"
#include "unit/unitlink.h"

#include <QTabWidget>

#include <array>

class QLabel;

namespace kelvo {

/// The tabs of `SSTAB1`, in their order.
enum class Tab { FormatSelection, OutputTrim, Eq, Obe, OpticalSetup, Options, TheaterInformation, Help };
inline constexpr int TabCount = 8;

/// The tabs `SSTAB1` and their pages `frmtabs(0)` to `frmtabs(7)`. A page can be operated while it is shown
/// and a unit is connected; leaving one switches off what it left running.
class TabPages : public QTabWidget {
    Q_OBJECT

  public:
    struct Content {
        QWidget *widget;
        Panel *switchedOff; ///< when the tab is left; null = nothing
    };

    TabPages(UnitLink &link, EntryWindow &entries, MasterFader &fader,
             const std::array<Content, TabCount> &contents);

    Tab Shown() const { return Tab(shown_); }
    QWidget *Page(Tab tab) const { return frmtabs_[int(tab)]; }
    void EnableShown(bool enable) { frmtabs_[shown_]->setEnabled(enable); }
    void ClearTabStatus();
    /// "Off line. Press Connect or F1." on every page.
    void ShowHints(bool show);

  signals:
    void Entered(Tab tab); ///< before the tab that was left is switched off
    void Left();           ///< what it left running is off now

  private:
    void AddPage(int tab, QWidget *content);
    void SSTAB1_Click(int tab);
    bool MayLeave();

    UnitLink &link_;
    EntryWindow &entries_;
    MasterFader &fader_;
    std::array<QWidget *, TabCount> frmtabs_{};
    std::array<QLabel *, TabCount> lblHint_{};
    std::array<Panel *, TabCount> switchedOff_{};
    int shown_ = 0;
};

} // namespace kelvo
