#include "ui/levels/frmfader.h"

#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"

#include <QCloseEvent>
#include <QKeyEvent>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int TwipsPerPixel = 15;
constexpr int DialogWidth = 1080 / TwipsPerPixel;
/// What the dialog's height leaves to everything but the slider.
constexpr int HeightBesideSlider = 1200 / TwipsPerPixel;
constexpr int FirstHeight = 360;
constexpr int LowestHeight = 200;

} // namespace

FrmFader::FrmFader(QWidget *parent, LevelField::Take take)
    : QDialog(parent),
      lblVol_(Named(new LevelField(FaderRule, entries_, std::move(take)), "lblVol")),
      sclVol_(Named(new LevelSlider(FaderRule, entries_), "sclVol"))
{
    Named(this, "frmFader");
    setWindowTitle("Fader:");
    sclVol_->setAccessibleName("Fader");
    lblVol_->setAccessibleName("Fader");
    auto *board = new LevelBoard(FaderMarks());
    board->Add(sclVol_, 1);
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 9, 6, 9);
    // The slider's height follows the window's, never the other way round.
    rows->setSizeConstraint(QLayout::SetNoConstraint);
    rows->addWidget(board);
    rows->addStretch();
    rows->addWidget(lblVol_, 0, Qt::AlignHCenter);
    setFixedWidth(DialogWidth);
    setMinimumHeight(LowestHeight);
    resize(DialogWidth, FirstHeight);
}

void FrmFader::keyPressEvent(QKeyEvent *event)
{
    // Not the dialog's own handling, which closes on Escape.
    // NOLINTNEXTLINE(bugprone-parent-virtual-call)
    QWidget::keyPressEvent(event);
}

void FrmFader::resizeEvent(QResizeEvent *event)
{
    sclVol_->setFixedHeight(height() - HeightBesideSlider);
    QDialog::resizeEvent(event);
}

void FrmFader::closeEvent(QCloseEvent *event)
{
    // A bad value has been told by now; the dialog goes all the same.
    if (!entries_.CommitEntry())
        lblVol_->Drop();
    hide();
    event->accept();
}

} // namespace kelvo
