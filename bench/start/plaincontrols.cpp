#include <QApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QPushButton>
#include <QSlider>
#include <QTabWidget>

/// The peer for memory: as many plain controls as the console has, on as many tabs, with nothing behind them.
int main(int argc, char **argv)
{
    constexpr int Tabs = 8;
    constexpr int RowsPerTab = 12;
    QApplication application(argc, argv);
    QApplication::setStyle("Fusion");
    QMainWindow window;
    auto *tabs = new QTabWidget;
    for (int tab = 0; tab < Tabs; ++tab) {
        auto *panel = new QWidget;
        auto *grid = new QGridLayout(panel);
        for (int row = 0; row < RowsPerTab; ++row) {
            grid->addWidget(new QLabel("Label"), row, 0);
            grid->addWidget(new QSlider(Qt::Horizontal), row, 1);
            grid->addWidget(new QLineEdit("0.0"), row, 2);
            grid->addWidget(new QPushButton("Button"), row, 3);
        }
        tabs->addTab(panel, "Tab");
    }
    window.setCentralWidget(tabs);
    window.resize(800, 600);
    window.show();
    return QApplication::exec();
}
