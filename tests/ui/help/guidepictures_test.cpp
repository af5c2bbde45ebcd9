#include "ui/help/helppanel.h"

#include <QBuffer>
#include <QPainter>
#include <QScrollBar>
#include <QTemporaryDir>
#include <QTest>
#include <QTextBlock>
#include <QtEndian>

using namespace kelvo;

namespace {

constexpr auto OtherKind = "[A picture of a kind that cannot be shown here]";
constexpr auto Damaged = "[A picture that cannot be read]";
const QString PictureMark = QChar(QChar::ObjectReplacementCharacter);

/// A picture file: left half red, right half blue.
QByteArray PictureFile(const char *format, int width, int height)
{
    QImage image(width, height, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.fillRect(0, 0, width / 2, height, Qt::red);
    painter.fillRect(width / 2, 0, width - width / 2, height, Qt::blue);
    painter.end();
    QByteArray bytes;
    QBuffer buffer(&bytes);
    [&] { QVERIFY(image.save(&buffer, format)); }();
    return bytes;
}

QByteArray Hex(const QByteArray &words, const QByteArray &bytes)
{
    return "{\\pict" + words + "\n" + bytes.toHex() + "}";
}

/// The sum that follows a part of a PNG file.
quint32 CheckSum(const QByteArray &part)
{
    quint32 sum = 0xffffffff;
    for (const char byte : part) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = sum >> 1 ^ (sum & 1 ? 0xedb88320 : 0);
    }
    return ~sum;
}

/// The page with a guide of this body.
struct Shown {
    explicit Shown(const QByteArray &body)
    {
        panel.resize(900, 700);
        panel.show();
        active = QTest::qWaitForWindowExposed(&panel);
        QFile file(folder.filePath("guide.rtf"));
        active = active && file.open(QIODevice::WriteOnly) && file.write("{\\rtf1 " + body + "}") > 0;
        file.close();
        panel.LoadHelp(file.fileName());
    }
    QString Text() const { return panel.Page()->toPlainText(); }
    /// How the page's picture is set; an empty format when there is none.
    QTextImageFormat Format() const
    {
        const QTextCursor place = panel.Page()->document()->find(PictureMark);
        return place.charFormat().toImageFormat();
    }
    QSize Size() const { return QSizeF(Format().width(), Format().height()).toSize(); }
    bool ShowsColour(const QColor &colour) const
    {
        const QImage seen = panel.Page()->viewport()->grab().toImage();
        for (int y = 0; y < seen.height(); y += 5)
            for (int x = 0; x < seen.width(); x += 5) {
                const QColor at = seen.pixelColor(x, y);
                const int away = std::abs(at.red() - colour.red()) + std::abs(at.green() - colour.green()) +
                                 std::abs(at.blue() - colour.blue());
                if (away < 30)
                    return true;
            }
        return false;
    }

    QTemporaryDir folder;
    HelpPanel panel;
    bool active = false;
};

} // namespace

class GuidePicturesTest : public QObject {
    Q_OBJECT

  private slots:
    void aPictureIsSeenBetweenItsWords_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QByteArray>("format");
        QTest::newRow("PNG") << QByteArray("\\pngblip") << QByteArray("PNG");
        QTest::newRow("JPEG") << QByteArray("\\jpegblip") << QByteArray("JPEG");
    }
    void aPictureIsSeenBetweenItsWords()
    {
        QFETCH(QByteArray, words);
        QFETCH(QByteArray, format);
        const Shown shown("before" + Hex(words, PictureFile(format, 80, 40)) + "after");
        QVERIFY(shown.active);
        QCOMPARE(shown.Text(), "before" + PictureMark + "after");
        QCOMPARE(shown.Size(), QSize(80, 40));
        QVERIFY(shown.ShowsColour(Qt::red));
        QVERIFY(shown.ShowsColour(Qt::blue));
    }

    void binaryBytesAreAPictureToo()
    {
        const QByteArray file = PictureFile("PNG", 80, 40);
        const Shown shown("{\\pict\\pngblip\\bin" + QByteArray::number(file.size()) + " " + file + "}after");
        QCOMPARE(shown.Text(), PictureMark + "after");
        QVERIFY(shown.ShowsColour(Qt::red));
    }

    void aPictureIsAsLargeAsTheGuideWants_data()
    {
        QTest::addColumn<QByteArray>("words");
        QTest::addColumn<QSize>("size");
        QTest::newRow("as it comes") << QByteArray() << QSize(80, 40);
        // 15 twips are a pixel.
        QTest::newRow("twips") << QByteArray("\\picwgoal1500\\pichgoal3000") << QSize(100, 200);
        QTest::newRow("twips and scale")
            << QByteArray("\\picwgoal1500\\pichgoal3000\\picscalex50\\picscaley200") << QSize(50, 400);
        QTest::newRow("scale alone") << QByteArray("\\picscalex200\\picscaley50") << QSize(160, 20);
        QTest::newRow("wider than a page") << QByteArray("\\picwgoal18000\\pichgoal9000") << QSize(600, 300);
        QTest::newRow("higher than a page") << QByteArray("\\picwgoal3000\\pichgoal24000") << QSize(100, 800);
    }
    void aPictureIsAsLargeAsTheGuideWants()
    {
        QFETCH(QByteArray, words);
        QFETCH(QSize, size);
        const Shown shown(Hex("\\pngblip" + words, PictureFile("PNG", 80, 40)));
        QCOMPARE(shown.Size(), size);
    }

    void anotherKindIsTold()
    {
        const Shown shown("before {\\pict\\wmetafile8 0100090000} after");
        QCOMPARE(shown.Text(), QString("before %1 after").arg(OtherKind));
    }

    void aDamagedPictureCostsOnlyItself_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        const QByteArray whole = PictureFile("PNG", 80, 40);
        QTest::newRow("no picture at all") << QByteArray("just words");
        QTest::newRow("cut off in its header") << whole.left(20);
        QByteArray vast = whole;
        // The header's width and height, a million each, and the sum that makes it a good header.
        vast.replace(16, 8, QByteArray::fromHex("000f4240000f4240"));
        QByteArray sum(4, '\0');
        qToBigEndian(CheckSum(vast.mid(12, 17)), sum.data());
        vast.replace(29, 4, sum);
        QTest::newRow("of a million by a million pixels") << vast;
        QTest::newRow("a file of another kind") << PictureFile("BMP", 80, 40);
    }
    void aDamagedPictureCostsOnlyItself()
    {
        QFETCH(QByteArray, bytes);
        const Shown shown("a" + Hex("\\pngblip", bytes) + "b" + Hex("\\pngblip", PictureFile("PNG", 80, 40)) +
                          "c");
        QCOMPARE(shown.Text(), QString("a%1b%2c").arg(Damaged, PictureMark));
        QVERIFY(shown.ShowsColour(Qt::red));
    }

    void picturesBeyondTheBoundAreTold()
    {
        // 20 million pixels each, of which two fit.
        const QByteArray large = Hex("\\pngblip", PictureFile("PNG", 5'000, 4'000));
        const Shown shown(large + large + large + "end");
        QCOMPARE(shown.Text(), QString("%1%1%2end").arg(PictureMark, Damaged));
        QCOMPARE(shown.Size(), QSize(600, 480));
    }

    void aPictureOfATableStandsInItsCell()
    {
        const Shown shown("\\trowd\\cellx2000\\cellx6000\\pard\\intbl a\\cell " +
                          Hex("\\pngblip", PictureFile("PNG", 80, 40)) + "\\cell\\row\\pard after");
        QVERIFY(shown.panel.Page()->document()->find(PictureMark).currentTable());
        QVERIFY(shown.ShowsColour(Qt::blue));
    }

    void theNextGuideHasOnlyItsOwnPictures()
    {
        Shown shown(Hex("\\pngblip", PictureFile("PNG", 80, 40)));
        shown.panel.LoadHelp({});
        QVERIFY(!shown.panel.Page()
                     ->document()
                     ->resource(QTextDocument::ImageResource, QUrl("picture:0"))
                     .isValid());
    }

    void plainUtf8IsShown()
    {
        QCOMPARE(Shown("R\xc3\xa9publique").Text(), QString::fromUtf8("R\xc3\xa9publique"));
        QTemporaryDir folder;
        QFile file(folder.filePath("guide.rtf"));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write("R\xc3\xa9publique\n\xd0\x94\xd0\xb0");
        file.close();
        HelpPanel panel;
        panel.LoadHelp(file.fileName());
        QCOMPARE(panel.Page()->toPlainText(), QString::fromUtf8("R\xc3\xa9publique\n\xd0\x94\xd0\xb0"));
    }
};

QTEST_MAIN(GuidePicturesTest)
#include "guidepictures_test.moc"
