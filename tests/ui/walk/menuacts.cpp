#include "ui/walk/acts.h"

#include <QAction>
#include <QMenu>

namespace kelvo {

namespace {

void ChoosePort(Walker &walker)
{
    walker.Choose(walker.Pick({"mnuCom1", "mnuCom2", "mnuCom3", "mnuCom4"}));
}

void ChooseBaud(Walker &walker)
{
    walker.Choose(walker.Pick({"mnuBaud1", "mnuBaud2", "mnuBaud3", "mnuBaud4"}));
}

void New(Walker &walker)
{
    walker.Kept().FileMayCome();
    walker.Choose("mnuNew");
    walker.SignalsAreNew();
}

void OpenRecent(Walker &walker)
{
    emit walker.Console().Find<QMenu>("mnuTools")->aboutToShow();
    const QList<QAction *> files = walker.Console().Find<QMenu>("mnuRecent")->actions();
    if (files.isEmpty())
        return;
    walker.Kept().FileMayCome();
    walker.Choose(files[walker.Number(int(files.size()))]->objectName().toLatin1().constData());
}

constexpr std::array Acts{
    Act{"New", 2, New},
    Act{"Open", 3, [](Walker &walker) { walker.Choose("mnuLoad"); }},
    Act{"Recent Files", 2, OpenRecent},
    Act{"Save", 3, [](Walker &walker) { walker.Choose("mnuSave"); }},
    Act{"Save As", 2, [](Walker &walker) { walker.Choose("mnuSaveAs"); }},
    Act{"Update", 10, [](Walker &walker) { walker.Choose("mnuRef"); }},
    Act{"Exit", 1, [](Walker &walker) { walker.Close(); }},
    Act{"choose a port", 2, ChoosePort},
    Act{"choose a speed", 3, ChooseBaud},
    Act{"Automatically Upload", 8, [](Walker &walker) { walker.Choose("mnuAuto"); }},
    Act{"Confirm Message Box", 3, [](Walker &walker) { walker.Choose("mnuConfirm"); }},
    Act{"Enable Shortcuts", 5, [](Walker &walker) { walker.Choose("mnuShort"); }},
    Act{"Automatic Update", 2, [](Walker &walker) { walker.Choose("mnuAutoRef"); }},
    Act{"Use System Date/Time", 2, [](Walker &walker) { walker.Choose("mnuSys"); }},
    Act{"Set Theater Information", 4, [](Walker &walker) { walker.Choose("mnuSet"); }},
    Act{"Knobs and Front Panel", 1, [](Walker &walker) { walker.Choose("mnuKnobs"); }},
};

} // namespace

std::span<const Act> MenuActs()
{
    return Acts;
}

} // namespace kelvo
