#include <QApplication>
#include <QMainWindow>

/// The peer: what any program with a main window costs.
int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QMainWindow window;
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
