#include "support/ui/samplesettings.h"

#include <QAction>
#include <QDropEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>

using namespace kelvo;

class DropTargetTest : public QObject {
    Q_OBJECT

  private slots:
    void aDroppedFileOpensAsOpenDoes_data();
    void aDroppedFileOpensAsOpenDoes();
    void theQuestionComesFirst();
    void aFileThatIsNoneIsTold();
    void whatIsNotOneLocalFileIsNotTaken_data();
    void whatIsNotOneLocalFileIsNotTaken();
    void aTextIsNotTaken();
    void nothingIsTakenWhileSomethingIsUnderWay();
    void aDropThatABoxOvertakesIsDropped();
};

namespace {

/// Drags over a control and lets go there when that is welcome. True when the drop was taken.
bool Drop(QWidget *control, const QMimeData &data, Qt::DropActions offered = Qt::CopyAction | Qt::MoveAction)
{
    QDragEnterEvent enter(QPoint(5, 5), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(control, &enter);
    if (!enter.isAccepted())
        return false;
    QDragMoveEvent move(QPoint(6, 6), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(control, &move);
    QDropEvent drop(QPointF(6, 6), offered, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(control, &drop);
    return drop.isAccepted();
}

struct Files : QMimeData {
    explicit Files(const QStringList &paths)
    {
        QList<QUrl> urls;
        for (const QString &path : paths)
            urls += path.contains("://") ? QUrl(path) : QUrl::fromLocalFile(path);
        setUrls(urls);
        setText(paths.join('\n')); // as a file manager gives it for those who want a text
    }
};

} // namespace

void DropTargetTest::aDroppedFileOpensAsOpenDoes_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("tab");
    QTest::newRow("the window") << "frmMain" << 0;
    QTest::newRow("the tab strip") << "SSTAB1" << 0;
    QTest::newRow("a level's text") << "lblPNG(2)" << 1;
    QTest::newRow("the guide") << "RTFc" << 7;
    QTest::newRow("the guide's search") << "txtFind" << 7;
}

void DropTargetTest::aDroppedFileOpensAsOpenDoes()
{
    QFETCH(QString, target);
    QFETCH(int, tab);
    ConsoleUnderTest console(OnLine, Tab(tab));
    const QString path = WriteSample(console);
    if (tab == int(Tab::Help))
        console.Key(Qt::Key_F, Qt::ControlModifier);
    QWidget *control = target == "frmMain" ? console.window.get() : console.Find<QWidget>(target);
    QVERIFY(Drop(control, Files({path})));
    QTRY_COMPARE(console.window->windowTitle(), TitleOf(path));
    QCOMPARE(console.Calls(), (Calls{"SetVol 42", "SelectFormat 2", "SetMute -1"}));
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), "2.0");
    QCOMPARE(console.file.CurrentFileName, path.toStdString());
}

void DropTargetTest::theQuestionComesFirst()
{
    ConsoleUnderTest console;
    const QString first = WriteSample(console, "first.zcf");
    Open(console, first);
    console.room.TheaterInfo[0] = "changed";
    console.file.SettingsChanged = true;
    const QString second = WriteSample(console, "second.zcf");
    console.AnswerNextBox("Save?", QMessageBox::Yes, "Do you want to save your changes?");
    QVERIFY(Drop(console.window.get(), Files({second})));
    QTRY_COMPARE(console.window->windowTitle(), TitleOf(second));
    RoomSettings saved;
    QVERIFY(!LoadConfigFile(first.toStdString(), saved));
    QCOMPARE(saved.TheaterInfo[0], "changed");
}

void DropTargetTest::aFileThatIsNoneIsTold()
{
    ConsoleUnderTest console;
    const RoomSettings before = console.room;
    console.AnswerNextBox("File Error", QMessageBox::Ok);
    QVERIFY(Drop(console.window.get(), Files({console.File("nowhere.zcf")})));
    QTRY_VERIFY(console.AllBoxesSeen());
    QVERIFY(console.room == before);
}

void DropTargetTest::whatIsNotOneLocalFileIsNotTaken_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::newRow("two files") << QStringList{"sample.zcf", "sample.zcf"};
    QTest::newRow("a place on the net") << QStringList{"http://nowhere.example/a.zcf"};
    QTest::newRow("a file and a place on the net")
        << QStringList{"sample.zcf", "http://nowhere.example/a.zcf"};
}

void DropTargetTest::whatIsNotOneLocalFileIsNotTaken()
{
    QFETCH(QStringList, files);
    ConsoleUnderTest console(OnLine, Tab::OutputTrim);
    WriteSample(console);
    for (QString &file : files)
        if (!file.contains("://"))
            file = console.File(file.toUtf8());
    const QString title = console.window->windowTitle();
    const QString level = console.Find<QLineEdit>("lblPNG(2)")->text();
    QVERIFY(!Drop(console.window.get(), Files(files)));
    QVERIFY(!Drop(console.Find<QWidget>("lblPNG(2)"), Files(files)));
    QCoreApplication::processEvents();
    QCOMPARE(console.window->windowTitle(), title);
    QCOMPARE(console.Find<QLineEdit>("lblPNG(2)")->text(), level);
    QCOMPARE(console.Calls(), Calls());
}

void DropTargetTest::aTextIsNotTaken()
{
    ConsoleUnderTest console;
    QMimeData text;
    text.setText(WriteSample(console));
    QVERIFY(!Drop(console.window.get(), text));
}

void DropTargetTest::nothingIsTakenWhileSomethingIsUnderWay()
{
    ConsoleUnderTest console;
    const Files file({WriteSample(console)});
    const QString title = console.window->windowTitle();
    QWidget *window = console.window.get();

    int pauses = 0;
    console.clock.duringPause = [&] {
        ++pauses;
        QVERIFY(!Drop(window, file));
    };
    console.unit.FailNext(Operation::SetSystem, 2, 1);
    console.Key(Qt::Key_F2);
    QCOMPARE(pauses, 1);

    console.options.ConfirmUpload = true;
    console.AnswerNextBox("Confirm Upload!", QMessageBox::No, {}, [&] { QVERIFY(!Drop(window, file)); });
    console.Key(Qt::Key_F2);
    QVERIFY(console.AllBoxesSeen());

    console.Find<QMenu>("mnuFile")->setEnabled(false);
    QVERIFY(!Drop(window, file));
    console.Find<QMenu>("mnuFile")->setEnabled(true);
    window->setEnabled(false);
    QVERIFY(!Drop(window, file));
    window->setEnabled(true);

    QCoreApplication::processEvents();
    QCOMPARE(console.window->windowTitle(), title);
    QVERIFY(Drop(window, file));
    QTRY_VERIFY(console.window->windowTitle() != title);
}

void DropTargetTest::aDropThatABoxOvertakesIsDropped()
{
    ConsoleUnderTest console;
    const Files file({WriteSample(console)});
    const QString title = console.window->windowTitle();
    QVERIFY(Drop(console.window.get(), file));
    console.options.ConfirmUpload = true;
    console.AnswerNextBox("Confirm Upload!", QMessageBox::No, {}, [] { QCoreApplication::processEvents(); });
    console.Key(Qt::Key_F2);
    QVERIFY(console.AllBoxesSeen());
    QCoreApplication::processEvents();
    QCOMPARE(console.window->windowTitle(), title);
}

QTEST_MAIN(DropTargetTest)
#include "droptarget_test.moc"
