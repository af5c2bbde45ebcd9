#include "ui/levels/masterfader.h"

#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"
#include "ui/levels/frmfader.h"
#include "ui/levels/messages.h"

#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace kelvo {

MasterFader::MasterFader(Editor &editor, UnitLink &link, EntryWindow &entries, QWidget *window)
    : QObject(window),
      editor_(editor),
      link_(link),
      entries_(entries),
      window_(window),
      sclVol_(Named(new LevelSlider(FaderRule, entries), "sclVol"))
{
    sclVol_->setAccessibleName("Fader");
    Wire(sclVol_);
    for (int index = 0; index < FieldCount; ++index) {
        auto *field = new LevelField(FaderRule, entries, [this](int tenths) { SetLevel(tenths); });
        field->setAccessibleName("Fader");
        lblVol_[index] = Named(field, "lblVol", index);
    }
}

QGroupBox *MasterFader::BuildMaster()
{
    master_ = Named(new QGroupBox, "Frame1", 5);
    auto *board = new LevelBoard(FaderMarks());
    board->Add(sclVol_, 1);
    auto *rows = new QVBoxLayout(master_);
    rows->addWidget(new QLabel(" Fader"), 0, Qt::AlignHCenter);
    rows->addWidget(board, 1, Qt::AlignHCenter);
    rows->addWidget(lblVol_[3], 0, Qt::AlignHCenter);
    return master_;
}

QGroupBox *MasterFader::BuildFrame(const char *name, int index)
{
    auto *frame = Named(new QGroupBox("Master Fader"), name);
    auto *cmdSet7 = Named(new QPushButton("Set Fader = 7.0"), "cmdSet7", index);
    auto *cmdAdjust = Named(new QPushButton("Adjust Fader"), "cmdAdjust", index);
    connect(cmdSet7, &QPushButton::clicked, this, [this] { cmdSet7_Click(); });
    connect(cmdAdjust, &QPushButton::clicked, this, [this] { cmdAdjust_Click(); });
    auto *rows = new QVBoxLayout(frame);
    rows->addWidget(lblVol_[index], 0, Qt::AlignHCenter);
    rows->addWidget(cmdSet7);
    rows->addWidget(cmdAdjust);
    return frame;
}

void MasterFader::Wire(LevelSlider *slider)
{
    slider->RefuseLeaps();
    slider->SetStep([this](int positions) { sclVol_Step(positions); });
    connect(slider, &LevelSlider::Taken, this, [this] { sclVol_Taken(); });
    connect(slider, &LevelSlider::Moved, this, [this, slider] { sclVol_Moved(*slider); });
    connect(slider, &LevelSlider::Placed, this, [this, slider] { sclVol_Placed(*slider); });
    connect(slider, &LevelSlider::Dropped, this, [this] { sclVol_Dropped(); });
}

void MasterFader::BuildDialog()
{
    frmFader_ = new FrmFader(window_, [this](int tenths) { SetLevel(tenths); });
    Wire(frmFader_->Slider());
    entries_.dialog = &frmFader_->Entries();
    master_->installEventFilter(this);
}

/// The dialog can be operated when the frame beside the tabs can.
bool MasterFader::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == master_ && event->type() == QEvent::EnabledChange)
        frmFader_->setEnabled(master_->isEnabled());
    return QObject::eventFilter(watched, event);
}

void MasterFader::Show(const Changed &changed)
{
    if (changed.Has(field::Fader))
        ReflectVolumeLevel();
}

void MasterFader::ShowUnsent(const FieldSet &unsent)
{
    for (LevelSlider *slider : {frmFader_->Slider(), sclVol_})
        slider->MarkUnsent(unsent.test(std::size_t(field::Fader)));
}

void MasterFader::ReflectVolumeLevel()
{
    const int level = editor_.Room().FaderLevel;
    const QString text = QString::fromStdString(FaderRule.TextOf(level));
    for (LevelField *field : lblVol_)
        field->ShowMoved(text);
    frmFader_->Field()->ShowMoved(text);
    for (LevelSlider *slider : {frmFader_->Slider(), sclVol_})
        slider->ShowPosition(FaderRule.PositionFor(level));
}

QString MasterFader::FieldText() const
{
    return lblVol_[0]->text();
}

void MasterFader::SetNominal()
{
    lblVol_[0]->setText(QString::fromStdString(FaderRule.TextOf(NominalFader)));
    lblVol_[0]->Validate();
}

void MasterFader::cmdSet7_Click()
{
    if (entries_.CommitEntry() && Ask(window_, messages::SetFader7))
        SetLevel(NominalFader);
}

void MasterFader::cmdAdjust_Click()
{
    // Taken here: the slider gets the focus while the dialog is not active, so the field is not left.
    if (!entries_.CommitEntry())
        return;
    frmFader_->show();
    frmFader_->raise();
    frmFader_->activateWindow();
    frmFader_->Slider()->setFocus();
}

/// Decides which of the two sliders a change that no hand made belongs to.
bool MasterFader::FaderDialogActive() const
{
    return frmFader_->Slider()->hasFocus();
}

void MasterFader::sclVol_Taken()
{
    takenAt_ = editor_.Room().FaderLevel;
    if (!std::exchange(held_, true))
        link_.BeginChange();
    // A poll must not move the thumb under the hand. What somebody else stopped is left alone.
    if (link_.Polling()) {
        pausedPolling_ = true;
        link_.SetPolling(false);
    }
}

void MasterFader::sclVol_Dropped()
{
    if (std::exchange(pausedPolling_, false))
        link_.SetPolling(true);
    const int level = editor_.Room().FaderLevel;
    if (level != takenAt_)
        editor_.Apply(Edit::One(field::Fader, level));
    if (std::exchange(held_, false))
        link_.EndChange();
}

void MasterFader::sclVol_Step(int positions)
{
    if (link_.Updating)
        return;
    const int level = std::clamp(editor_.Room().FaderLevel - positions, 0, FieldOf(field::Fader).scale->last);
    editor_.Apply(Edit::One(field::Fader, level), Send::Later);
}

/// A slider that moved although nothing may be edited goes back.
void MasterFader::sclVol_Moved(const LevelSlider &slider)
{
    if (!link_.Updating)
        editor_.Apply(Edit::One(field::Fader, FaderRule.StepsAt(slider.value())), Send::Later);
    ReflectVolumeLevel();
}

void MasterFader::sclVol_Placed(const LevelSlider &slider)
{
    const bool ofDialog = &slider != sclVol_;
    if (ofDialog == FaderDialogActive() && !link_.Updating)
        SetLevel(FaderRule.StepsAt(slider.value()));
    ReflectVolumeLevel();
}

/// A level that the unit is known to hold already is not sent again.
void MasterFader::SetLevel(int level)
{
    const bool news =
        level != editor_.Room().FaderLevel || link_.Holds().LiveOr(field::Fader, Word(level)) != level;
    editor_.Apply(Edit::One(field::Fader, level), news && !link_.Updating ? Send::AfterEdit : Send::Later);
}

} // namespace kelvo
