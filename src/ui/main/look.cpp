#include "ui/main/look.h"

#include <QApplication>
#include <QFont>
#include <QStyleFactory>

namespace kelvo {

void ApplyLook()
{
    constexpr int PointSize = 9;
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    QFont font = QApplication::font();
    font.setPointSize(PointSize);
    QApplication::setFont(font);
}

} // namespace kelvo
