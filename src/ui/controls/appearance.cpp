#include "ui/controls/appearance.h"

#include <QLabel>

namespace kelvo {

void Fill(QLabel *label, const Colours &colours)
{
    QPalette palette = label->palette();
    palette.setColor(QPalette::Window, colours.ground);
    palette.setColor(QPalette::WindowText, colours.ink);
    label->setPalette(palette);
    label->setAutoFillBackground(true);
}

void ClearFill(QLabel *label)
{
    label->setPalette({});
    label->setAutoFillBackground(false);
}

void KeepPlaceWhenHidden(QWidget *widget)
{
    QSizePolicy policy = widget->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget->setSizePolicy(policy);
}

QFont Bold(QFont font, bool bold)
{
    font.setBold(bold);
    return font;
}

} // namespace kelvo
