#include "ui/equaliser/bandframe.h"

#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"

#include <QLabel>
#include <QVBoxLayout>

#include <array>

namespace kelvo {

namespace {

constexpr std::array<const char *, BandCount> ThirdOctaveNames{
    "40 Hz",   "50 Hz",    "63 Hz",  "80 Hz",  "100 Hz",  "125 Hz", "160 Hz",   "200 Hz",   "250 Hz",
    "315 Hz",  "400 Hz",   "500 Hz", "630 Hz", "800 Hz",  "1 kHz",  "1.25 kHz", "1.6 kHz",  "2 kHz",
    "2.5 kHz", "3.15 kHz", "4 kHz",  "5 kHz",  "6.3 kHz", "8 kHz",  "10 kHz",   "12.5 kHz", "16 kHz"};

constexpr std::array<const char *, SurroundBandCount> OctaveNames{
    "63 Hz", "125 Hz", "250 Hz", "500 Hz", "1 kHz", "2 kHz", "4 kHz", "8 kHz", "16 kHz"};

/// More bands than this stand so close that their fields and labels take two staggered rows.
constexpr int MostBandsInOneRow = 12;

/// "1.25 kHz" as it fits under one of many sliders: "1.25k".
QString ShortName(QString frequency)
{
    return frequency.replace(" kHz", "k").remove(" Hz");
}

QFont Smaller(QFont font)
{
    font.setPointSizeF(font.pointSizeF() - 1);
    return font;
}

} // namespace

const std::span<const char *const> ThirdOctaves{ThirdOctaveNames};
const std::span<const char *const> Octaves{OctaveNames};

BandFrame::BandFrame(const Names &names, std::span<const char *const> frequencies, EntryWindow &entries,
                     const LevelPair::Actions &actions)
    : frequencies_(frequencies)
{
    Named(this, names.frame);
    auto *board = new LevelBoard(HalfDecibelMarks());
    for (std::size_t i = 0; i < frequencies.size(); ++i) {
        auto *pair =
            new LevelPair(HalfDecibelRule, entries, {names.field, names.slider, int(i)}, actions, this);
        AddBand(pair, frequencies[i], *board);
    }
    JoinNeighbours(pairs_);
    board->ShowCurve();
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 6, 6, 6);
    rows->addWidget(board);
}

/// A slider takes two columns of the grid, its field and label four: with every second one a row lower they
/// stay centred under their slider and keep a readable size.
void BandFrame::AddBand(LevelPair *pair, const QString &frequency, LevelBoard &board)
{
    const bool staggered = int(frequencies_.size()) > MostBandsInOneRow;
    const int band = int(pairs_.size());
    const int column = 1 + 2 * band;
    const int row = LevelBoard::SliderRow + 1 + (staggered ? 2 * (band % 2) : 0);
    auto *label = new QLabel(staggered ? ShortName(frequency) : frequency);
    if (staggered)
        label->setFont(Smaller(label->font()));
    board.Add(pair->Slider(), column + 1, 2);
    board.Grid()->setColumnStretch(column, 1);
    board.Grid()->setColumnStretch(column + 3, 1);
    board.Grid()->addWidget(label, row, column, 1, 4, Qt::AlignHCenter);
    board.Grid()->addWidget(pair->Field(), row + 1, column, 1, 4, Qt::AlignHCenter);
    pairs_.push_back(pair);
}

void BandFrame::ShowChannel(const QString &channel)
{
    setTitle(channel);
    for (std::size_t i = 0; i < pairs_.size(); ++i)
        pairs_[i]->SetAccessibleName(QString("%1, %2, dB").arg(channel, frequencies_[i]));
}

} // namespace kelvo
