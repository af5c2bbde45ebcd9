#include "rtf/writer.h"

#include <algorithm>
#include <utility>

namespace kelvo::rtf {

namespace {

// What showing a thing costs later, in units of the bound.
constexpr int WorkPerCharacter = 4;
constexpr int WorkPerRun = 20;
constexpr int WorkPerParagraph = 100;
constexpr int WorkPerPicture = 10'000;

/// A longer paragraph is cut in two: laying one out takes time that nothing may interrupt.
constexpr std::size_t LongestParagraph = 20'000;
constexpr int MostColumns = 32;

bool IsLowSurrogate(char16_t unit)
{
    return unit >= 0xdc00 && unit < 0xe000;
}

/// What a text may hold: no control characters, and none of the code points that are no characters and
/// have a meaning of their own inside text widgets.
char16_t Presentable(char16_t unit)
{
    if (unit == 0x2029)
        return 0x2028;
    if ((unit >= 0xfdd0 && unit <= 0xfdef) || unit >= 0xfff9)
        return 0xfffd;
    return unit;
}

bool IsControl(char16_t unit)
{
    return (unit < 0x20 && unit != '\t') || (unit >= 0x7f && unit < 0xa0);
}

void ReplaceLoneSurrogates(std::u16string &text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (IsHighSurrogate(text[at]) && at + 1 < text.size() && IsLowSurrogate(text[at + 1]))
            ++at;
        else if (IsHighSurrogate(text[at]) || IsLowSurrogate(text[at]))
            text[at] = 0xfffd;
    }
}

} // namespace

bool Writer::Spend(int work)
{
    if (Exhausted())
        return false;
    work_ -= work;
    document_.cutOff = Exhausted();
    return !Exhausted();
}

void Writer::Append(char16_t unit, const TextStyle &style, const ParagraphStyle &paragraph)
{
    if (IsControl(unit) || !Spend(WorkPerCharacter))
        return;
    const Run *last = paragraph_.runs.empty() ? nullptr : &paragraph_.runs.back();
    if (!last || last->picture || last->style != style) {
        Spend(WorkPerRun);
        paragraph_.runs.push_back({style, {}});
    }
    paragraph_.runs.back().text += Presentable(unit);
    if (++paragraphLength_ >= LongestParagraph && !IsHighSurrogate(unit))
        EndParagraph(paragraph);
}

void Writer::AddPicture(Picture picture, const TextStyle &style)
{
    if (!Spend(WorkPerPicture))
        return;
    paragraph_.runs.push_back({style, {}, document_.pictures.size()});
    document_.pictures.push_back(std::move(picture));
}

void Writer::EndParagraph(const ParagraphStyle &style)
{
    if (!Spend(WorkPerParagraph) && paragraph_.runs.empty())
        return;
    paragraph_.style = style;
    if (style.inTable)
        paragraph_.cell = PlaceOfThisCell();
    else
        tableOpen_ = false;
    for (Run &run : paragraph_.runs)
        ReplaceLoneSurrogates(run.text);
    document_.paragraphs.push_back(std::exchange(paragraph_, {}));
    paragraphLength_ = 0;
}

CellPlace Writer::PlaceOfThisCell()
{
    if (!tableOpen_) {
        document_.tables.emplace_back();
        tableOpen_ = true;
        row_ = 0;
        column_ = 0;
    }
    Table &table = document_.tables.back();
    if (row_ == 0)
        table.cellEnds = cellEnds_;
    table.rows = std::max(table.rows, row_ + 1);
    table.columns = std::max(table.columns, column_ + 1);
    return {int(document_.tables.size()) - 1, row_, column_};
}

void Writer::EndCell(const ParagraphStyle &style)
{
    ParagraphStyle inside = style;
    inside.inTable = true;
    EndParagraph(inside);
    column_ = std::min(column_ + 1, MostColumns - 1);
}

void Writer::EndRow(const ParagraphStyle &style)
{
    if (!paragraph_.runs.empty())
        EndCell(style);
    if (column_ > 0)
        ++row_;
    column_ = 0;
}

void Writer::AddCellEnd(int twips)
{
    if (cellEnds_.size() < MostColumns)
        cellEnds_.push_back(twips);
}

Document Writer::Finish(const ParagraphStyle &style)
{
    if (!paragraph_.runs.empty())
        EndParagraph(style);
    return std::move(document_);
}

} // namespace kelvo::rtf
