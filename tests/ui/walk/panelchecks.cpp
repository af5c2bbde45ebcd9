#include "ui/walk/checks.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace kelvo {

namespace {

QString WrongOptions(const Walker &walker)
{
    const SystemBlock &system = walker.Holds().System();
    const ConsoleUnderTest &console = walker.Console();
    for (const auto &[name, byte] :
         {std::pair("optDefaultFormat", system.DefaultFormat), std::pair("optF1Key", system.F1KeyMode)})
        for (const auto *option : console.window->findChildren<QRadioButton *>())
            if (option->objectName().startsWith(name) &&
                option->isChecked() != (option->objectName() == Member(name, byte)))
                return QString("%1 does not show %2").arg(option->objectName()).arg(byte);
    for (const auto &[name, index] : {std::pair("cboNonsyncMode", int(system.NonsyncMode)),
                                      std::pair("cboNonsyncTrim", int(system.NonsyncTrim)),
                                      std::pair("cboSurroundDelay", int(system.SurroundDelay)),
                                      std::pair("cboReaderDelay", ReaderDelayIndex(system))}) {
        auto *list = console.Find<QComboBox>(name);
        if (list->currentIndex() != (index < list->count() ? index : -1))
            return QString("%1 shows %2, not %3").arg(name).arg(list->currentIndex()).arg(index);
    }
    const auto state = system.DisableMatrix == 0   ? Qt::Unchecked
                       : system.DisableMatrix == 1 ? Qt::Checked
                                                   : Qt::PartiallyChecked;
    return console.Find<QCheckBox>("chkDisableMatrix")->checkState() == state ? "" : "chkDisableMatrix";
}

/// The date is the typed one, or the clock of an upload.
QString WrongTheater(const Walker &walker)
{
    const TheaterTexts &texts = walker.Holds().Texts();
    for (int index = 0; index < TheaterTextCount; ++index) {
        const QString shown = walker.Console().Find<QLineEdit>(Member("txtTheaterInfo", index))->text();
        const QString text = QString::fromStdString(texts[std::size_t(index)]);
        constexpr int DateInstalled = 9;
        if (shown != text && !(index == DateInstalled && walker.ClockTexts().contains(shown)))
            return QString("box %1 shows \"%2\", not \"%3\"").arg(index).arg(shown, text);
    }
    return {};
}

QString WrongModes(const Walker &walker)
{
    for (int mode = 0; mode < FormatCount; ++mode) {
        const bool bold = walker.Console().Find<QPushButton>(Member("cmdMode", mode))->font().bold();
        if (bold != (mode == walker.Holds().Format()))
            return QString("cmdMode(%1) is shown otherwise than %2").arg(mode).arg(walker.Holds().Format());
    }
    return {};
}

QString WrongMute(const Walker &walker)
{
    const bool muted = walker.Holds().Muted();
    for (const char *name : {"cmdMute", "cmdMute2", "cmdMute3", "cmdMute4", "cmdMute5"}) {
        auto *button = walker.Console().Find<QPushButton>(name);
        if (button->text() != (muted ? "Un-Mute" : "Mute") || button->font().bold() != muted)
            return QString("%1 reads %2").arg(name, button->text());
    }
    return {};
}

QString WrongMarks(const Walker &walker)
{
    const Preferences &options = walker.Holds().Options();
    for (const auto &[name, checked] :
         {std::pair("mnuAuto", options.AutoUpload), std::pair("mnuConfirm", options.ConfirmUpload),
          std::pair("mnuShort", options.Shortcuts), std::pair("mnuAutoRef", options.AutoRefresh)})
        if (walker.Console().Action(name)->isChecked() != checked)
            return QString("%1 is marked otherwise").arg(name);
    int speeds = 0;
    for (int index = 1; index <= 4; ++index) {
        const auto marked = [&walker, index](const char *name) {
            return walker.Console().Find<QAction>(QString(name).arg(index))->isChecked();
        };
        if (marked("mnuCom%1") != (index == options.ComPort))
            return QString("mnuCom%1 is marked otherwise").arg(index);
        speeds += marked("mnuBaud%1");
    }
    return speeds == 1 ? "" : QString("%1 speeds are marked").arg(speeds);
}

constexpr std::array Checks{
    Check{"options", WrongOptions}, Check{"theatre", WrongTheater}, Check{"modes", WrongModes},
    Check{"mute", WrongMute},       Check{"marks", WrongMarks},
};

} // namespace

std::span<const Check> PanelChecks()
{
    return Checks;
}

} // namespace kelvo
