#pragma once

#include "rtf/document.h"

#include <cstddef>

namespace kelvo::rtf {

inline bool IsHighSurrogate(char16_t unit)
{
    return unit >= 0xd800 && unit < 0xdc00;
}

/// Gathers characters into runs, paragraphs and tables, within a bound.
class Writer {
  public:
    /// `paragraph` counts when a paragraph without end has to be cut.
    void Append(char16_t unit, const TextStyle &style, const ParagraphStyle &paragraph);
    void AddPicture(Picture picture, const TextStyle &style);
    void EndParagraph(const ParagraphStyle &style);
    void EndCell(const ParagraphStyle &style);
    void EndRow(const ParagraphStyle &style);

    /// Edges of the row being described.
    void StartRowDescription() { cellEnds_.clear(); }
    void AddCellEnd(int twips);

    /// Takes from the bound on all work; false when it is used up.
    bool Spend(int work);
    bool Exhausted() const { return work_ <= 0; }

    /// What was gathered, a last paragraph without an end included.
    Document Finish(const ParagraphStyle &style);

  private:
    CellPlace PlaceOfThisCell();

    Document document_;
    Paragraph paragraph_;
    std::size_t paragraphLength_ = 0;
    std::vector<int> cellEnds_;
    int row_ = 0;
    int column_ = 0;
    bool tableOpen_ = false;
    int work_ = 4'000'000;
};

} // namespace kelvo::rtf
