#include "ui/walk/acts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>

namespace kelvo {

namespace {

void CloseFader(Walker &walker)
{
    if (QDialog *frmFader = walker.Open("frmFader"))
        frmFader->close();
}

// The automatic update.

void SetRefresh(Walker &walker)
{
    QDialog *frmRef = walker.Open("frmRef");
    if (!frmRef)
        return;
    if (walker.Chance(2))
        walker.Click(frmRef->findChild<QCheckBox *>("chkRef"));
    auto *txtRef = frmRef->findChild<QLineEdit *>("txtRef");
    if (txtRef->isEnabled())
        walker.Type(txtRef, walker.Pick({"1", "2", "3", "0", "x", "40000", "2.9"}), false);
}

void CloseRefresh(Walker &walker)
{
    QDialog *frmRef = walker.Open("frmRef");
    if (!frmRef)
        return;
    walker.Activate(frmRef);
    if (walker.Chance(3))
        walker.Console().Key(Qt::Key_Escape);
    else
        walker.Click(frmRef->findChild<QPushButton *>("Command1"));
}

// The simulated unit's knobs.

void TurnKnob(Walker &walker)
{
    QDialog *frmSimulator = walker.Open("frmSimulator");
    if (!frmSimulator || !frmSimulator->isEnabled())
        return;
    switch (walker.Number(5)) {
    case 0:
        walker.AnyUsableIn<QSlider>(frmSimulator)->setValue(walker.Number(256));
        break;
    case 1:
        walker.Click(walker.AnyUsableIn<QCheckBox>(frmSimulator));
        break;
    case 2:
        walker.Focus(walker.AnyUsableIn<QDoubleSpinBox>(frmSimulator));
        walker.Console().Key(walker.Pick({Qt::Key_Up, Qt::Key_Down}));
        break;
    case 3:
        walker.Focus(walker.AnyUsableIn<QComboBox>(frmSimulator));
        walker.Console().Key(walker.Pick({Qt::Key_Up, Qt::Key_Down}));
        break;
    default:
        frmSimulator->findChild<QSpinBox *>("txtTimes")->setValue(1 + walker.Number(8));
        walker.Click(frmSimulator->findChild<QPushButton *>(walker.Pick({"cmdFail", "cmdForget"})));
    }
    walker.Console().TickIfActive("tmrUnit");
}

void CloseSimulator(Walker &walker)
{
    if (QDialog *frmSimulator = walker.Open("frmSimulator"))
        frmSimulator->close();
}

// The guide.

void ReadGuide(Walker &walker)
{
    if (walker.ShownTab() != Tab::Help || !walker.Console().window->isEnabled())
        return;
    ConsoleUnderTest &console = walker.Console();
    walker.Activate(console.window.get());
    auto *txtFind = console.Find<QLineEdit>("txtFind");
    switch (walker.Number(5)) {
    case 0:
        console.Key(Qt::Key_F, Qt::ControlModifier);
        break;
    case 1:
        if (txtFind->isVisible() && txtFind->isEnabled())
            walker.Type(txtFind, walker.Pick({"e", "unit", "", "nowhere in it"}), true);
        break;
    case 2:
        console.Key(Qt::Key_F3, walker.Pick({Qt::NoModifier, Qt::ShiftModifier}));
        break;
    case 3:
        console.Find<QListWidget>("lstContents")->setCurrentRow(walker.Number(3));
        break;
    default:
        console.Key(
            walker.Pick({Qt::Key_PageDown, Qt::Key_PageUp, Qt::Key_Home, Qt::Key_End, Qt::Key_Escape}));
    }
}

void ReadGuideWindow(Walker &walker)
{
    QDialog *frmGuide = walker.Open("frmGuide");
    if (!frmGuide || !frmGuide->isEnabled())
        return;
    walker.Activate(frmGuide);
    if (walker.Chance(3))
        frmGuide->findChild<QLineEdit *>("txtSearch")
            ->setText(walker.Pick({"e", "unit", "", "nowhere in it"}));
    else
        walker.Console().Key(walker.Pick(
            {Qt::Key_F1, Qt::Key_F2, Qt::Key_F3, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Escape}));
}

constexpr std::array Acts{
    Act{"close the fader dialog", 4, CloseFader},        Act{"fill in the automatic update", 10, SetRefresh},
    Act{"close the automatic update", 20, CloseRefresh}, Act{"turn a knob of the simulator", 8, TurnKnob},
    Act{"close the simulator", 3, CloseSimulator},       Act{"read the guide", 24, ReadGuide},
    Act{"read the guide's window", 12, ReadGuideWindow},
};

} // namespace

std::span<const Act> DialogActs()
{
    return Acts;
}

} // namespace kelvo
