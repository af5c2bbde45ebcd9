#include "ui/compare/frmdiffers.h"

#include "files/atomicfile.h"
#include "ui/compare/messages.h"
#include "ui/compare/words.h"
#include "ui/controls/filedialog.h"
#include "ui/controls/messages.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"

#include <QClipboard>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace kelvo {

namespace {

constexpr QSize UsualSize(640, 480);

/// The chosen fields of another room, as one edit: live values stay.
Edit TakeFrom(const QString &name, const RoomSettings &room, std::vector<FieldId> fields)
{
    const QString step = fields.size() == 1 ? QString(messages::TakeOne).arg(name)
                                            : QString(messages::TakeMany).arg(fields.size()).arg(name);
    auto make = [room, fields](RoomSettings &into) {
        for (const FieldId id : fields) {
            const Field &field = FieldOf(id);
            if (field.place == Place::Text)
                into.TheaterInfo[field.at] = room.TheaterInfo[field.at];
            else
                Set(into, id, Get(room, id));
        }
    };
    return {step.toStdString(), std::move(fields), std::move(make)};
}

} // namespace

FrmDiffers::FrmDiffers(Desk desk, QSettings &memory, QWidget *parent)
    : ToolWindow("frmDiffers", messages::DiffersTitle, UsualSize, memory, parent),
      desk_(std::move(desk)),
      cboLeft_(new SideBox("cboLeft", messages::LeftName)),
      cboRight_(new SideBox("cboRight", messages::RightName)),
      txtFilter_(Named(new QLineEdit, "txtFilter")),
      place_(new QStackedWidget),
      tblDiffers_(new DifferencesTable),
      lblProblem_(Named(new QLabel, "lblProblem")),
      lblDiffers_(Named(new QLabel, "lblDiffers")),
      cmdReadAgain_(Button("cmdReadAgain", messages::ReadAgainCaption, &FrmDiffers::cmdReadAgain_Click)),
      cmdTake_(Button("cmdTake", messages::TakeCaption, &FrmDiffers::cmdTake_Click)),
      cmdCopyTable_(Button("cmdCopyTable", messages::CopyCaption, &FrmDiffers::cmdCopyTable_Click)),
      cmdSaveTable_(Button("cmdSaveTable", messages::SaveCaption, &FrmDiffers::cmdSaveTable_Click))
{
    lblProblem_->setWordWrap(true);
    lblProblem_->setTextFormat(Qt::PlainText);
    lblProblem_->setAlignment(Qt::AlignCenter);
    place_->addWidget(tblDiffers_);
    place_->addWidget(lblProblem_);
    auto *column = new QVBoxLayout(this);
    column->addLayout(BuildSides());
    column->addWidget(place_, 1);
    column->addWidget(lblDiffers_);
    column->addLayout(BuildButtons());
    connect(tblDiffers_, &DifferencesTable::ChoiceChanged, this, &FrmDiffers::ReflectButtons);
    cboLeft_->Choose(ScreenSide(desk_.editor));
    cboRight_->Choose(UnitSide(desk_.link));
    txtFilter_->setFocus();
}

QPushButton *FrmDiffers::Button(const char *name, const char *caption, void (FrmDiffers::*handler)())
{
    auto *button = Named(new QPushButton(caption), name);
    button->setAutoDefault(false); // Enter in the filter presses none of them
    connect(button, &QPushButton::clicked, this, handler);
    return button;
}

QLayout *FrmDiffers::BuildSides()
{
    for (SideBox *box : {cboLeft_, cboRight_}) {
        connect(box, &SideBox::SideChosen, this, &FrmDiffers::Refresh);
        connect(box, &SideBox::FileWanted, this, [this, box] { ChooseFile(box); });
    }
    txtFilter_->setPlaceholderText(messages::FilterHint);
    txtFilter_->setAccessibleName(messages::FilterName);
    txtFilter_->setClearButtonEnabled(true);
    connect(txtFilter_, &QLineEdit::textChanged, this, [this](const QString &text) {
        tblDiffers_->Filter(text);
        ReflectButtons();
    });
    auto *row = new QHBoxLayout;
    row->setSpacing(Spacing);
    row->addWidget(cboLeft_, 2);
    row->addWidget(new QLabel(messages::AgainstCaption));
    row->addWidget(cboRight_, 2);
    row->addSpacing(GroupSpacing);
    row->addWidget(txtFilter_, 1);
    return row;
}

QLayout *FrmDiffers::BuildButtons()
{
    cmdReadAgain_->setToolTip(messages::ReadAgainHint);
    cmdTake_->setToolTip(messages::TakeHint);
    auto *row = new QHBoxLayout;
    row->setSpacing(Spacing);
    row->addWidget(cmdReadAgain_);
    row->addWidget(cmdTake_);
    row->addStretch();
    row->addWidget(cmdCopyTable_);
    row->addWidget(cmdSaveTable_);
    return row;
}

void FrmDiffers::Follow()
{
    if (!isVisible() || following_)
        return;
    following_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            following_ = false;
            Refresh();
        },
        Qt::QueuedConnection);
}

void FrmDiffers::SidesChanged()
{
    std::vector<NamedSide> sides{ScreenSide(desk_.editor), UnitSide(desk_.link)};
    std::ranges::copy(desk_.kept(), std::back_inserter(sides));
    sides.push_back(FactorySide(desk_.editor));
    std::ranges::copy(files_, std::back_inserter(sides));
    for (SideBox *box : {cboLeft_, cboRight_}) {
        box->Offer(sides);
        box->ReadAnew();
    }
    Refresh();
}

void FrmDiffers::showEvent(QShowEvent *event)
{
    SidesChanged();
    ToolWindow::showEvent(event);
}

void FrmDiffers::changeEvent(QEvent *event)
{
    // Slots are kept and files saved elsewhere; whoever comes back here sees them as they are.
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && isVisible())
        SidesChanged();
    ToolWindow::changeEvent(event);
}

void FrmDiffers::Refresh()
{
    const SideReading &left = cboLeft_->Reading();
    const SideReading &right = cboRight_->Reading();
    Differences found;
    QStringList problems{left.problem, right.problem};
    problems.removeAll(QString());
    problems.removeDuplicates();
    if (problems.isEmpty())
        found = DifferencesOf(left.side, right.side);
    tblDiffers_->Show(found.rows, cboLeft_->Chosen().name, cboRight_->Chosen().name);
    lblProblem_->setText(problems.join('\n'));
    place_->setCurrentIndex(problems.isEmpty() ? 0 : 1);
    lblDiffers_->setText(problems.isEmpty() ? DiffersText(found) : QString());
    ReflectButtons();
}

void FrmDiffers::ReflectButtons()
{
    const bool rows = tblDiffers_->model()->rowCount() > 0;
    cmdReadAgain_->setEnabled(HasUnit() && desk_.link.UnitOnline() && !desk_.streaming());
    cmdTake_->setEnabled(TakenFrom() && !tblDiffers_->ChosenFields().empty());
    cmdCopyTable_->setEnabled(rows);
    cmdSaveTable_->setEnabled(rows);
}

bool FrmDiffers::HasUnit() const
{
    return cboLeft_->Chosen().kind == NamedSide::Unit || cboRight_->Chosen().kind == NamedSide::Unit;
}

SideBox *FrmDiffers::TakenFrom() const
{
    const bool left = cboLeft_->Chosen().kind == NamedSide::Screen;
    const bool right = cboRight_->Chosen().kind == NamedSide::Screen;
    if (left == right)
        return nullptr;
    return left ? cboRight_ : cboLeft_;
}

void FrmDiffers::ChooseFile(SideBox *box)
{
    QFileDialog dialog(this);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({messages::SettingsFilter, messages::OldFilter});
    const QString path = RunDialog(dialog);
    if (path.isEmpty())
        return;
    auto file = std::ranges::find(files_, path, &NamedSide::path);
    if (file == files_.end()) {
        // The same name in two folders is two files.
        QString name = QFileInfo(path).fileName();
        if (std::ranges::find(files_, name, &NamedSide::name) != files_.end())
            name = QDir::toNativeSeparators(path);
        file = files_.insert(file, FileSide(name, path));
    }
    box->Choose(*file);
    SidesChanged();
}

void FrmDiffers::cmdReadAgain_Click()
{
    const std::vector<UnitOp> unread = desk_.link.ReadApart();
    Refresh();
    if (!unread.empty())
        lblDiffers_->setText(UnreadText(messages::NotReadAgain, unread));
}

void FrmDiffers::cmdTake_Click()
{
    if (desk_.link.InCall() || !desk_.entries.CommitEntry())
        return;
    SideBox *from = TakenFrom();
    std::vector<FieldId> fields = tblDiffers_->ChosenFields();
    if (from && !fields.empty())
        desk_.editor.Command(TakeFrom(from->Chosen().name, from->Reading().side.room, std::move(fields)));
}

void FrmDiffers::cmdCopyTable_Click()
{
    const std::string table = ToTabs(tblDiffers_->ShownRows(), cboLeft_->Chosen().name.toStdString(),
                                     cboRight_->Chosen().name.toStdString());
    QGuiApplication::clipboard()->setText(QString::fromStdString(table));
}

void FrmDiffers::cmdSaveTable_Click()
{
    QFileDialog dialog(this);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setFileMode(QFileDialog::AnyFile);
    dialog.setNameFilters({messages::TableFilter});
    dialog.selectFile(messages::TableFile);
    const QString path = RunDialog(dialog);
    if (path.isEmpty())
        return;
    const std::string table = ToCsv(tblDiffers_->ShownRows(), cboLeft_->Chosen().name.toStdString(),
                                    cboRight_->Chosen().name.toStdString());
    if (const auto failure = WriteWhole(path.toStdString(), table))
        Tell(this, messages::CannotSave,
             {QDir::toNativeSeparators(path), QString::fromStdString(failure->reason)});
}

} // namespace kelvo
