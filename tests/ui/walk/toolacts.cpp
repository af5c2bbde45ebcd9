#include "ui/walk/acts.h"

#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QTableView>

namespace kelvo {

namespace {

void OpenDiffers(Walker &walker)
{
    if (walker.Chance(2))
        walker.Choose("mnuDiffers");
    else
        walker.Console().Key(Qt::Key_F9);
}

void UseDiffers(Walker &walker)
{
    QDialog *frmDiffers = walker.Open("frmDiffers");
    if (!frmDiffers || !frmDiffers->isEnabled())
        return;
    const auto click = [&](const char *name) {
        if (auto *button = frmDiffers->findChild<QPushButton *>(name); button->isEnabled())
            walker.Click(button);
    };
    switch (walker.Number(5)) {
    case 0:
        walker.Focus(frmDiffers->findChild<QComboBox *>(walker.Pick({"cboLeft", "cboRight"})));
        walker.Console().Key(walker.Pick({Qt::Key_Up, Qt::Key_Down}));
        break;
    case 1:
        walker.Type(frmDiffers->findChild<QLineEdit *>("txtFilter"), walker.Pick({"", "Hz", "trim", "none"}),
                    false);
        break;
    case 2:
        walker.witness.apart = true;
        click("cmdReadAgain");
        walker.witness.apart = false;
        break;
    default:
        if (auto *table = frmDiffers->findChild<QTableView *>("tblDiffers"); table->isVisible())
            walker.Chance(2) ? table->selectAll()
                             : table->selectRow(walker.Number(table->model()->rowCount() + 1));
        click("cmdTake");
    }
}

void Verify(Walker &walker)
{
    walker.witness.apart = true;
    walker.Choose("mnuVerify");
    walker.witness.apart = false;
}

void OpenGuide(Walker &walker)
{
    if (walker.Chance(2))
        walker.Choose("mnuGuide");
    else
        walker.Console().Key(Qt::Key_F1, Qt::ShiftModifier);
}

void CloseTool(Walker &walker)
{
    QDialog *window = walker.Open(walker.Pick({"frmDiffers", "frmVerify", "frmGuide", "frmHistory"}));
    if (!window || !window->isEnabled())
        return;
    walker.Activate(window);
    QTest::keyClick(window, Qt::Key_Escape);
}

void PressF4(Walker &walker)
{
    walker.Console().Key(Qt::Key_F4);
}

void DropFile(Walker &walker)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(walker.AnyFile(false))});
    QDropEvent drop(QPointF(40, 40), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    walker.Kept().FileMayCome();
    QCoreApplication::sendEvent(walker.Console().window.get(), &drop);
    QCoreApplication::processEvents();
}

constexpr std::array Acts{
    Act{"What Differs", 4, OpenDiffers},
    Act{"use What Differs", 16, UseDiffers},
    Act{"Verify the Unit", 4, Verify},
    Act{"Guide", 2, OpenGuide},
    Act{"close a window beside", 8, CloseTool},
    Act{"press F4", 8, PressF4},
    Act{"drop a file", 2, DropFile},
};

} // namespace

std::span<const Act> ToolActs()
{
    return Acts;
}

} // namespace kelvo
