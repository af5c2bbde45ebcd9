#include "model/tables.h"
#include "support/ui/editedroom.h"
#include "ui/theatre/frmtheater.h"
#include "ui/theatre/theaterpanel.h"

#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QPushButton>
#include <QTest>

using namespace kelvo;

namespace {

QLineEdit *Box(const QWidget &window, int index)
{
    return window.findChild<QLineEdit *>(QStringLiteral("txtTheaterInfo(%1)").arg(index));
}

QStringList Shown(const QWidget &window)
{
    QStringList texts;
    for (int index = 0; index < TheaterTextCount; ++index)
        texts += Box(window, index)->text();
    return texts;
}

TheaterTexts FilledIn()
{
    return {"Circuit One", "Odeon 3", "1 High Street", "Bath",         "Avon", "BA1", "555-1",
            "1234",        "3",       "1999",          "Row G rattles"};
}

/// The room, the tab and the dialog over them, as the main window joins them.
struct Theater {
    void Click(const char *button) const
    {
        QTest::mouseClick(dialog.findChild<QPushButton *>(QString::fromLatin1(button)), Qt::LeftButton);
    }

    EditedRoom edited;
    RoomSettings &room = (edited.room.TheaterInfo = FilledIn(), edited.room);
    int edits = 0;
    TheaterPanel panel{edited.editor, [this] { ++edits; }};
    FrmTheater dialog{edited.editor, nullptr};

    Theater()
    {
        edited.show = [this](const Changed &changed) { panel.Show(changed); };
    }
};

const QStringList Texts{"Circuit One", "Odeon 3", "1 High Street", "Bath",         "Avon", "BA1", "555-1",
                        "1234",        "3",       "1999",          "Row G rattles"};

} // namespace

class FrmTheaterTest : public QObject {
    Q_OBJECT

  private slots:
    void theTabShowsTheElevenTextsReadOnly()
    {
        const Theater theater;
        QCOMPARE(Shown(theater.panel), Texts);
        for (int index = 0; index < TheaterTextCount; ++index)
            QVERIFY(Box(theater.panel, index)->isReadOnly());
    }

    void labelsStandBesideTheirBoxesOnTheTabAndInTheDialog()
    {
        const QStringList expected{"Circuit:",        "Theater Name:",   "Address:", "City:",
                                   "State / County:", "Zip Code:",       "Phone:",   "S/N of Processor:",
                                   "Screen Number:",  "Date Installed:", "Notes:"};
        const Theater theater;
        for (const QWidget *window :
             {static_cast<const QWidget *>(&theater.panel), static_cast<const QWidget *>(&theater.dialog)})
            for (const auto *label : window->findChildren<QLabel *>())
                QCOMPARE(label->buddy(), Box(*window, int(expected.indexOf(label->text()))));
        QCOMPARE(theater.dialog.findChildren<QLabel *>().size(), expected.size());
    }

    void theUnitsClockTakesTheDatesBoxAndNothingElse()
    {
        Theater theater;
        theater.room.Audio.UnitClock = {0x93, 0x2F, 0x5E, 0x01};
        theater.panel.Show({Source::Upload});
        QStringList expected = Texts;
        expected[9] = "15/08/01 3:30 PM";
        QCOMPARE(Shown(theater.panel), expected);
        QCOMPARE(theater.panel.ClockText(), "15/08/01 3:30 PM");
        QCOMPARE(theater.room.TheaterInfo[9], "1999");
        theater.panel.ApplyTheaterTabFields();
        QCOMPARE(Shown(theater.panel), Texts);
        QCOMPARE(theater.panel.ClockText(), "15/08/01 3:30 PM");
    }

    void theTabsButtonOpensTheDialog()
    {
        Theater theater;
        QTest::mouseClick(theater.panel.findChild<QPushButton *>("cmdEdit"), Qt::LeftButton);
        QCOMPARE(theater.edits, 1);
    }

    void theDialogOpensWithTheTextsAndFitsASmallScreen()
    {
        Theater theater;
        FrmTheater &dialog = theater.dialog;
        dialog.show();
        QCOMPARE(dialog.objectName(), "frmTheater");
        QCOMPARE(dialog.windowTitle(), "Set Theater Information");
        QCOMPARE(Shown(dialog), Texts);
        QVERIFY(dialog.width() <= 800 && dialog.height() <= 600);
    }

    void okTakesAllElevenAndShowsThemOnTheTab()
    {
        Theater theater;
        QStringList expected;
        for (int index = 0; index < TheaterTextCount; ++index) {
            expected += QStringLiteral("text \"%1\" \u00e9").arg(index);
            Box(theater.dialog, index)->setText(expected.last());
        }
        QCOMPARE(Shown(theater.panel), Texts);
        theater.Click("cmdOK");
        QCOMPARE(Shown(theater.panel), expected);
        QCOMPARE(theater.room.TheaterInfo[10], "text \"10\" \xc3\xa9");
        QVERIFY(theater.edited.file.SettingsChanged);
        QCOMPARE(theater.dialog.result(), int(QDialog::Accepted));
    }

    void okWithNothingChangedMarksNoChange()
    {
        Theater theater;
        theater.Click("cmdOK");
        QVERIFY(!theater.edited.file.SettingsChanged);
        QCOMPARE(theater.dialog.result(), int(QDialog::Accepted));
    }

    void cancelAndEscapeLeaveTextsAndTabAlone()
    {
        for (const bool byKey : {false, true}) {
            Theater theater;
            Box(theater.dialog, 3)->setText("Wells");
            if (byKey)
                QTest::keyClick(&theater.dialog, Qt::Key_Escape);
            else
                theater.Click("cmdCan");
            QCOMPARE(theater.room.TheaterInfo[3], "Bath");
            QCOMPARE(Shown(theater.panel), Texts);
            QVERIFY(!theater.edited.file.SettingsChanged);
        }
    }

    void controlCharactersCannotBeTypedOrPasted()
    {
        Theater theater;
        QLineEdit *box = Box(theater.dialog, 1);
        box->clear();
        QTest::keyClicks(box, "Odeon");
        QTest::keyClick(box, 'A', Qt::ControlModifier);
        QTest::keyClick(box, Qt::Key_End);
        QTest::sendKeyEvent(QTest::Click, box, Qt::Key_unknown, QString(QChar(1)), Qt::NoModifier);
        QApplication::clipboard()->setText(QString::fromLatin1("\tthree\x01\r\nand four\x7f\x85"));
        box->paste();
        const QString text = box->text();
        QVERIFY2(std::none_of(text.begin(), text.end(),
                              [](QChar c) { return c < u' ' || (c >= u'\x7f' && c < u'\xa0'); }),
                 qPrintable(text));
        QCOMPARE(text.simplified(), "Odeon three and four");
    }
};

QTEST_MAIN(FrmTheaterTest)
#include "frmtheater_test.moc"
