#include "ui/help/helppanel.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QTextDocumentFragment>
#include <QTextTable>

using namespace kelvo;

namespace {

QString Guide()
{
    return QFINDTESTDATA("../../data/Zentra-HELP.rtf");
}

/// The page in a window that the smallest screen leaves it, with a file that the test wrote.
struct Shown {
    Shown()
    {
        panel.resize(640, 470);
        panel.show();
        panel.activateWindow();
        active = QTest::qWaitForWindowActive(&panel);
    }
    explicit Shown(const QByteArray &rtf) : Shown()
    {
        QFile file(folder.filePath("Zentra-HELP.rtf"));
        active = active && file.open(QIODevice::WriteOnly) && file.write(rtf) == rtf.size();
        file.close();
        panel.LoadHelp(file.fileName());
    }
    template <typename Control>
    Control *Find(const char *name) const
    {
        return panel.findChild<Control *>(QString::fromLatin1(name));
    }
    QTextBrowser *Page() const { return Find<QTextBrowser>("RTFc"); }
    /// How the first place looks where this text stands.
    QTextCharFormat FormatAt(const char *text) const
    {
        return Page()->document()->find(QString::fromLatin1(text)).charFormat();
    }
    int Scrolled() const { return Page()->verticalScrollBar()->value(); }

    QTemporaryDir folder;
    HelpPanel panel;
    bool active = false;
};

QByteArray LongGuide()
{
    QByteArray rtf = "{\\rtf1{\\stylesheet{\\s1 heading 1;}{\\s2 heading 2;}}";
    for (int chapter = 1; chapter <= 20; ++chapter)
        rtf += "\\pard\\s1\\b Chapter " + QByteArray::number(chapter) + "\\b0\\par\\pard " +
               QByteArray("some words to read\\par ").repeated(20);
    return rtf + "\\pard\\s2 Last section\\par\\pard the End}";
}

} // namespace

class HelpPanelTest : public QObject {
    Q_OBJECT

  private slots:
    void theShippedGuideIsShownFromItsBeginning()
    {
        QVERIFY(!Guide().isEmpty());
        Shown shown;
        shown.panel.LoadHelp(Guide());
        const QString text = shown.Page()->toPlainText();
        QVERIFY(text.startsWith("Kelvo Cinema Processor and EQ Software\nUser's guide for the technician"));
        QVERIFY(text.contains("kelvo-console --simulate"));
        QVERIFY(!text.contains("does not show") && !text.contains('{') && !text.contains('\\'));
        QCOMPARE(shown.Scrolled(), 0);
        QVERIFY(shown.Page()->isReadOnly());
        QVERIFY(!shown.Page()->horizontalScrollBar()->isVisible());
    }

    void theGuideTellsOfEveryTabCommandAndMessage_data()
    {
        QTest::addColumn<QString>("text");
        for (const char *text :
             {"Format Selection",
              "Output Trim",
              "E.Q",
              "OBE",
              "Optical Setup",
              "Theater Information",
              "COM Port Selection",
              "Baud Rate",
              "Automatically Upload",
              "Confirm Message Box",
              "Enable Shortcuts",
              "Automatic Update",
              "Use System Date/Time",
              "Set Theater Information",
              "Slit Loss",
              "Azimuth",
              "RT60",
              "All sent",
              "changes not in the unit - F2",
              "Data?",
              "Unable to connect to unit!",
              "The following Errors were encountered:",
              "Cannot Continue On Line!",
              "Error cinema processor bios is out of date, contact Kelvo for an update.",
              "Device Library",
              "Confirm Upload!",
              "Range Check Error",
              "Fader=7.0?",
              "Set Fader = 7.0",
              "Copy?",
              "Nothing to Paste!",
              "Incompatable Channel Format!",
              "Reset Channel?",
              "Error open opening file! Incorrect format!",
              "Cannot open",
              "Cannot save",
              "Save?",
              "Revert?",
              "Screen Resolution Error",
              "- Serial Port Error",
              "- Error Transmitting",
              "- Error Receiving",
              "- Error Communicating System Block",
              "- Error Communicating Audio Block",
              "- Invalid response from unit",
              "- Could Not Initialise",
              "- Error during ASCII command",
              "- Error during streaming",
              "- Data is not as requested",
              "- Current OS is not compatable",
              "SIMULATED",
              "MUTED",
              "NOISE",
              "PHASE",
              "MEASURING",
              "stands on amber",
              "bears a small mark",
              "changes of yours that are not in the unit yet stand after an automatic update",
              "F4 does the same on every tab",
              "Ctrl+Z",
              "Ctrl+Y",
              "History ...",
              "Read from the unit (12 settings)",
              "Slots A to D",
              "Shift+F5",
              "What Differs ...",
              "Verify the Unit",
              "The unit holds what the screen shows (132 settings)",
              "Not verified",
              "Bring back 12 changes of 21:04",
              "Recent Files",
              "A file can also be dropped",
              "Save them over",
              "snapshots",
              "The newest 20 are kept",
              "Shift+F1"})
            QTest::newRow(text) << QString::fromLatin1(text);
    }
    void theGuideTellsOfEveryTabCommandAndMessage()
    {
        QFETCH(QString, text);
        static const QString guide = [] {
            HelpPanel panel;
            panel.LoadHelp(Guide());
            return panel.findChild<QTextBrowser *>("RTFc")->toPlainText();
        }();
        QVERIFY(guide.contains(text));
    }

    void boldItalicSizesAndColoursAreShown()
    {
        const Shown shown(
            "{\\rtf1{\\colortbl;\\red200\\green0\\blue0;\\red255\\green255\\blue0;}plain {\\b bold} "
            "{\\i slanted} {\\ul under} {\\fs40 large} {\\cf1 red} {\\highlight2 marked}}");
        QCOMPARE(shown.Page()->toPlainText(), "plain bold slanted under large red marked");
        QCOMPARE(shown.FormatAt("bold").fontWeight(), int(QFont::Bold));
        QVERIFY(shown.FormatAt("slanted").fontItalic());
        QVERIFY(shown.FormatAt("under").fontUnderline());
        QCOMPARE(shown.FormatAt("large").fontPointSize(), 20.0);
        QCOMPARE(shown.FormatAt("red").foreground().color(), QColor(200, 0, 0));
        QCOMPARE(shown.FormatAt("marked").background().color(), QColor(255, 255, 0));
    }

    void textThatCouldNotBeReadOnThePageTurnsDark()
    {
        const Shown shown("{\\rtf1{\\colortbl;\\red255\\green255\\blue255;\\red0\\green0\\blue90;}"
                          "{\\cf1 pale} {\\cf1\\highlight2 ondark} {\\highlight2 darkondark}}");
        QCOMPARE(shown.FormatAt("pale").foreground().color(), QColor(Qt::black));
        QCOMPARE(shown.FormatAt("ondark").foreground().color(), QColor(Qt::white));
        QCOMPARE(shown.FormatAt("darkondark").foreground().color(), QColor(Qt::white));
    }

    void aHangingIndentSetsTheTextAfterItsBulletInLine()
    {
        const Shown shown("{\\rtf1\\pard\\fi-360\\li720 {\\pntext\\bullet\\tab}a point\\par}");
        const QTextBlock block = shown.Page()->document()->firstBlock();
        QCOMPARE(block.text(), QString::fromUtf16(u"\u2022\ta point"));
        const QTextLine line = block.layout()->lineAt(0);
        QCOMPARE(line.cursorToX(0), 24.0);
        QCOMPARE(line.cursorToX(2), 48.0);
    }

    void aTableStandsInRowsAndColumns()
    {
        const Shown shown(
            "{\\rtf1 before\\par\\trowd\\cellx2000\\cellx4000\\pard\\intbl a\\cell b\\par b2\\cell\\row"
            "\\trowd\\cellx2000\\cellx4000\\pard\\intbl c\\cell d\\cell\\row\\pard after\\par}");
        QTextTable *table = shown.Page()->document()->find("a").currentTable();
        if (!table)
            table = shown.Page()->document()->find("d").currentTable();
        QVERIFY(table);
        QCOMPARE(table->rows(), 2);
        QCOMPARE(table->columns(), 2);
        const auto cell = [table](int row, int column) {
            QTextCursor content = table->cellAt(row, column).firstCursorPosition();
            content.setPosition(table->cellAt(row, column).lastPosition(), QTextCursor::KeepAnchor);
            return content.selection().toPlainText();
        };
        QCOMPARE(cell(0, 0), "a");
        QCOMPARE(cell(0, 1), "b\nb2");
        QCOMPARE(cell(1, 0), "c");
        QCOMPARE(cell(1, 1), "d");
        QVERIFY(!shown.Page()->document()->find("before").currentTable());
        QVERIFY(!shown.Page()->document()->find("after").currentTable());
    }

    void thePageFetchesNothingAndFollowsNoLink()
    {
        const Shown shown(
            "{\\rtf1 see {\\field{\\*\\fldinst HYPERLINK \"file:///etc/hostname\"}{\\fldrslt here}}"
            "{\\field{\\*\\fldinst INCLUDEPICTURE \"http://nowhere.example/x.png\"}{\\fldrslt }}"
            "{\\pict\\pngblip 89504e47} <img src=\"http://nowhere.example/y.png\"> end}");
        QCOMPARE(shown.Page()->toPlainText(),
                 "see here[A picture that cannot be read] <img src=\"http://nowhere.example/y.png\"> end");
        QVERIFY(!shown.FormatAt("here").isAnchor());
        QVERIFY(shown.FormatAt("here").fontUnderline());
        QCOMPARE(shown.FormatAt("here").foreground().color(), QColor(Qt::blue));
        QVERIFY(!shown.Page()->openLinks());
        QVERIFY(!shown.Page()->openExternalLinks());
        QVERIFY(!shown.Page()
                     ->loadResource(QTextDocument::ImageResource, QUrl("file:///etc/hostname"))
                     .isValid());
        QVERIFY(
            !shown.Page()->loadResource(QTextDocument::HtmlResource, QUrl::fromLocalFile(Guide())).isValid());
    }

    void aMissingFileAFolderAndAnEmptyFileLeaveThePageEmpty()
    {
        Shown shown;
        for (const QString &path : {shown.folder.filePath("none.rtf"), shown.folder.path(), QString()}) {
            shown.panel.LoadHelp(Guide());
            shown.panel.LoadHelp(path);
            QCOMPARE(shown.Page()->toPlainText(), "");
            QCOMPARE(shown.Find<QListWidget>("lstContents")->count(), 0);
        }
        QCOMPARE(Shown(QByteArray()).Page()->toPlainText(), "");
    }

    void fiftyMegabytesAreShownInPartAndSaySo()
    {
        QByteArray rtf = "{\\rtf1 start\\par ";
        rtf += QByteArray("{\\b many} words\\par ").repeated(2'500'000);
        const Shown shown(rtf);
        const QString text = shown.Page()->toPlainText();
        QVERIFY(text.startsWith("start\nmany words\n"));
        QVERIFY(text.endsWith("\nThe file says more than this page shows."));
    }

    void aHugeTableIsShownAsLines()
    {
        QByteArray rtf = "{\\rtf1\\trowd\\cellx100\\cellx200\\intbl ";
        rtf += QByteArray("x\\cell y\\cell\\row ").repeated(10'000);
        const Shown shown(rtf);
        QVERIFY(shown.Page()->toPlainText().startsWith("x\ny\nx\n"));
        QVERIFY(!shown.Page()->document()->find("y").currentTable());
    }

    void textThatIsNoRtfAndBinaryIsShownAsFarAsItGoes()
    {
        QCOMPARE(Shown("just words\r\nof text").Page()->toPlainText(), "just words\nof text");
        QByteArray bytes;
        for (int count = 0; count < 200'000; ++count)
            bytes += char(count * 7919 >> 3);
        QVERIFY(!Shown(bytes).Page()->toPlainText().isEmpty());
        QVERIFY(!Shown("{\\rtf1 " + bytes).Page()->toPlainText().isEmpty());
    }

    void aClickOnTheContentsBringsItsChapterToTheTop()
    {
        const Shown shown(LongGuide());
        auto *contents = shown.Find<QListWidget>("lstContents");
        QCOMPARE(contents->count(), 21);
        QCOMPARE(contents->item(4)->text(), "Chapter 5");
        QCOMPARE(contents->item(20)->text().trimmed(), "Last section");
        QTest::mouseClick(contents->viewport(), Qt::LeftButton, {},
                          contents->visualItemRect(contents->item(4)).center());
        const QTextCursor top = shown.Page()->cursorForPosition(QPoint(20, 8));
        QCOMPARE(top.block().text(), "Chapter 5");
    }

    void aGuideWithoutHeadingsHasNoContents()
    {
        const Shown shown("{\\rtf1 just text}");
        QVERIFY(!shown.Find<QListWidget>("lstContents")->isVisible());
        const Shown with(LongGuide());
        QVERIFY(with.Find<QListWidget>("lstContents")->isVisible());
    }

    void keysAndWheelScrollThePageAlsoWhileItIsDisabled()
    {
        Shown shown(LongGuide());
        shown.panel.setEnabled(false);
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_PageDown));
        const int page = shown.Scrolled();
        QVERIFY(page > 200);
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_Down));
        QVERIFY(shown.Scrolled() > page);
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_Up));
        QCOMPARE(shown.Scrolled(), page);
        shown.panel.ScrollByWheel(-120);
        QVERIFY(shown.Scrolled() > page);
        shown.panel.ScrollByWheel(120);
        QCOMPARE(shown.Scrolled(), page);
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_End));
        QCOMPARE(shown.Scrolled(), shown.Page()->verticalScrollBar()->maximum());
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_Home));
        QCOMPARE(shown.Scrolled(), 0);
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_PageDown));
        QVERIFY(shown.panel.ScrollByKey(Qt::Key_PageUp));
        QCOMPARE(shown.Scrolled(), 0);
        QVERIFY(!shown.panel.ScrollByKey(Qt::Key_A));
    }

    void theDisabledPageIsDarkOnLightToo()
    {
        Shown shown(LongGuide());
        for (const bool enabled : {true, false}) {
            shown.panel.setEnabled(enabled);
            const QPalette &palette = shown.Page()->palette();
            QCOMPARE(palette.color(QPalette::Text), QColor(Qt::black));
            QVERIFY(palette.color(QPalette::Base).lightness() > 225);
        }
    }

    void theSearchFindsCountsAndGoesRound()
    {
        Shown shown(LongGuide());
        QVERIFY(shown.active);
        auto *txtFind = shown.Find<QLineEdit>("txtFind");
        auto *lblFound = shown.Find<QLabel>("lblFound");
        QVERIFY(!txtFind->isVisible());
        shown.panel.OpenSearch();
        QVERIFY(txtFind->isVisible());
        QTRY_VERIFY(txtFind->hasFocus());

        QTest::keyClicks(txtFind, "chapter 1");
        QCOMPARE(lblFound->text(), "1 of 11"); // 1 and 10 to 19
        QTest::keyClick(txtFind, Qt::Key_Return);
        QCOMPARE(lblFound->text(), "2 of 11");
        QCOMPARE(shown.Page()->textCursor().block().text(), "Chapter 10");
        QVERIFY(shown.Scrolled() > 0);
        QTest::mouseClick(shown.Find<QPushButton>("cmdPrevious"), Qt::LeftButton);
        QTest::mouseClick(shown.Find<QPushButton>("cmdPrevious"), Qt::LeftButton);
        QCOMPARE(lblFound->text(), "11 of 11");
        QTest::mouseClick(shown.Find<QPushButton>("cmdNext"), Qt::LeftButton);
        QCOMPARE(lblFound->text(), "1 of 11");
        QTest::keyClick(txtFind, Qt::Key_F3);
        QCOMPARE(lblFound->text(), "2 of 11");
        QTest::keyClick(txtFind, Qt::Key_F3, Qt::ShiftModifier);
        QCOMPARE(lblFound->text(), "1 of 11");
        QTest::keyClicks(txtFind, "9");
        QCOMPARE(lblFound->text(), "1 of 1");
        QCOMPARE(shown.Page()->textCursor().block().text(), "Chapter 19");
        QTest::keyClicks(txtFind, "x");
        QCOMPARE(lblFound->text(), "not found");
        QVERIFY(shown.Page()->extraSelections().isEmpty());

        QTest::keyClick(txtFind, Qt::Key_Escape);
        QVERIFY(!txtFind->isVisible());
        QVERIFY(shown.Page()->hasFocus());
    }

    void escapeClosesTheSearchWhereverTheFocusIs_data()
    {
        QTest::addColumn<QString>("focus");
        for (const char *focus : {"txtFind", "cmdNext", "cmdCloseFind", "RTFc", "lstContents"})
            QTest::newRow(focus) << focus;
    }
    void escapeClosesTheSearchWhereverTheFocusIs()
    {
        QFETCH(QString, focus);
        Shown shown(LongGuide());
        QVERIFY(shown.active);
        shown.panel.OpenSearch();
        auto *receiver = shown.Find<QWidget>(focus.toLatin1());
        receiver->setFocus();
        QVERIFY(receiver->hasFocus());
        QTest::keyClick(receiver, Qt::Key_Escape);
        QVERIFY(shown.Find<QWidget>("frmFind")->isHidden());
        QCOMPARE(shown.Find<QLineEdit>("txtFind")->text(), "");
        const bool inBar = shown.Find<QWidget>("frmFind")->isAncestorOf(receiver);
        QVERIFY(inBar ? shown.Page()->hasFocus() : receiver->hasFocus());
    }

    void everyPlaceFoundIsMarkedUntilTheSearchIsClosed()
    {
        Shown shown(LongGuide());
        shown.panel.OpenSearch();
        QTest::keyClicks(shown.Find<QLineEdit>("txtFind"), "chapter");
        QCOMPARE(shown.Page()->extraSelections().size(), 20);
        QTest::mouseClick(shown.Find<QPushButton>("cmdCloseFind"), Qt::LeftButton);
        QVERIFY(shown.Page()->extraSelections().isEmpty());
    }

    void aDisabledPageOpensNoSearch()
    {
        Shown shown(LongGuide());
        shown.panel.setEnabled(false);
        shown.panel.OpenSearch();
        QVERIFY(!shown.Find<QLineEdit>("txtFind")->isVisible());
    }
};

QTEST_MAIN(HelpPanelTest)
#include "helppanel_test.moc"
