#include "ui/main/tabpages.h"

#include "ui/controls/named.h"
#include "ui/main/messages.h"

#include <QEvent>
#include <QLabel>
#include <QProxyStyle>
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

#include <utility>

namespace kelvo {

namespace {

constexpr std::array<const char *, TabCount> TabCaption{
    "Format &Selection", "&Output Trim",         "&E.Q", "O&BE", "O&ptical Setup",
    "Op&tions",          "Theater &Information", "&Help"};

/// Eight headings beside the master column on the smallest screen: the style's room around each is halved.
class NarrowTabs : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
    {
        const int usual = QProxyStyle::pixelMetric(metric, option, widget);
        return metric == PM_TabBarTabHSpace ? usual / 2 : usual;
    }
};

/// A page of the tabs. Until it is shown for the first time it asks for no room, so that the start does
/// not measure seven tabs that nobody sees yet; every page fits the smallest window.
class TabPage : public QWidget {
  public:
    QSize sizeHint() const override { return shown_ ? QWidget::sizeHint() : QSize(0, 0); }
    QSize minimumSizeHint() const override { return shown_ ? QWidget::minimumSizeHint() : QSize(0, 0); }

  protected:
    bool event(QEvent *event) override
    {
        if (event->type() == QEvent::Show && !shown_) {
            shown_ = true;
            updateGeometry();
        }
        return QWidget::event(event);
    }

  private:
    bool shown_ = false;
};

/// Says what to do, so it stays readable on a panel that is disabled.
QLabel *Hint(int tab)
{
    auto *lblHint = Named(new QLabel(messages::OffLineHint), "lblHint", tab);
    QPalette palette = lblHint->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, palette.color(QPalette::WindowText));
    lblHint->setPalette(palette);
    return lblHint;
}

/// The tabs on which levels are set, at fader 7.0.
bool SetsLevels(Tab tab)
{
    return tab == Tab::OutputTrim || tab == Tab::Eq || tab == Tab::Obe;
}

} // namespace

TabPages::TabPages(UnitLink &link, EntryWindow &entries, MasterFader &fader,
                   const std::array<Content, TabCount> &contents)
    : link_(link),
      entries_(entries),
      fader_(fader)
{
    Named(this, "SSTAB1");
    auto *narrowTabs = new NarrowTabs;
    narrowTabs->setParent(this);
    tabBar()->setStyle(narrowTabs);
    for (int tab = 0; tab < TabCount; ++tab) {
        AddPage(tab, contents[tab].widget);
        switchedOff_[tab] = contents[tab].switchedOff;
    }
    connect(this, &QTabWidget::currentChanged, this, &TabPages::SSTAB1_Click);
}

void TabPages::AddPage(int tab, QWidget *content)
{
    if (QLayout *own = content->layout())
        own->setContentsMargins(0, 0, 0, 0); // the page has the margin
    frmtabs_[tab] = Named(new TabPage, "frmtabs", tab);
    lblHint_[tab] = Hint(tab);
    auto *layout = new QVBoxLayout(frmtabs_[tab]);
    layout->setContentsMargins(6, 3, 6, 6);
    layout->setSpacing(3);
    layout->addWidget(lblHint_[tab]);
    layout->addWidget(content, 1);
    addTab(frmtabs_[tab], TabCaption[tab]);
}

void TabPages::SSTAB1_Click(int tab)
{
    if (tab == shown_)
        return;
    if (!MayLeave()) {
        const QSignalBlocker quietly(this);
        setCurrentIndex(shown_);
        if (entries_.editing)
            entries_.editing->setFocus();
        return;
    }
    const int previous = std::exchange(shown_, tab);
    // The first focus of a tab is never one of its sliders.
    tabBar()->setFocus();
    if (SetsLevels(Tab(tab)) && fader_.FieldText() != "7.0" && Ask(window(), messages::FaderNominal))
        fader_.SetNominal();

    ClearTabStatus();
    EnableShown(link_.UnitOnline());
    if (Tab(tab) == Tab::Obe)
        link_.RetryFunction(UnitOp::EnableOBE);
    emit Entered(Tab(tab));
    if (switchedOff_[previous])
        switchedOff_[previous]->LeaveTab();
    emit Left();
}

/// Level fields stop the user's own ways to another tab at a bad value; this is for all others.
bool TabPages::MayLeave()
{
    return !link_.InCall() && entries_.CommitEntry();
}

void TabPages::ClearTabStatus()
{
    for (QWidget *page : frmtabs_)
        page->setEnabled(false);
}

void TabPages::ShowHints(bool show)
{
    for (QLabel *lblHint : lblHint_)
        lblHint->setVisible(show);
}

} // namespace kelvo
