#include "support/samplertf.h"
#include "ui/walk/walker.h"

#include <QCalendarWidget>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <algorithm>

namespace kelvo {

namespace {

constexpr std::array SavedFiles{"one.zcf", "two.zcf", "three"};

void Write(const QString &path, const std::string &content)
{
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(content.data(), qint64(content.size())) < 0)
        qFatal("cannot write %s", qPrintable(path));
}

} // namespace

/// Files of every kind: rooms with all and any bytes, an old one, and some that are none.
void Walker::WriteFiles()
{
    const auto fill = [this](auto bytes, int count) {
        std::ranges::generate(bytes, [this, count] { return Byte(Number(count)); });
    };
    for (const auto &[name, highest] : {std::pair("tuned.zcf", 21), std::pair("odd.zcf", 256)}) {
        RoomSettings room;
        fill(BytesOf(room.Audio), highest);
        fill(BytesOf(room.System), highest);
        room.FaderLevel = Word(Number(100));
        room.MuteState = Pick({False, True});
        room.CurrentFormat = Word(Number(FormatCount));
        for (std::string &text : room.TheaterInfo)
            text = std::string(std::size_t(Number(30)), 'o');
        Write(folder_.filePath(name), Truth::TextOf(room));
    }
    std::string old(sizeof(AudioBlock) + sizeof(SystemBlock), '\0');
    std::ranges::generate(old, [this] { return char(Number(20)); });
    Write(folder_.filePath("old.cfg"), old);
    Write(folder_.filePath("empty.zcf"), "");
    Write(folder_.filePath("short.cfg"), old.substr(1));
    Write(folder_.filePath("noise.zcf"), old + old);
    Write(folder_.filePath("guide.rtf"), OfficeFile);
}

QString Walker::AnyFile(bool toSave)
{
    static constexpr std::array Others{"tuned.zcf", "tuned.zcf", "odd.zcf",   "old.cfg",
                                       "empty.zcf", "short.cfg", "noise.zcf", "nowhere.zcf"};
    return folder_.filePath(toSave || Chance(2) ? Pick(SavedFiles) : Pick(Others));
}

void Walker::Answer(QDialog *dialog)
{
    ++places[dialog->objectName().startsWith("frm") ? dialog->objectName() : dialog->windowTitle()];
    Pester();
    if (auto *box = qobject_cast<QMessageBox *>(dialog))
        AnswerBox(box);
    else if (auto *files = qobject_cast<QFileDialog *>(dialog))
        AnswerFileDialog(files);
    else if (dialog->objectName() == "frmTheater")
        AnswerTheater(dialog);
    else if (dialog->objectName() == "frmTime")
        AnswerTime(dialog);
    else
        qFatal("the walker does not know what to do with %s", qPrintable(dialog->objectName()));
    // What the answer did not close (a number that was reset, a file that is not there) is called off.
    if (dialog->isVisible())
        QTimer::singleShot(0, dialog, &QDialog::reject);
}

void Walker::Pester()
{
    if (patient || !console_) // there is none while it is starting
        return;
    const int before = witness.calls;
    if (Chance(3))
        for (const char *timer : {"tmrPoll", "tmrRefresh", "tmrOptical", "tmrClock", "Timer2"})
            console_->TickIfActive(timer);
    if (Chance(12))
        console_->window->close();
    if (witness.calls != before)
        Wrong("the unit was called while a box was open");
}

void Walker::AnswerBox(QMessageBox *box)
{
    const QString title = box->windowTitle();
    ++boxes_[title];
    QMessageBox::StandardButton answer = Pick({QMessageBox::Yes, QMessageBox::No});
    if (box->button(QMessageBox::Ok))
        answer = QMessageBox::Ok;
    else if (box->button(QMessageBox::Cancel) && !leaving_)
        answer = QMessageBox::Cancel;
    if (Chance(8))
        QTest::keyClick(box, Qt::Key_Escape);
    else
        QTest::mouseClick(box->button(answer), Qt::LeftButton);
}

void Walker::AnswerFileDialog(QFileDialog *dialog)
{
    if (Chance(5)) {
        dialog->reject();
        return;
    }
    if (dialog->parent() == console_->window.get())
        ledger_.FileMayCome();
    dialog->setDirectory(folder_.path());
    dialog->selectFile(AnyFile(dialog->acceptMode() == QFileDialog::AcceptSave));
    QMetaObject::invokeMethod(dialog, "accept");
}

void Walker::AnswerTheater(QDialog *dialog)
{
    static constexpr std::array Texts{"", "Odeon", "Screen \"3\"", "R\xc3\xa9publique", "1/2 : *", "  "};
    for (int count = Number(3); count >= 0; --count)
        AnyUsableIn<QLineEdit>(dialog)->setText(Pick(Texts));
    QTest::mouseClick(dialog->findChild<QPushButton *>(Chance(4) ? "cmdCan" : "cmdOK"), Qt::LeftButton);
}

void Walker::AnswerTime(QDialog *dialog)
{
    static constexpr std::array Numbers{"", "7", "12", "00", "61", "x", "-1", "1e9"};
    for (const char *box : {"txtHour", "txtMin", "txtSec"})
        if (Chance(2))
            dialog->findChild<QLineEdit *>(box)->setText(Pick(Numbers));
    if (Chance(2))
        QTest::mouseClick(dialog->findChild<QWidget *>("lblAP"), Qt::LeftButton);
    if (Chance(2))
        dialog->findChild<QCalendarWidget *>()->setSelectedDate(
            QDate(2000 + Number(100), 1 + Number(12), 1 + Number(28)));
    QTest::mouseClick(dialog->findChild<QPushButton *>(Chance(4) ? "cmdCan" : "cmdOK"), Qt::LeftButton);
}

} // namespace kelvo
