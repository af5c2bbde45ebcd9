#include "ui/theatre/theaterform.h"

#include "model/fields.h"
#include "model/tables.h"
#include "ui/controls/named.h"

#include <QLabel>

namespace kelvo {

namespace {

constexpr int RowsPerColumn = Notes / 2;
constexpr int GapBetweenColumns = 18;

} // namespace

TheaterForm::TheaterForm() : layout(new QGridLayout)
{
    for (int index = 0; index < TheaterTextCount; ++index) {
        auto *box = Named(new QLineEdit, "txtTheaterInfo", index);
        const QString name = QString::fromStdString(Name(field::Theater(index)));
        auto *label = new QLabel(name + ":");
        label->setBuddy(box);
        box->setAccessibleName(name);
        const int row = index % RowsPerColumn;
        const int column = index < RowsPerColumn ? 0 : 3;
        if (index == Notes) {
            layout->addWidget(label, RowsPerColumn, 0);
            layout->addWidget(box, RowsPerColumn, 1, 1, 4);
        } else {
            layout->addWidget(label, row, column);
            layout->addWidget(box, row, column + 1);
        }
        txtTheaterInfo[index] = box;
    }
    layout->setColumnMinimumWidth(2, GapBetweenColumns);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(4, 1);
}

void TheaterForm::Show(const TheaterTexts &texts)
{
    for (std::size_t index = 0; index < texts.size(); ++index) {
        txtTheaterInfo[index]->setText(QString::fromStdString(texts[index]));
        txtTheaterInfo[index]->setCursorPosition(0);
    }
}

TheaterTexts TheaterForm::Texts() const
{
    TheaterTexts texts;
    for (std::size_t index = 0; index < texts.size(); ++index)
        texts[index] = txtTheaterInfo[index]->text().toStdString();
    return texts;
}

} // namespace kelvo
