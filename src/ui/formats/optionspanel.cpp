#include "ui/formats/optionspanel.h"

#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/formats/messages.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QVBoxLayout>

namespace kelvo {

namespace {

OptionButton *BuildOption(const char *name, FieldId field, int index, QButtonGroup *group)
{
    auto *option = Named(new OptionButton(FieldOf(field).scale->choices[index]), name, index);
    group->addButton(option, index);
    return option;
}

} // namespace

OptionsPanel::OptionsPanel(Editor &editor, QPushButton *cmdUp) : editor_(editor)
{
    auto *left = new QVBoxLayout;
    left->setSpacing(GroupSpacing);
    left->addWidget(BuildPowerOnFormat());
    left->addWidget(BuildF1Key());
    left->addStretch();
    auto *right = new QVBoxLayout;
    right->setSpacing(GroupSpacing);
    right->addWidget(BuildNonsync());
    right->addWidget(BuildDelays());
    right->addWidget(BuildMatrix());
    right->addStretch();

    auto *layout = new QGridLayout(this);
    layout->setHorizontalSpacing(GroupSpacing);
    layout->setVerticalSpacing(GroupSpacing);
    layout->addLayout(left, 0, 0);
    layout->addLayout(right, 0, 1);
    layout->addWidget(cmdUp, 1, 1, Qt::AlignRight);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}

QGroupBox *OptionsPanel::BuildPowerOnFormat()
{
    auto *group = new QGroupBox("Power On Format");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    QButtonGroup *optDefaultFormat = BuildGroup(group, field::DefaultFormat);
    for (const int index : messages::PowerOnScreenOrder)
        layout->addWidget(BuildOption("optDefaultFormat", field::DefaultFormat, index, optDefaultFormat));
    return group;
}

QGroupBox *OptionsPanel::BuildF1Key()
{
    auto *group = new QGroupBox("F1 (MONO) Format Key Assignment");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    QButtonGroup *optF1Key = BuildGroup(group, field::F1KeyMode);
    for (int index = 0; index <= FieldOf(field::F1KeyMode).scale->last; ++index)
        layout->addWidget(BuildOption("optF1Key", field::F1KeyMode, index, optF1Key));
    return group;
}

QGroupBox *OptionsPanel::BuildNonsync()
{
    auto *group = new QGroupBox("Non-Sync");
    auto *layout = new QFormLayout(group);
    QComboBox *mode = BuildList("cboNonsyncMode", field::NonsyncMode);
    AddChoices(mode, field::NonsyncMode);
    QComboBox *trim = BuildList("cboNonsyncTrim", field::NonsyncTrim);
    AddChoices(trim, field::NonsyncTrim);
    layout->addRow("Outputs:", mode);
    layout->addRow("Trim:", trim);
    return group;
}

QGroupBox *OptionsPanel::BuildDelays()
{
    auto *group = new QGroupBox("Delays");
    auto *layout = new QFormLayout(group);
    cboReaderDelay_ = BuildList("cboReaderDelay", field::ReaderDelay);
    QComboBox *surround = BuildList("cboSurroundDelay", field::SurroundDelay);
    AddChoices(surround, field::SurroundDelay);
    layout->addRow("Reader:", cboReaderDelay_);
    layout->addRow("Surround:", surround);
    return group;
}

QGroupBox *OptionsPanel::BuildMatrix()
{
    auto *group = new QGroupBox("Matrix");
    auto *layout = new QVBoxLayout(group);
    chkDisableMatrix_ = Named(new CheckBox(messages::MatrixDisabled), "chkDisableMatrix");
    layout->addWidget(chkDisableMatrix_);
    connect(chkDisableMatrix_, &QCheckBox::clicked, this, &OptionsPanel::chkDisableMatrix_Click);
    return group;
}

ChoiceList *OptionsPanel::BuildList(const char *name, FieldId field)
{
    auto *list = Named(new ChoiceList, name);
    list->setAccessibleName(QString::fromStdString(Name(field)));
    choices_.emplace_back(field, editor_, list);
    return list;
}

QButtonGroup *OptionsPanel::BuildGroup(QWidget *parent, FieldId field)
{
    auto *group = new QButtonGroup(parent);
    choices_.emplace_back(field, editor_, group);
    return group;
}

void OptionsPanel::InitialiseLookupArrays()
{
    cboReaderDelay_->clear();
    AddChoices(cboReaderDelay_, field::ReaderDelay);
}

void OptionsPanel::Show(const Changed &changed)
{
    for (const FieldChoice &choice : choices_)
        choice.Show(changed);
    if (changed.Has(field::DisableMatrix))
        ShowChoice(chkDisableMatrix_, editor_.Room().System.DisableMatrix);
}

void OptionsPanel::ShowUnsent(const FieldSet &unsent)
{
    for (const FieldChoice &choice : choices_)
        choice.ShowUnsent(unsent);
}

void OptionsPanel::chkDisableMatrix_Click(bool checked)
{
    // A click on the third state, which only an odd byte shows, has left it for good.
    chkDisableMatrix_->setTristate(false);
    editor_.Apply(Edit::One(field::DisableMatrix, checked ? 1 : 0));
}

} // namespace kelvo
