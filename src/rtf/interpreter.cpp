#include "rtf/interpreter.h"

#include "rtf/controlwords.h"
#include "rtf/utf8.h"

#include <algorithm>
#include <cctype>
#include <utility>

namespace kelvo::rtf {

namespace {

// Sizes that no honest file reaches.
constexpr std::size_t MostGroups = 200'000;
constexpr std::size_t MostFonts = 1'000;
constexpr std::size_t MostStyles = 1'000;
constexpr std::size_t MostColors = 4'096;
constexpr std::size_t LongestName = 64;

constexpr int LowestHeading = 9;

/// Symbol fonts keep their characters at these code points.
constexpr char16_t SymbolArea = 0xf000;

constexpr char16_t Bullet = 0x2022;

/// A symbol font's letters and digits read as such; all else in it is taken for a list's bullet.
char16_t Symbolic(char16_t unit)
{
    const char16_t code = unit >= SymbolArea && unit < SymbolArea + 0x100 ? unit - SymbolArea : unit;
    return code < 0x80 ? code : Bullet;
}

} // namespace

void Interpreter::Carry(const Token &token)
{
    writer_.Spend(1);
    switch (token.kind) {
    case TokenKind::GroupStart:
        return StartGroup();
    case TokenKind::GroupEnd:
        return EndGroup();
    case TokenKind::Word:
        return Word(token);
    case TokenKind::Symbol:
        return Symbol(token.text.front());
    case TokenKind::Byte:
        return EncodedByte(static_cast<unsigned char>(token.number));
    case TokenKind::Text:
        return Text(token.text);
    case TokenKind::End:
        finished_ = true;
    }
}

void Interpreter::StartGroup()
{
    fallback_ = 0;
    optional_ = false;
    if (outer_.size() < MostGroups)
        outer_.push_back(state_);
    else
        ++tooDeep_;
}

void Interpreter::EndGroup()
{
    fallback_ = 0;
    optional_ = false;
    if (tooDeep_ > 0) {
        --tooDeep_;
        return;
    }
    if (outer_.size() == 1) {
        finished_ = true;
        return;
    }
    const bool picture = state_.destination == Destination::Picture;
    state_ = std::move(outer_.back());
    outer_.pop_back();
    if (picture && state_.destination != Destination::Picture)
        EndPicture();
}

void Interpreter::Word(const Token &token)
{
    const bool optional = std::exchange(optional_, false);
    if (state_.destination == Destination::Nowhere)
        return;
    if (const char16_t character = ControlWords::Character(token.text)) {
        PutCharacter(character);
        return;
    }
    fallback_ = 0;
    if (const auto action = ControlWords::Find(token.text))
        action(*this, token);
    else if (optional)
        SkipGroup();
}

void Interpreter::Symbol(char symbol)
{
    switch (symbol) {
    case '*':
        optional_ = true;
        return;
    case '\r':
    case '\n':
        return EndParagraph();
    case '~':
        return PutCharacter(0x00a0);
    case '-':
        return PutCharacter(0x00ad);
    case '_':
        return PutCharacter(0x2011);
    case '\\':
    case '{':
    case '}':
    case '\t':
        return PutCharacter(char16_t(symbol));
    default:
        return;
    }
}

void Interpreter::Text(std::string_view bytes)
{
    optional_ = false;
    switch (state_.destination) {
    case Destination::Page:
        return PageText(bytes);
    case Destination::ColorTable:
        for (auto count = std::count(bytes.begin(), bytes.end(), ';'); count > 0; --count)
            CommitColor();
        return;
    case Destination::Stylesheet:
        for (const char byte : bytes)
            NameStyle(byte);
        return;
    case Destination::FieldInstruction:
        instruction_ += bytes.substr(0, LongestName - std::min(LongestName, instruction_.size()));
        return;
    case Destination::Picture:
        return picture_.AddHex(bytes);
    case Destination::FontTable:
    case Destination::ShapeProperty:
    case Destination::Nowhere:
        return;
    }
}

void Interpreter::PageText(std::string_view bytes)
{
    if (state_.symbolFont) {
        for (const char byte : bytes)
            EncodedByte(static_cast<unsigned char>(byte));
    } else {
        DecodeText(bytes, TextCodePage(), [this](char16_t unit) { PutCharacter(unit); });
    }
}

void Interpreter::EncodedByte(unsigned char byte)
{
    if (state_.symbolFont)
        PutCharacter(Symbolic(byte));
    else
        PutCharacter(Decode(TextCodePage(), byte));
}

void Interpreter::Put(char16_t unit)
{
    if (OnPage() && !state_.hidden && !state_.deleted)
        writer_.Append(unit, state_.text, state_.paragraph);
}

void Interpreter::PutCharacter(char16_t unit)
{
    if (fallback_ == 0)
        Put(unit);
    else if (!IsHighSurrogate(unit)) // a pair is one character
        --fallback_;
}

void Interpreter::PutUnicode(int number)
{
    const auto unit = char16_t(unsigned(number) & 0xffff);
    Put(state_.symbolFont ? Symbolic(unit) : unit);
    fallback_ = state_.fallbackLength;
}

void Interpreter::EndParagraph()
{
    if (OnPage())
        writer_.EndParagraph(state_.paragraph);
}

void Interpreter::EndCell()
{
    if (OnPage())
        writer_.EndCell(state_.paragraph);
}

void Interpreter::EndRow()
{
    if (OnPage())
        writer_.EndRow(state_.paragraph);
}

void Interpreter::PlainText()
{
    const bool link = state_.text.link;
    state_.text = {};
    state_.text.link = link;
    state_.hidden = false;
    state_.deleted = false;
    state_.codePage = nullptr;
    state_.symbolFont = false;
}

void Interpreter::UseFont(int number)
{
    if (state_.destination == Destination::FontTable) {
        if (fonts_.size() < MostFonts)
            definedFont_ = number;
        return;
    }
    const auto found = fonts_.find(number);
    const Font font = found == fonts_.end() ? Font{} : found->second;
    state_.codePage = font.codePage;
    state_.symbolFont = font.symbol;
    state_.text.fixedPitch = font.fixedPitch;
}

void Interpreter::UseStyle(int number)
{
    if (state_.destination == Destination::Stylesheet) {
        definedStyle_ = number;
        styleName_.clear();
        return;
    }
    const auto found = headingLevels_.find(number);
    state_.paragraph.headingLevel = found == headingLevels_.end() ? 0 : found->second;
}

void Interpreter::UseOutlineLevel(int number)
{
    const int level = number >= 0 && number < LowestHeading ? number + 1 : 0;
    if (state_.destination == Destination::Stylesheet)
        SetHeadingLevel(level);
    else
        state_.paragraph.headingLevel = level;
}

void Interpreter::SetHeadingLevel(int level)
{
    if (headingLevels_.size() < MostStyles)
        headingLevels_[definedStyle_] = level;
}

void Interpreter::NameStyle(char c)
{
    if (c != ';') {
        if (styleName_.size() < LongestName)
            styleName_ += char(std::tolower(static_cast<unsigned char>(c)));
        return;
    }
    constexpr std::string_view Heading = "heading ";
    const auto at = styleName_.find(Heading);
    if (at != std::string::npos && at + Heading.size() + 1 == styleName_.size()) {
        const char level = styleName_.back();
        if (level >= '1' && level <= '9')
            SetHeadingLevel(level - '0');
    }
    styleName_.clear();
}

void Interpreter::BeginPicture()
{
    state_.destination = Destination::Picture;
    picture_.Begin();
}

void Interpreter::EndPicture()
{
    const bool onPage = OnPage() || state_.destination == Destination::ShapeProperty;
    if (onPage && picture_.Begun() && !state_.hidden && !state_.deleted)
        writer_.AddPicture(picture_.Take(), state_.text);
}

void Interpreter::DefineColor(std::uint8_t Color::*part, int value)
{
    color_.*part = std::uint8_t(std::clamp(value, 0, 255));
    colorGiven_ = true;
}

void Interpreter::CommitColor()
{
    if (colors_.size() < MostColors)
        colors_.push_back(colorGiven_ ? std::optional(color_) : std::nullopt);
    color_ = {};
    colorGiven_ = false;
}

std::optional<Color> Interpreter::ColorByNumber(int number) const
{
    return number >= 0 && std::size_t(number) < colors_.size() ? colors_[number] : std::nullopt;
}

} // namespace kelvo::rtf
