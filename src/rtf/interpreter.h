#pragma once

#include "rtf/codepages.h"
#include "rtf/picturereader.h"
#include "rtf/tokens.h"
#include "rtf/writer.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace kelvo::rtf {

/// Where the text of a group goes.
enum class Destination : std::uint8_t {
    Page,
    Nowhere,
    FontTable,
    ColorTable,
    Stylesheet,
    FieldInstruction,
    Picture,
    ShapeProperty, ///< of a drawn shape: no text to read, but its picture may stand in it
};

/// What a group inherits and its end takes back.
struct GroupState {
    Destination destination = Destination::Page;
    TextStyle text;
    ParagraphStyle paragraph;
    const CodePage *codePage = nullptr; ///< of the font; null = the document's
    bool symbolFont = false;
    bool hidden = false;
    bool deleted = false;
    int fallbackLength = 1; ///< how many characters follow a `\u` for readers that do not know it
};

/// Carries out tokens: keeps the groups' states and the document's tables, and writes what is seen.
class Interpreter {
  public:
    void Carry(const Token &token);
    /// The outermost group has ended, or the bound on all work was met.
    bool Finished() const { return finished_ || writer_.Exhausted(); }
    Document Finish() { return writer_.Finish(state_.paragraph); }

  private:
    friend class ControlWords;

    struct Font {
        const CodePage *codePage = nullptr;
        bool symbol = false;
        bool fixedPitch = false;
    };

    void StartGroup();
    void EndGroup();
    void Word(const Token &token);
    void Symbol(char symbol);
    void Text(std::string_view bytes);
    void PageText(std::string_view bytes);
    void EncodedByte(unsigned char byte);

    bool OnPage() const { return state_.destination == Destination::Page; }
    const CodePage &TextCodePage() const { return state_.codePage ? *state_.codePage : *documentCodePage_; }
    void Put(char16_t unit);
    void PutCharacter(char16_t unit); ///< unless it stands for a `\u` that was understood
    void PutUnicode(int number);

    void EndParagraph();
    void EndCell();
    void EndRow();
    void SkipGroup() { state_.destination = Destination::Nowhere; }
    void PlainText();
    void UseFont(int number);
    void UseStyle(int number);
    void UseOutlineLevel(int number);
    void DefineColor(std::uint8_t Color::*part, int value);
    void CommitColor();
    void NameStyle(char c);
    void BeginPicture();
    void EndPicture();
    void SetHeadingLevel(int level);
    std::optional<Color> ColorByNumber(int number) const;

    Writer writer_;
    PictureReader picture_;
    GroupState state_;
    std::vector<GroupState> outer_;
    std::size_t tooDeep_ = 0; ///< groups open beyond those whose states are kept

    const CodePage *documentCodePage_ = &CodePageByNumber(1252);
    std::map<int, Font> fonts_;
    std::vector<std::optional<Color>> colors_;
    Color color_;
    bool colorGiven_ = false;
    std::map<int, int> headingLevels_; ///< of paragraph styles, by style number
    int definedFont_ = 0;
    int definedStyle_ = 0;
    std::string styleName_;
    std::string instruction_;

    int fallback_ = 0;
    bool optional_ = false; ///< `\*` came last: an unknown word makes its group invisible
    bool finished_ = false;
};

} // namespace kelvo::rtf
