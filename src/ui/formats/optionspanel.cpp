#include "ui/formats/optionspanel.h"

#include "model/tables.h"
#include "ui/controls/choices.h"
#include "ui/controls/named.h"
#include "ui/controls/spacing.h"
#include "ui/controls/uploadbutton.h"
#include "ui/formats/messages.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr int HighestNonsyncTrim = 20; ///< decibels
constexpr int SurroundDelayCount = 11; ///< 0 to 100 ms in tens

OptionButton *BuildOption(const char *name, int index, const char *caption, QButtonGroup *group)
{
    auto *option = Named(new OptionButton(QString::fromUtf8(caption)), name, index);
    group->addButton(option, index);
    return option;
}

} // namespace

OptionsPanel::OptionsPanel(Settings &settings, UnitLink &link, EntryWindow &entries,
                           std::function<void(const QString &)> showF1Caption)
    : settings_(settings),
      link_(link),
      showF1Caption_(std::move(showF1Caption))
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
    layout->addWidget(BuildUploadButton(4, link, entries), 1, 1, Qt::AlignRight);
    layout->setRowStretch(0, 1);
    layout->setColumnStretch(0, 1);
    layout->setColumnStretch(1, 1);
}

QGroupBox *OptionsPanel::BuildPowerOnFormat()
{
    auto *group = new QGroupBox("Power On Format");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    optDefaultFormat_ = new QButtonGroup(group);
    for (const int index : messages::PowerOnScreenOrder)
        layout->addWidget(
            BuildOption("optDefaultFormat", index, messages::PowerOnFormats[index], optDefaultFormat_));
    connect(optDefaultFormat_, &QButtonGroup::idClicked, this, StoreIn(&SystemBlock::DefaultFormat));
    return group;
}

QGroupBox *OptionsPanel::BuildF1Key()
{
    auto *group = new QGroupBox("F1 (MONO) Format Key Assignment");
    auto *layout = new QVBoxLayout(group);
    layout->setSpacing(Spacing);
    optF1Key_ = new QButtonGroup(group);
    for (int index = 0; index < int(messages::F1Captions.size()); ++index)
        layout->addWidget(BuildOption("optF1Key", index, messages::F1Captions[index].option, optF1Key_));
    connect(optF1Key_, &QButtonGroup::idClicked, this, &OptionsPanel::optF1Key_Click);
    return group;
}

QGroupBox *OptionsPanel::BuildNonsync()
{
    auto *group = new QGroupBox("Non-Sync");
    auto *layout = new QFormLayout(group);
    cboNonsyncMode_ = BuildList("cboNonsyncMode", "Non-sync outputs");
    for (const char *mode : messages::NonsyncModes)
        cboNonsyncMode_->addItem(mode);
    cboNonsyncTrim_ = BuildList("cboNonsyncTrim", "Non-sync trim");
    for (int trim = 0; trim <= HighestNonsyncTrim; ++trim)
        cboNonsyncTrim_->addItem(QString("%1 dB").arg(-trim));
    layout->addRow("Outputs:", cboNonsyncMode_);
    layout->addRow("Trim:", cboNonsyncTrim_);
    connect(cboNonsyncMode_, &QComboBox::activated, this, StoreIn(&SystemBlock::NonsyncMode));
    connect(cboNonsyncTrim_, &QComboBox::activated, this, StoreIn(&SystemBlock::NonsyncTrim));
    return group;
}

QGroupBox *OptionsPanel::BuildDelays()
{
    auto *group = new QGroupBox("Delays");
    auto *layout = new QFormLayout(group);
    cboReaderDelay_ = BuildList("cboReaderDelay", "Optical reader delay");
    cboSurroundDelay_ = BuildList("cboSurroundDelay", "Surround delay");
    for (int index = 0; index < SurroundDelayCount; ++index)
        cboSurroundDelay_->addItem(QString("%1 mS").arg(10 * index));
    layout->addRow("Reader:", cboReaderDelay_);
    layout->addRow("Surround:", cboSurroundDelay_);
    connect(cboReaderDelay_, &QComboBox::activated, this, &OptionsPanel::cboReaderDelay_Click);
    connect(cboSurroundDelay_, &QComboBox::activated, this, StoreIn(&SystemBlock::SurroundDelay));
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

QComboBox *OptionsPanel::BuildList(const char *name, const QString &label)
{
    auto *list = Named(new ChoiceList, name);
    list->setAccessibleName(label);
    return list;
}

void OptionsPanel::InitialiseLookupArrays()
{
    cboReaderDelay_->clear();
    for (int index = 0; index < ReaderDelayCount; ++index)
        cboReaderDelay_->addItem(QString::fromStdString(ReaderDelayText(index)));
}

void OptionsPanel::Show()
{
    const SystemBlock &system = settings_.System;
    ShowChoice(cboSurroundDelay_, system.SurroundDelay);
    ShowChoice(cboNonsyncMode_, system.NonsyncMode);
    ShowChoice(cboNonsyncTrim_, system.NonsyncTrim);
    ShowChoice(optDefaultFormat_, system.DefaultFormat);
    ShowChoice(optF1Key_, system.F1KeyMode);
    ShowChoice(chkDisableMatrix_, system.DisableMatrix);
    ShowChoice(cboReaderDelay_, ReaderDelayIndex(system));
}

QString OptionsPanel::F1CaptionOfUnit() const
{
    const Byte mode = settings_.System.F1KeyMode;
    return mode < messages::F1Captions.size() ? messages::F1Captions[mode].afterConnection
                                              : messages::F1Unknown;
}

std::function<void(int)> OptionsPanel::StoreIn(Byte SystemBlock::*option)
{
    return [this, option](int index) {
        settings_.System.*option = Byte(index);
        SendOption();
    };
}

void OptionsPanel::optF1Key_Click(int index)
{
    settings_.System.F1KeyMode = Byte(index);
    SendOption();
    showF1Caption_(messages::F1Captions[index].afterChoice);
}

void OptionsPanel::cboReaderDelay_Click(int index)
{
    SetReaderDelayIndex(settings_.System, index);
    SendOption();
}

void OptionsPanel::chkDisableMatrix_Click(bool checked)
{
    // A click on the third state, which only an odd byte shows, has left it for good.
    chkDisableMatrix_->setTristate(false);
    settings_.System.DisableMatrix = checked ? 1 : 0;
    SendOption();
}

void OptionsPanel::SendOption()
{
    settings_.SettingsChanged = true;
    link_.UploadToUnit(UploadSelector::SystemOnly, UploadTrigger::AfterEdit);
}

} // namespace kelvo
