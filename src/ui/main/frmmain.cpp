#include "ui/main/frmmain.h"

#include "ui/controls/named.h"
#include "ui/main/droptarget.h"
#include "ui/main/guidecommand.h"
#include "ui/main/keypreview.h"
#include "ui/main/messages.h"
#include "ui/main/recentmenu.h"
#include "ui/main/storedsides.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHBoxLayout>
#include <QPushButton>
#include <QTabBar>

namespace kelvo {

namespace {

constexpr int WindowMargin = 9;
constexpr QSize UsualSize(1024, 700);

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
    : options_(options),
      library_(library),
      clock_(clock),
      places_(std::move(places)),
      memory_(places_.memoryFile, QSettings::IniFormat),
      link_(room, options, library, *this, clock),
      journal_(places_.JournalFolder().toStdString(),
               [this](const std::string &reason) {
                   TellFault(QString(messages::CannotJournal)
                                 .arg(places_.JournalFolder(), QString::fromStdString(reason)));
               }),
      editor_(room, file, link_, clock, journal_, [this](const Changed &changed) { ShowRoom(changed); }),
      panels_(editor_, link_, entries_,
              {.widget = this,
               .timersMayTouchUnit = [this] { return TimersMayTouchUnit(); },
               .editTheater = [this] { menus_->mnuSet_Click(); }}),
      snapshot_(places_, editor_, link_, this, [this](const QString &fault) { TellFault(fault); }),
      recent_(memory_, snapshot_.Path()),
      files_(new FileCommands(editor_, file, link_, panels_.optical->Stream(), entries_, recent_, places_,
                              this)),
      menus_(new Menus(this, {editor_, options, link_, entries_, *files_,
                              [this] { return link_.InCall() || closing_->Running(); }})),
      recovery_(new Recovery(editor_, clock, places_.JournalFolder(), this)),
      edit_(new EditMenu(*menus_, {editor_, entries_, clock, memory_, *recovery_}, this)),
      closing_(new Closing(this, {file, options, link_, panels_.optical->Stream(), entries_, *files_,
                                  snapshot_, journal_, *recovery_, *menus_, places_})),
      tools_(std::make_unique<ToolsMenu>(
          *menus_,
          FrmDiffers::Desk{editor_, link_, entries_, [this] { return panels_.optical->Stream().Running(); },
                           [this] { return StoredSides(editor_, snapshot_); }},
          memory_, this))
{
    Named(this, "frmMain");
    ShowTitle(messages::Untitled);
    connect(files_, &FileCommands::Named, this, &FrmMain::ShowTitle);
    connect(files_, &FileCommands::Opened, this, [this] {
        recovery_->Look();
        ShowSent();
    });
    connect(files_, &FileCommands::Reset, this, [this] { panels_.ShowTestSignals({}); });
    connect(panels_.optical, &OpticalPanel::StreamShown, menus_, &Menus::EnableForStream);
    new RecentMenu(*menus_, *files_, recent_, this);
    new GuideCommand(*menus_, places_.helpFile, memory_, this);
    connect(panels_.optical, &OpticalPanel::StreamShown, tools_.get(), &ToolsMenu::Follow);
    BuildTabs();
    ArrangeWindow();
    panels_.fader->BuildDialog();
    BuildTimers();
    auto *keys = new KeyPreview(link_, entries_, options, panels_, *tabs_, this);
    keys->setParent(this);
    connect(keys, &KeyPreview::ConnectPressed, this, &FrmMain::cmdConnect_Click);
    auto *drops = new DropTarget([this] { return menus_->Usable(); }, this);
    connect(drops, &DropTarget::Dropped, files_, &FileCommands::OpenChosen);
}

FrmMain::~FrmMain()
{
    // Children are destroyed after the members: they must neither tell a window that is half gone nor, in
    // going, take a text that stands in them.
    delete findChild<KeyPreview *>();
    closing_->DropEntries();
    hide(); // a slider that is held is let go while there is still a window to tell
}

void FrmMain::BuildTabs()
{
    tabs_ = new TabPages(link_, entries_, *panels_.fader, panels_.Contents());
    connect(tabs_, &TabPages::Entered, this, [this](Tab tab) {
        if (tab == Tab::TheaterInformation)
            panels_.theater->ApplyTheaterTabFields();
    });
    connect(tabs_, &TabPages::Left, this, [this] {
        // After a connection a signal may show on several tabs; now that it is off it shows on none.
        if (link_.UnitOnline())
            panels_.ShowTestSignals(link_.Holds().Playing);
    });
}

void FrmMain::ArrangeWindow()
{
    column_ = new MasterColumn(panels_.masterFrame);
    connect(column_, &MasterColumn::ConnectClicked, this, &FrmMain::cmdConnect_Click);
    connect(column_, &MasterColumn::SentClicked, this, &FrmMain::lblSent_Click);
    auto *centre = new QWidget;
    auto *layout = new QHBoxLayout(centre);
    layout->setContentsMargins(WindowMargin, WindowMargin, WindowMargin, WindowMargin);
    layout->setSpacing(WindowMargin);
    layout->addWidget(tabs_, 1);
    layout->addWidget(column_);
    setCentralWidget(centre);
    resize(UsualSize);

    stateLine_ = new StateLine(menuBar());
    connect(menus_, &Menus::LineChosen, this, &FrmMain::ShowStateLine);

    // Carries the window's normal button face; nobody sees it.
    auto *cmdtest = Named(new QPushButton(centre), "cmdtest");
    cmdtest->hide();

    tabs_->tabBar()->setFocus();
}

void FrmMain::AddSimulatorMenu(SimulatedUnit &unit)
{
    menus_->AddSimulator(unit);
    stateLine_->ShowUnitKind(messages::SimulatedKind, messages::SimulatedMeaning);
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
            link_.RefreshTick(!entries_.HoldsSlider() && !panels_.optical->Stream().Running());
    })->start();
    const auto showTime = [this] { column_->ShowTime(clock_.TimeText(clock_.Now())); };
    showTime();
    Timer(this, "tmrClock", Second, showTime)->start();
}

void FrmMain::closeEvent(QCloseEvent *event)
{
    event->setAccepted(closing_->MayClose());
}

bool FrmMain::TimersMayTouchUnit() const
{
    return !link_.InCall() && !closing_->Running() && !QApplication::activeModalWidget();
}

} // namespace kelvo
