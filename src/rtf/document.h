#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelvo::rtf {

struct Color {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    bool operator==(const Color &) const = default;
};

enum class Script : std::uint8_t { Normal, Super, Sub };
enum class Alignment : std::uint8_t { Left, Center, Right, Justified };

/// How a run of characters looks. No colour means the page's own.
struct TextStyle {
    int halfPoints = 24;
    bool bold = false;
    bool italic = false;
    bool underlined = false;
    bool struckOut = false;
    bool fixedPitch = false;
    bool link = false; ///< the text of a hyperlink; where it leads is not kept
    Script script = Script::Normal;
    std::optional<Color> color;
    std::optional<Color> background;

    bool operator==(const TextStyle &) const = default;
};

/// Lengths are twips, 1440 to the inch; `firstIndent` counts from `leftIndent`.
struct ParagraphStyle {
    int leftIndent = 0;
    int firstIndent = 0;
    int rightIndent = 0;
    int spaceBefore = 0;
    int spaceAfter = 0;
    int headingLevel = 0; ///< 1 to 9; 0 = not a heading
    Alignment alignment = Alignment::Left;
    bool inTable = false;
    std::vector<int> tabStops; ///< from the left margin, as they were given
};

/// A text, or a picture that stands where a character would. The text is UTF-16 without lone surrogates. Tabs
/// are tabs, a line break inside the paragraph is U+2028.
struct Run {
    TextStyle style;
    std::u16string text;
    std::optional<std::size_t> picture{}; ///< index in `Document::pictures`; the text is empty then
};

enum class PictureKind : std::uint8_t { Other, Png, Jpeg };

/// A picture as it stands in the file, decoded by nobody yet.
struct Picture {
    static constexpr std::size_t MostBytesOfAll = 32u << 20; ///< of a document's pictures together

    PictureKind kind = PictureKind::Other;
    std::string bytes; ///< of a file of this kind; none for another kind, nor where there were too many
    int width = 0;     ///< as it is meant to be shown, twips; 0 = as it comes
    int height = 0;
    int scaleX = 100; ///< per cent
    int scaleY = 100;
};

/// Which cell of which table a paragraph stands in; a cell may hold several paragraphs.
struct CellPlace {
    int table = 0; ///< index in `Document::tables`
    int row = 0;
    int column = 0;

    bool operator==(const CellPlace &) const = default;
};

struct Paragraph {
    ParagraphStyle style;
    std::optional<CellPlace> cell;
    std::vector<Run> runs;
};

struct Table {
    int rows = 0;
    int columns = 0;
    std::vector<int> cellEnds; ///< right edges of the first row's cells, twips from the margin
};

/// What a file says, as a flat list in reading order. The paragraphs of a table follow one another.
struct Document {
    std::vector<Paragraph> paragraphs;
    std::vector<Table> tables;
    std::vector<Picture> pictures;
    bool cutOff = false; ///< the file says more than is kept here
};

} // namespace kelvo::rtf
