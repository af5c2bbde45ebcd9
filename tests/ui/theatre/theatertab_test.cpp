#include "model/tables.h"
#include "support/ui/consoleundertest.h"

#include <QLineEdit>
#include <QPushButton>

using namespace kelvo;

namespace {

QString ShownText(const ConsoleUnderTest &console, int index)
{
    return console.Find<FrmMain>("frmMain")
        ->findChild<QLineEdit *>(QStringLiteral("txtTheaterInfo(%1)").arg(index))
        ->text();
}

/// What is typed into the dialog's boxes before one of its buttons is pressed.
std::function<void(QDialog *)> TypeAndPress(std::vector<std::pair<int, QString>> texts, const char *button)
{
    return [texts, button](QDialog *dialog) {
        QCOMPARE(dialog->objectName(), "frmTheater");
        for (const auto &[index, text] : texts) {
            auto *box = dialog->findChild<QLineEdit *>(QStringLiteral("txtTheaterInfo(%1)").arg(index));
            box->setFocus();
            box->selectAll();
            QTest::keyClicks(box, text);
        }
        QTest::mouseClick(dialog->findChild<QPushButton *>(QString::fromLatin1(button)), Qt::LeftButton);
    };
}

} // namespace

class TheaterTabTest : public QObject {
    Q_OBJECT

  private slots:
    void whatIsTypedInTheDialogIsShownOnTheTab()
    {
        for (const bool byMenu : {true, false}) {
            ConsoleUnderTest console(OnLine, Tab::TheaterInformation);
            console.WithNextDialog(TypeAndPress({{0, "Circuit"}, {1, "Odeon 3"}, {10, "Row G"}}, "cmdOK"));
            if (byMenu)
                console.Trigger("mnuSet");
            else
                console.Click("cmdEdit");
            QCOMPARE(ShownText(console, 0), "Circuit");
            QCOMPARE(ShownText(console, 1), "Odeon 3");
            QCOMPARE(ShownText(console, 10), "Row G");
            QCOMPARE(console.room.TheaterInfo[1], "Odeon 3");
            QVERIFY(console.file.SettingsChanged);
            for (const std::string &call : console.Calls())
                QVERIFY2(call.starts_with("Get"), call.c_str()); // the texts are the console's own
        }
    }

    void theDialogCanBeFilledInOffLine()
    {
        ConsoleUnderTest console(OffLine, Tab::TheaterInformation);
        console.WithNextDialog(TypeAndPress({{3, "Bath"}}, "cmdOK"));
        console.Trigger("mnuSet");
        QCOMPARE(ShownText(console, 3), "Bath");
    }

    void aCancelledDialogChangesNothing()
    {
        ConsoleUnderTest console(OnLine, Tab::TheaterInformation);
        console.WithNextDialog(TypeAndPress({{1, "Odeon 3"}}, "cmdCan"));
        console.Trigger("mnuSet");
        QCOMPARE(ShownText(console, 1), "");
        QCOMPARE(console.room.TheaterInfo[1], "");
        QVERIFY(!console.file.SettingsChanged);
    }

    void anUploadShowsTheUnitsClockInTheDatesBoxAndKeepsTheTypedDate()
    {
        ConsoleUnderTest console(OnLine, Tab::TheaterInformation);
        console.WithNextDialog(TypeAndPress({{9, "May 1999"}}, "cmdOK"));
        console.Trigger("mnuSet");
        QCOMPARE(ShownText(console, DateInstalled), "May 1999");

        console.clock.Set(2024, 8, 15, 9, 5);
        console.Key(Qt::Key_F2);
        QCOMPARE(ShownText(console, DateInstalled), "15/08/24 9:05 AM");
        QCOMPARE(console.room.TheaterInfo[9], "May 1999");

        console.WithNextDialog([](QDialog *dialog) {
            QCOMPARE(dialog->findChild<QLineEdit *>("txtTheaterInfo(9)")->text(), "May 1999");
            dialog->reject();
        });
        console.Trigger("mnuSet");
        console.GoTo(Tab::Help);
        console.GoTo(Tab::TheaterInformation);
        QCOMPARE(ShownText(console, DateInstalled), "May 1999");
    }
};

QTEST_MAIN(TheaterTabTest)
#include "theatertab_test.moc"
