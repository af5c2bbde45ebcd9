#include "ui/picture/graphpicture.h"

#include <algorithm>
#include <cmath>

namespace kelvo {

namespace {

constexpr int RightEnd = 300;

constexpr int GainReference = 80;
constexpr int GainBarWidth = 20;
constexpr Word LeftBar = 89;
constexpr Word RightBar = 217;

constexpr int SlitReference = 64;
constexpr int Divider = 162;
constexpr std::array<int, ReaderSides> FirstBar{33, 171};
constexpr int BandSpacing = 11;
constexpr int BandWidth = 6;
/// Readings from band 0 of their side, inside which a band is within range: half decibels, 12 dB in all.
constexpr int HighestInRange = -18;
constexpr int LowestInRange = 6;
constexpr int MarkHeight = 3;
constexpr int MarkGap = 2;

/// The bands are thirds of an octave from 1.0 to 10 kHz; the outer ones stand unlabelled.
constexpr int FirstLabelledBand = 2;
constexpr std::array BandLabels{"1.6", "2.0", "2.5", "3.1", "4.0", "5.0", "6.3", "8.0"};

/// The nearest whole unit; a half goes to the even one.
Word Rounded(double units)
{
    return Word(std::lrint(units));
}

/// The upper edge of a text that stands beside a horizontal line.
Word TextBeside(int y)
{
    return Rounded(y - GraphFontSize / 2);
}

void DrawFrame(GraphPicture &graph, int reference, Stroke stroke)
{
    graph.lines.push_back({GraphAxis, 0, GraphAxis, GraphBaseLine});
    graph.lines.push_back({GraphAxis, GraphBaseLine, RightEnd, GraphBaseLine});
    graph.lines.push_back({GraphAxis, reference, RightEnd, reference, stroke});
    PrintOnGraph(graph, 2, TextBeside(reference), "Ref.");
}

bool HasSignal(const std::array<Byte, SlitLossBytes> &side)
{
    return std::any_of(side.begin(), side.end(), [](Byte reading) { return reading != NoSignal; });
}

bool InRange(int reading, int sideReference)
{
    const int offset = reading - sideReference;
    return offset >= HighestInRange && offset <= LowestInRange;
}

/// The mark of a band out of range stands above its bar, or in the top of a bar that leaves no room.
GraphBox MarkAbove(int left, int reading)
{
    const int bottom = std::max(reading - MarkGap, MarkHeight);
    return {left, bottom - MarkHeight, left + BandWidth, bottom, Ink::DarkRed};
}

void DrawSide(GraphPicture &graph, int firstBar, const std::array<Byte, SlitLossBytes> &side)
{
    const bool judged = HasSignal(side);
    for (int band = 0; band < int(side.size()); ++band) {
        const int left = firstBar + BandSpacing * band;
        const int reading = side[band];
        graph.boxes.push_back({left, reading, left + BandWidth, GraphBaseLine, Ink::Blue});
        if (judged && !InRange(reading, side[0]))
            graph.boxes.push_back(MarkAbove(left, reading));
    }
}

/// Two staggered rows, because a label is wider than its bar's place.
void LabelBands(GraphPicture &graph, int firstBar)
{
    constexpr int BeforeBar = 3;
    constexpr std::array<int, 2> Rows{257, 266};
    for (int label = 0; label < int(BandLabels.size()); ++label) {
        const int left = firstBar + BandSpacing * (FirstLabelledBand + label);
        PrintOnGraph(graph, Word(left - BeforeBar), Word(Rows[label % 2]), BandLabels[label]);
    }
}

} // namespace

void PrintOnGraph(GraphPicture &graph, Word x, Word y, const char *text)
{
    graph.texts.push_back({x, y, text});
}

GraphPicture DrawGain(const GainReading &gain)
{
    GraphPicture graph;
    graph.fontName = GraphFont;
    DrawFrame(graph, GainReference, Stroke::Dashed);
    graph.boxes = {{LeftBar, gain[0], LeftBar + GainBarWidth, GraphBaseLine, Ink::Blue},
                   {RightBar, gain[1], RightBar + GainBarWidth, GraphBaseLine, Ink::Blue}};
    PrintOnGraph(graph, LeftBar, Rounded(GraphBaseLine + GraphFontSize), "  Left");
    PrintOnGraph(graph, RightBar, Rounded(GraphBaseLine + GraphFontSize), " Right");
    return graph;
}

GraphPicture DrawSlit(const SlitReadings &slit)
{
    GraphPicture graph;
    graph.fontName = SlitFont;
    graph.boxes.reserve(std::size_t(ReaderSides) * SlitLossBytes * 2);
    graph.texts.reserve(ReaderSides * BandLabels.size() + 4);
    DrawFrame(graph, SlitReference, Stroke::Solid);
    graph.lines.push_back({Divider, 0, Divider, GraphBaseLine});
    PrintOnGraph(graph, 2, 40, "12 dB");
    PrintOnGraph(graph, 2, 49, "Range");
    PrintOnGraph(graph, 140, 275, "Band (kHz)");
    for (std::size_t side = 0; side < slit.size(); ++side) {
        DrawSide(graph, FirstBar[side], slit[side]);
        LabelBands(graph, FirstBar[side]);
    }
    return graph;
}

} // namespace kelvo
