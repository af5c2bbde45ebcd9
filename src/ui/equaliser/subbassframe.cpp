#include "ui/equaliser/subbassframe.h"

#include "ui/controls/choices.h"
#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <array>

namespace kelvo {

namespace {

constexpr std::array<const char *, 7> FrequencyNames{"25 Hz", "31.5 Hz", "40 Hz", "50 Hz",
                                                     "63 Hz", "80 Hz",   "100 Hz"};
constexpr std::array<const char *, 3> WidthNames{"1/3 octave", "2/3 octave", "1 octave"};

} // namespace

SubBassFrame::SubBassFrame(EntryWindow &entries, LevelPair::Actions gain,
                           std::function<void(SubwooferByte byte, int index)> choose)
    : choose_(std::move(choose))
{
    Named(this, "frmBass");
    auto *pair = new LevelPair(HalfDecibelRule, entries, {"lblGain", "sclGain"}, std::move(gain), this);
    pairs_.push_back(pair);
    auto *board = new LevelBoard(HalfDecibelMarks());
    board->Add(pair->Slider(), 1);
    board->Grid()->addWidget(pair->Field(), LevelBoard::SliderRow + 1, 1, Qt::AlignHCenter);
    auto *gainFrame = new QGroupBox("Gain");
    (new QVBoxLayout(gainFrame))->addWidget(board);

    auto *columns = new QHBoxLayout(this);
    columns->addWidget(gainFrame, 1);
    columns->addWidget(BuildOptions("optSPB", "Centre Frequency", FrequencyNames, SubFreq, optSPB_), 1);
    columns->addWidget(BuildOptions("optBand", "Bandwidth", WidthNames, SubWidth, optBand_), 1);
}

QGroupBox *SubBassFrame::BuildOptions(const char *name, const QString &title,
                                      std::span<const char *const> captions, SubwooferByte byte,
                                      QButtonGroup *&group)
{
    auto *frame = new QGroupBox(title);
    auto *rows = new QVBoxLayout(frame);
    group = new QButtonGroup(this);
    for (std::size_t i = 0; i < captions.size(); ++i) {
        auto *option = Named(new OptionButton(captions[i]), name, int(i));
        option->setAccessibleName(title + ", " + captions[i]);
        group->addButton(option, int(i));
        rows->addWidget(option);
    }
    rows->addStretch();
    connect(group, &QButtonGroup::idClicked, this, [this, byte](int index) { choose_(byte, index); });
    return frame;
}

void SubBassFrame::ShowChannel(const QString &channel)
{
    setTitle(channel);
    pairs_.front()->SetAccessibleName(channel + ", gain, dB");
}

void SubBassFrame::Show(const ChannelSlice &slice)
{
    ShowChoice(optBand_, slice.Band[SubWidth]);
    ShowChoice(optSPB_, slice.Band[SubFreq]);
    ChannelFrame::Show(slice);
}

} // namespace kelvo
