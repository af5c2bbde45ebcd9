#include "ui/main/frmmain.h"

#include <QApplication>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    kelvo::FrmMain window;
    window.show();
    return QApplication::exec();
}
