#include "ui/theatre/frmtheater.h"

#include "ui/controls/named.h"
#include "ui/controls/okcancel.h"
#include "ui/theatre/messages.h"

#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <QValidator>

#include <algorithm>

namespace kelvo {

namespace {

constexpr int ComfortableWidth = 720;

/// A text is one line of a file: what cannot be seen becomes a blank, typed or pasted.
class NoControlCharacters : public QValidator {
  public:
    using QValidator::QValidator;

    State validate(QString &text, int &) const override
    {
        std::replace_if(
            text.begin(), text.end(), [](QChar c) { return c.category() == QChar::Other_Control; }, u' ');
        return Acceptable;
    }
};

} // namespace

FrmTheater::FrmTheater(Editor &editor, QWidget *parent) : QDialog(parent), editor_(editor)
{
    Named(this, "frmTheater");
    setWindowTitle(messages::TheaterTitle);
    auto *oneLine = new NoControlCharacters(this);
    for (QLineEdit *box : form_.txtTheaterInfo)
        box->setValidator(oneLine);

    QDialogButtonBox *buttons = OkAndCancel(this);
    connect(buttons, &QDialogButtonBox::accepted, this, &FrmTheater::cmdOK_Click);

    auto *column = new QVBoxLayout(this);
    column->addLayout(form_.layout);
    column->addStretch();
    column->addWidget(buttons);
    form_.Show(editor_.Room().TheaterInfo);
    resize(ComfortableWidth, sizeHint().height());
}

void FrmTheater::cmdOK_Click()
{
    std::vector<FieldId> fields;
    fields.reserve(TheaterTextCount);
    for (int text = 0; text < TheaterTextCount; ++text)
        fields.push_back(field::Theater(text));
    editor_.Apply({.name = messages::TheaterTitle,
                   .fields = std::move(fields),
                   .make = [texts = form_.Texts()](RoomSettings &room) { room.TheaterInfo = texts; }});
    accept();
}

} // namespace kelvo
