#include "ui/equaliser/subbassframe.h"

#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace kelvo {

SubBassFrame::SubBassFrame(Editor &editor, EntryWindow &entries)
{
    Named(this, "frmBass");
    auto *pair = new LevelPair(field::Band(Subwoofer, SubGain), HalfDecibelRule, editor, entries,
                               {"lblGain", "sclGain"}, this);
    pairs_.push_back(pair);
    auto *board = new LevelBoard(HalfDecibelMarks());
    board->Add(pair->Slider(), 1);
    board->Grid()->addWidget(pair->Field(), LevelBoard::SliderRow + 1, 1, Qt::AlignHCenter);
    auto *gainFrame = new QGroupBox("Gain");
    (new QVBoxLayout(gainFrame))->addWidget(board);

    auto *columns = new QHBoxLayout(this);
    columns->addWidget(gainFrame, 1);
    columns->addWidget(BuildOptions("optSPB", "Centre Frequency", field::Band(Subwoofer, SubFreq), editor),
                       1);
    columns->addWidget(BuildOptions("optBand", "Bandwidth", field::Band(Subwoofer, SubWidth), editor), 1);
    Bind(Subwoofer);
}

QGroupBox *SubBassFrame::BuildOptions(const char *name, const QString &title, FieldId field, Editor &editor)
{
    auto *frame = new QGroupBox(title);
    auto *rows = new QVBoxLayout(frame);
    auto *group = new QButtonGroup(this);
    const auto captions = FieldOf(field).scale->choices;
    for (int index = 0; index < int(captions.size()); ++index) {
        auto *option = Named(new OptionButton(captions[index]), name, index);
        option->setAccessibleName(title + ", " + captions[index]);
        group->addButton(option, index);
        rows->addWidget(option);
    }
    rows->addStretch();
    choices_.emplace_back(field, editor, group);
    return frame;
}

void SubBassFrame::Show(const Changed &changed)
{
    for (const FieldChoice &choice : choices_)
        choice.Show(changed);
    ChannelFrame::Show(changed);
}

} // namespace kelvo
