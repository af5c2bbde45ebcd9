#pragma once

#include "ui/picture/opticalreadings.h"

#include <vector>

namespace kelvo {

/// The surface that gain and slit loss are drawn on, in the graph's own units; y grows downward.
/// A reading is a y coordinate: 255 is the base line, smaller readings give taller bars.
inline constexpr int GraphWidth = 310;
inline constexpr int GraphHeight = 285;
/// Bars stay right of the axis and above the base line; texts stay outside.
inline constexpr int GraphAxis = 25;
inline constexpr int GraphBaseLine = 255;

enum class Ink { Black, Blue, DarkRed };
enum class Stroke { Solid, Dashed };

/// A horizontal or vertical line, as thin as the screen shows clearly.
struct GraphLine {
    int x1, y1, x2, y2;
    Stroke stroke = Stroke::Solid;

    bool operator==(const GraphLine &) const = default;
};

/// A filled box from its upper left corner to its lower right one.
struct GraphBox {
    int left, top, right, bottom;
    Ink ink;

    bool operator==(const GraphBox &) const = default;
};

/// A text in black; (x, y) is its upper left corner.
struct GraphText {
    int x, y;
    const char *text;

    bool operator==(const GraphText &) const = default;
};

/// What one call of `DrawGain` or `DrawSlit` leaves on the surface: lines, boxes over them, texts on top.
struct GraphPicture {
    const char *fontName = nullptr;
    std::vector<GraphLine> lines;
    std::vector<GraphBox> boxes;
    std::vector<GraphText> texts;
};

inline constexpr const char *GraphFont = "MS Sans Serif";
inline constexpr const char *SlitFont = "Small Fonts";
inline constexpr double GraphFontSize = 8.25; ///< points of the graph's own screen, one unit each 4/3 of it

/// Sets a text at (x, y).
void PrintOnGraph(GraphPicture &graph, Word x, Word y, const char *text);

GraphPicture DrawGain(const GainReading &gain);
GraphPicture DrawSlit(const SlitReadings &slit);

} // namespace kelvo
