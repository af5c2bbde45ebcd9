#include "ui/main/frmmain.h"

#include "ui/controls/appearance.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/controls/uploadbutton.h"
#include "ui/main/messages.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QProxyStyle>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int WindowMargin = 9;
constexpr int ColumnWidth = 104;
constexpr QSize UsualSize(1024, 700);

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

QTimer *Timer(QObject *window, const char *name, int interval, auto handler)
{
    auto *timer = Named(new QTimer(window), name);
    timer->setInterval(interval);
    QObject::connect(timer, &QTimer::timeout, window, handler);
    return timer;
}

} // namespace

FrmMain::FrmMain(RoomSettings &room, Preferences &options, FileState &file, DeviceLibrary &library,
                 WallClock &clock, Places places)
    : room_(room),
      options_(options),
      file_(file),
      library_(library),
      clock_(clock),
      places_(std::move(places)),
      link_(room, options, library, *this, clock),
      editor_(room, file, link_, [this](const Changed &changed) { Show(changed); }),
      masterFader_(new MasterFader(editor_, link_, entries_, this)),
      mute_(new MuteButtons(editor_, this))
{
    Named(this, "frmMain");
    ShowTitle(messages::Untitled);
    BuildMenus();
    BuildPanels();
    ArrangeWindow();
    masterFader_->BuildDialog();
    BuildTimers();
    qApp->installEventFilter(this);
}

FrmMain::~FrmMain()
{
    // Children are destroyed after the members: they must neither tell a window that is half gone nor, in
    // going, take a text that stands in them.
    qApp->removeEventFilter(this);
    DropEntries();
    hide(); // a slider that is held is let go while there is still a window to tell
}

void FrmMain::BuildPanels()
{
    std::array<QPushButton *, 5> cmdUp;
    for (int index = 0; index < int(cmdUp.size()); ++index)
        cmdUp[index] = BuildUploadButton(index, link_, entries_);
    QWidget *faderOfTrim = masterFader_->BuildFrame("Frame1(1)", 0);
    QWidget *faderOfEq = masterFader_->BuildFrame("Frame8(0)", 1);
    QWidget *faderOfObe = masterFader_->BuildFrame("Frame8(1)", 2);
    StateButton *cmdMute4 = mute_->BuildShowing("cmdMute4");
    outputTrim_ =
        new OutputTrimPanel(editor_, link_, entries_, {faderOfTrim, mute_->Build("cmdMute2"), cmdUp[0]});
    equaliser_ = new EqualiserPanel(editor_, link_, entries_, {faderOfEq, mute_->Build("cmdMute"), cmdUp[1]});
    obe_ = new ObePanel(editor_, link_, entries_, {faderOfObe, mute_->Build("cmdMute3"), cmdUp[2]});
    optical_ =
        new OpticalPanel(editor_, link_, {this, cmdMute4, cmdUp[3], [this] { return TimersMayTouchUnit(); }});
    connect(optical_, &OpticalPanel::NoiseShownOff, outputTrim_, &OutputTrimPanel::ShowNoiseOff);
    connect(optical_, &OpticalPanel::StreamShown, this, [this](bool running) {
        mnuBaud_->setEnabled(!running);
        mnuRef_->setEnabled(!running);
    });
    QWidget *formatSelection = BuildFormatSelection();
    optionsPanel_ = new OptionsPanel(editor_, cmdUp[4]);
    theater_ = new TheaterPanel(editor_, [this] { mnuSet_Click(); });
    help_ = new HelpPanel;

    const std::array<QWidget *, TabCount> panels{formatSelection, outputTrim_,   equaliser_, obe_,
                                                 optical_,        optionsPanel_, theater_,   help_};
    SSTAB1_ = Named(new QTabWidget, "SSTAB1");
    auto *narrowTabs = new NarrowTabs;
    narrowTabs->setParent(SSTAB1_);
    SSTAB1_->tabBar()->setStyle(narrowTabs);
    for (int tab = 0; tab < TabCount; ++tab) {
        if (QLayout *own = panels[tab]->layout())
            own->setContentsMargins(0, 0, 0, 0); // the page has the margin
        frmtabs_[tab] = Named(new TabPage, "frmtabs", tab);
        lblHint_[tab] = Hint(tab);
        auto *layout = new QVBoxLayout(frmtabs_[tab]);
        layout->setContentsMargins(6, 3, 6, 6);
        layout->setSpacing(3);
        layout->addWidget(lblHint_[tab]);
        layout->addWidget(panels[tab], 1);
        SSTAB1_->addTab(frmtabs_[tab], TabCaption[tab]);
    }
    panels_ = {modes_, mute_, masterFader_, outputTrim_, equaliser_, obe_, optical_, optionsPanel_, theater_};
    // Deliberate: noise of the OBE tab that still sounds does not outlast the options tab either.
    panelOfTab_ = {nullptr, outputTrim_, equaliser_, obe_, optical_, obe_, nullptr, nullptr};
    connected_ = {cmdUp[0], cmdUp[1],    cmdUp[2],  cmdUp[3], cmdUp[4],
                  modes_,   faderOfTrim, faderOfEq, cmdMute4, faderOfObe};
    connect(SSTAB1_, &QTabWidget::currentChanged, this, &FrmMain::SSTAB1_Click);
}

QWidget *FrmMain::BuildFormatSelection()
{
    modes_ = new ModeButtons(editor_);
    auto *information = Named(new QGroupBox(messages::UnitInformation), "Frame1", 21);
    unitInformation_ = information;
    auto *lines = new QVBoxLayout(information);
    for (int line = 0; line < int(lnlInfo_.size()); ++line) {
        lnlInfo_[line] = Named(new QLabel, "lnlInfo", line);
        lines->addWidget(lnlInfo_[line]);
    }
    KeepPlaceWhenHidden(information);

    auto *panel = new QWidget;
    auto *layout = new QGridLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(GroupSpacing);
    layout->addWidget(modes_, 0, 0, 2, 1);
    layout->addWidget(information, 0, 1);
    layout->addWidget(mute_->Build("cmdMute5"), 2, 0);
    layout->setColumnStretch(0, 3);
    layout->setColumnStretch(1, 2);
    layout->setRowStretch(1, 3);
    layout->setRowStretch(3, 1);
    return panel;
}

QWidget *FrmMain::BuildMasterColumn()
{
    lblStat_ = Named(new QLabel, "lblStat");
    lblStat_->setAlignment(Qt::AlignCenter);
    lblStat_->setMargin(6);
    lblStat_->setFont(Bold(lblStat_->font()));
    cmdConnect_ = Named(new QPushButton(messages::ConnectCaption), "cmdConnect");
    connect(cmdConnect_, &QPushButton::clicked, this, &FrmMain::cmdConnect_Click);
    lblSent_ = Named(new QLabel, "lblSent");
    lblSent_->setWordWrap(true);
    lblSent_->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    lblSent_->setMinimumHeight(3 * lblSent_->fontMetrics().lineSpacing());
    lblClock_ = Named(new QLabel, "lblClock");
    lblClock_->setAlignment(Qt::AlignCenter);

    auto *column = new QWidget;
    column->setFixedWidth(ColumnWidth);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(lblStat_);
    layout->addWidget(cmdConnect_);
    layout->addWidget(lblSent_);
    connected_.push_back(masterFader_->BuildMaster());
    layout->addWidget(connected_.back(), 1);
    layout->addWidget(lblClock_);
    return column;
}

void FrmMain::ArrangeWindow()
{
    auto *centre = new QWidget;
    auto *layout = new QHBoxLayout(centre);
    layout->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
    layout->setSpacing(WindowMargin);
    layout->addWidget(SSTAB1_, 1);
    layout->addWidget(BuildMasterColumn());
    setCentralWidget(centre);
    resize(UsualSize);

    // Carries the window's normal button face; nobody sees it.
    auto *cmdtest = Named(new QPushButton(centre), "cmdtest");
    cmdtest->hide();

    SSTAB1_->tabBar()->setFocus();
}

void FrmMain::BuildTimers()
{
    constexpr int PollAtStart = 5000;
    constexpr int Second = 1000;
    tmrPoll_ = Timer(this, "tmrPoll", PollAtStart, [this] {
        if (TimersMayTouchUnit())
            link_.PollTick();
    });
    Timer(this, "tmrRefresh", Second, [this] {
        // A read-back waits for the hand, and for the stream, whose format it would take over.
        if (TimersMayTouchUnit())
            link_.RefreshTick(!entries_.HoldsSlider() && !optical_->Stream().Running());
    })->start();
    const auto showTime = [this] {
        lblClock_->setText(QString::fromStdString(clock_.TimeText(clock_.Now())));
    };
    showTime();
    Timer(this, "tmrClock", Second, showTime)->start();
}

} // namespace kelvo
