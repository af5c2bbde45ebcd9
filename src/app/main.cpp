#include "ui/main/frmmain.h"
#include "unit/simulatedunit.h"
#include "unit/windir.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    kelvo::Settings settings;
    kelvo::SystemClock clock;
    kelvo::SimulatedUnit unit;
    kelvo::FrmMain window(settings, unit, clock,
                          {.programDirectory = ".",
                           .helpFile = {},
                           .missingLibrary = {},
                           .serialIniMissing = kelvo::SerialIniMissing,
                           .report = [](const QString &) {}});
    window.Form_Load();
    window.show();
    return QApplication::exec();
}
