#include "ui/walk/acts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QPushButton>
#include <QRadioButton>

namespace kelvo {

namespace {

void ClickButton(Walker &walker)
{
    walker.Click(walker.AnyUsable<QPushButton>());
}

void ClickOption(Walker &walker)
{
    walker.Click(walker.AnyUsable<QRadioButton>());
}

void MoveInOptions(Walker &walker)
{
    auto *option = walker.AnyUsable<QRadioButton>();
    if (!option)
        return;
    walker.Focus(option);
    walker.Console().Key(walker.Pick({Qt::Key_Up, Qt::Key_Down, Qt::Key_Space}));
}

void ClickBox(Walker &walker)
{
    walker.Click(walker.AnyUsable<QCheckBox>());
}

void ChooseFromList(Walker &walker)
{
    auto *list = walker.AnyUsable<QComboBox>();
    if (!list)
        return;
    walker.Activate(list);
    if (walker.Chance(6)) {
        walker.Console().ChooseItem(list, list->itemText(walker.Number(list->count())));
        return;
    }
    list->setFocus();
    walker.Console().Key(walker.Pick({Qt::Key_Up, Qt::Key_Down, Qt::Key_Home, Qt::Key_End}));
}

void TurnWheelOverList(Walker &walker)
{
    if (auto *list = walker.AnyUsable<QComboBox>())
        walker.Console().Wheel(list, walker.Pick({120, -120}));
}

void ChangeTab(Walker &walker)
{
    if (walker.Console().window->isEnabled())
        walker.Console().GoTo(walker.Chance(4) ? Tab::Eq : Tab(walker.Number(TabCount)));
}

void ChangeTabByKey(Walker &walker)
{
    static constexpr std::array Letters{Qt::Key_S, Qt::Key_O, Qt::Key_E, Qt::Key_B,
                                        Qt::Key_P, Qt::Key_T, Qt::Key_I, Qt::Key_H};
    walker.Activate(walker.Console().window.get());
    if (walker.Chance(2))
        walker.Console().Key(walker.Pick(Letters), Qt::AltModifier);
    else
        walker.Console().Key(Qt::Key_Tab, Qt::ControlModifier);
}

void Shortcut(Walker &walker)
{
    walker.Console().Key(walker.Pick({Qt::Key_M, Qt::Key_7, Qt::Key_G, Qt::Key_L, Qt::Key_P, Qt::Key_C,
                                      Qt::Key_Q, Qt::Key_R, Qt::Key_E}),
                         Qt::ControlModifier);
}

void Tabulate(Walker &walker)
{
    walker.Console().Key(walker.Pick({Qt::Key_Tab, Qt::Key_Backtab}));
}

void UploadByKey(Walker &walker)
{
    walker.Console().Key(Qt::Key_F2);
}

constexpr std::array Acts{
    Act{"click a button", 100, ClickButton},
    Act{"click an option", 20, ClickOption},
    Act{"move in a group of options", 10, MoveInOptions},
    Act{"click a check box", 6, ClickBox},
    Act{"choose from a list", 16, ChooseFromList},
    Act{"turn the wheel over a list", 6, TurnWheelOverList},
    Act{"click a tab", 14, ChangeTab},
    Act{"change the tab by key", 4, ChangeTabByKey},
    Act{"press a shortcut", 24, Shortcut},
    Act{"go on with Tab", 10, Tabulate},
    Act{"press F2", 20, UploadByKey},
};

} // namespace

std::span<const Act> PanelActs()
{
    return Acts;
}

} // namespace kelvo
