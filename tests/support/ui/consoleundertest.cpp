#include "support/ui/consoleundertest.h"

#include "ui/main/look.h"

#include <QAction>
#include <QApplication>
#include <QFileDialog>
#include <QPushButton>
#include <QStyleOptionSlider>
#include <QTabBar>
#include <QTabWidget>
#include <QTimer>

namespace kelvo {

namespace {

/// Where the middle of the handle stands when the slider is at a position.
QPoint HandleAt(const QSlider &slider, int position)
{
    QStyleOptionSlider option;
    option.initFrom(&slider);
    option.orientation = slider.orientation();
    option.minimum = slider.minimum();
    option.maximum = slider.maximum();
    option.sliderPosition = position;
    option.sliderValue = position;
    option.tickPosition = slider.tickPosition();
    option.tickInterval = slider.tickInterval();
    option.upsideDown =
        slider.orientation() == Qt::Horizontal ? slider.invertedAppearance() : !slider.invertedAppearance();
    return slider.style()
        ->subControlRect(QStyle::CC_Slider, &option, QStyle::SC_SliderHandle, &slider)
        .center();
}

} // namespace

ConsoleUnderTest::ConsoleUnderTest(ConsoleStart start, Tab tab,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : ConsoleUnderTest(nullptr, start, tab, prepare)
{
}

ConsoleUnderTest::ConsoleUnderTest(DeviceLibrary &library,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : ConsoleUnderTest(&library, OnLine, Tab::FormatSelection, prepare)
{
}

ConsoleUnderTest::ConsoleUnderTest(DeviceLibrary *library, ConsoleStart start, Tab tab,
                                   const std::function<void(ConsoleUnderTest &)> &prepare)
    : library_(library ? *library : unit, calls_)
{
    ApplyLook();
    qApp->installEventFilter(this);
    places = {.programDirectory = folder_.path(),
              .helpFile = File("Zentra-HELP.rtf"),
              .missingLibrary = {},
              .serialIniMissing = [] { return false; },
              .report = [this](const QString &line) { reports += line; }};
    if (start == OffLine) {
        unit.panel.plugged = false;
        AnswerNextBox("Connection Error", QMessageBox::Ok, "Unable to connect to unit!");
    }
    if (prepare)
        prepare(*this);
    window = std::make_unique<FrmMain>(settings, library_, clock, places);
    window->resize(800, 600);
    window->Form_Load();
    startCalls = calls_;
    window->show();
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
    if (tab != Tab::FormatSelection)
        GoTo(tab);
    Forget();
}

ConsoleUnderTest::~ConsoleUnderTest()
{
    if (!AllBoxesSeen())
        QTest::qFail("a box that was expected never came", __FILE__, __LINE__);
    qApp->removeEventFilter(this);
}

void ConsoleUnderTest::KeepActive() const
{
    if (QApplication::activeWindow() || !window->isVisible())
        return;
    window->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.get()));
}

QWidget *ConsoleUnderTest::Focus() const
{
    KeepActive();
    QWidget *focus = QApplication::focusWidget();
    return focus ? focus : window.get();
}

void ConsoleUnderTest::Click(const char *button)
{
    KeepActive();
    QTest::mouseClick(Find<QWidget>(button), Qt::LeftButton);
}

void ConsoleUnderTest::Type(const char *field, const QString &text)
{
    TypeOnly(field, text);
    Key(Qt::Key_Return);
}

void ConsoleUnderTest::TypeOnly(const char *field, const QString &text)
{
    auto *control = Find<QLineEdit>(field);
    KeepActive();
    control->setFocus();
    control->selectAll();
    if (text.isEmpty())
        QTest::keyClick(control, Qt::Key_Delete);
    else
        QTest::keyClicks(control, text);
}

void ConsoleUnderTest::Press(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyPress(Focus(), key, modifiers);
}

void ConsoleUnderTest::Release(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    QTest::keyRelease(Focus(), key, modifiers);
}

void ConsoleUnderTest::Key(Qt::Key key, Qt::KeyboardModifiers modifiers)
{
    Press(key, modifiers);
    Release(key, modifiers);
}

void ConsoleUnderTest::Drag(const char *slider, int position)
{
    auto *control = Find<QSlider>(slider);
    const QPoint from = HandleAt(*control, control->value());
    const QPoint to = HandleAt(*control, position);
    QTest::mousePress(control, Qt::LeftButton, {}, from);
    for (int step = 1; step <= 4; ++step)
        QTest::mouseMove(control, from + (to - from) * step / 4);
    QTest::mouseRelease(control, Qt::LeftButton, {}, to);
}

void ConsoleUnderTest::GoTo(Tab tab)
{
    QTabBar *strip = Find<QTabWidget>("SSTAB1")->tabBar();
    QTest::mouseClick(strip, Qt::LeftButton, {}, strip->tabRect(int(tab)).center());
}

QAction *ConsoleUnderTest::Action(const char *name) const
{
    return Find<QAction>(name);
}

void ConsoleUnderTest::Tick(const char *timer)
{
    if (!Find<QTimer>(timer)->isActive())
        QTest::qFail(qPrintable(QString("%1 stands still").arg(timer)), __FILE__, __LINE__);
    TickIfActive(timer);
}

void ConsoleUnderTest::TickIfActive(const char *timer)
{
    auto *ticking = Find<QTimer>(timer);
    if (ticking->isActive())
        QMetaObject::invokeMethod(ticking, "timeout", Qt::DirectConnection, QGenericArgument());
}

void ConsoleUnderTest::AnswerNextBox(const QString &title, QMessageBox::StandardButton button,
                                     const QString &text, std::function<void()> whileOpen)
{
    answers_.push_back({title, text, button, std::move(whileOpen)});
}

QMessageBox *ConsoleUnderTest::OpenBox() const
{
    return qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
}

void ConsoleUnderTest::WithNextDialog(std::function<void(QDialog *)> work)
{
    dialogs_.push_back(std::move(work));
}

void ConsoleUnderTest::ChooseNextFile(const QString &path)
{
    WithNextDialog([path](QDialog *dialog) {
        auto *files = qobject_cast<QFileDialog *>(dialog);
        if (!files) {
            QTest::qFail("the next dialog was no file dialog", __FILE__, __LINE__);
            dialog->reject();
        } else if (path.isEmpty()) {
            files->reject();
        } else {
            files->selectFile(path);
            QMetaObject::invokeMethod(files, "accept");
        }
    });
}

bool ConsoleUnderTest::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Show)
        return false;
    if (auto *box = qobject_cast<QMessageBox *>(watched)) {
        QTimer::singleShot(0, box, [this, box] { AnswerBox(box); });
    } else if (auto *dialog = qobject_cast<QDialog *>(watched); dialog && dialog->isModal()) {
        QTimer::singleShot(0, dialog, [this, dialog] {
            if (dialogs_.empty()) {
                QTest::qFail(qPrintable("a dialog came unexpected: " + dialog->windowTitle()), __FILE__,
                             __LINE__);
                dialog->reject();
                return;
            }
            const auto work = dialogs_.front();
            dialogs_.erase(dialogs_.begin());
            work(dialog);
        });
    }
    return false;
}

void ConsoleUnderTest::AnswerBox(QMessageBox *box)
{
    if (answering_) {
        QTest::mouseClick(box->button(answering_(box->windowTitle(), box->text())), Qt::LeftButton);
        return;
    }
    const Box expected = answers_.empty() ? Box{} : answers_.front();
    if (!answers_.empty())
        answers_.erase(answers_.begin());
    const QString seen = box->windowTitle() + ": " + box->text();
    QAbstractButton *button = box->button(expected.button);
    if (box->windowTitle() != expected.title || (!expected.text.isEmpty() && box->text() != expected.text) ||
        !button) {
        QTest::qFail(qPrintable("a box came unexpected: " + seen), __FILE__, __LINE__);
        box->reject();
        return;
    }
    if (expected.whileOpen)
        expected.whileOpen();
    QTest::mouseClick(button, Qt::LeftButton);
}

} // namespace kelvo
