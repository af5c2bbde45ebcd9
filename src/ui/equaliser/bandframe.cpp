#include "ui/equaliser/bandframe.h"

#include "ui/controls/levelboard.h"
#include "ui/controls/named.h"

#include <QLabel>
#include <QVBoxLayout>

namespace kelvo {

namespace {

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

BandFrame::BandFrame(const Names &names, int channel, Editor &editor, EntryWindow &entries)
{
    Named(this, names.frame);
    auto *board = new LevelBoard(HalfDecibelMarks());
    const int bands = EqualiserBytes(KindOf(channel));
    for (int band = 0; band < bands; ++band) {
        const FieldId field = field::Band(channel, band);
        AddBand(
            new LevelPair(field, HalfDecibelRule, editor, entries, {names.field, names.slider, band}, this),
            FieldOf(field).hertz, bands > MostBandsInOneRow, *board);
    }
    JoinNeighbours(pairs_);
    board->ShowCurve();
    auto *rows = new QVBoxLayout(this);
    rows->setContentsMargins(6, 6, 6, 6);
    rows->addWidget(board);
    Bind(channel);
}

/// A slider takes two columns of the grid, its field and label four: with every second one a row lower they
/// stay centred under their slider and keep a readable size.
void BandFrame::AddBand(LevelPair *pair, int hertz, bool staggered, LevelBoard &board)
{
    const QString frequency = QString::fromStdString(FrequencyText(hertz));
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

} // namespace kelvo
