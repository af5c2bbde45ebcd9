#include "rtf/controlwords.h"

#include <algorithm>
#include <unordered_map>

namespace kelvo::rtf {

namespace {

constexpr int SmallestText = 8;     // half points
constexpr int LargestText = 96;     // half points
constexpr int DefaultText = 24;     // half points
constexpr int WidestIndent = 10080; // seven inches, in twips
constexpr std::size_t MostTabStops = 32;
constexpr int MostFallback = 64;
constexpr int LargestPicture = 100'000; // twips
constexpr int LargestScale = 1000;      // per cent

bool On(const Token &token)
{
    return !token.hasNumber || token.number != 0;
}

int NumberOr(const Token &token, int byDefault)
{
    return token.hasNumber ? token.number : byDefault;
}

int Twips(const Token &token)
{
    return std::clamp(token.number, -WidestIndent, WidestIndent);
}

} // namespace

char16_t ControlWords::Character(std::string_view word)
{
    static const std::unordered_map<std::string_view, char16_t> Characters{
        {"tab", u'\t'},        {"line", 0x2028},    {"lbr", 0x2028},     {"emdash", 0x2014},
        {"endash", 0x2013},    {"emspace", 0x2003}, {"enspace", 0x2002}, {"qmspace", 0x2005},
        {"bullet", 0x2022},    {"lquote", 0x2018},  {"rquote", 0x2019},  {"ldblquote", 0x201c},
        {"rdblquote", 0x201d}, {"zwj", 0x200d},     {"zwnj", 0x200c},    {"zwbo", 0x200b},
        {"ltrmark", 0x200e},   {"rtlmark", 0x200f}, {"nestcell", u'\t'},
    };
    const auto found = Characters.find(word);
    return found == Characters.end() ? u'\0' : found->second;
}

ControlWords::Action ControlWords::Find(std::string_view word)
{
    using I = Interpreter;
    using T = const Token;

    static constexpr Action Hide = [](I &i, T &) { i.SkipGroup(); };
    static constexpr Action EndParagraph = [](I &i, T &) { i.EndParagraph(); };
    static constexpr Action Underline = [](I &i, T &t) { i.state_.text.underlined = On(t); };
    static constexpr Action StrikeOut = [](I &i, T &t) { i.state_.text.struckOut = On(t); };
    static constexpr Action FixedPitchFont = [](I &i, T &) { i.fonts_[i.definedFont_].fixedPitch = true; };
    static constexpr Action Highlight = [](I &i, T &t) {
        i.state_.text.background = i.ColorByNumber(t.number);
    };
    static constexpr Action Nothing = [](I &, T &) {};

    static const std::unordered_map<std::string_view, Action> Actions{
        // The document's character set, fonts, colours and styles.
        {"ansicpg", [](I &i, T &t) { i.documentCodePage_ = &CodePageByNumber(t.number); }},
        {"pc", [](I &i, T &) { i.documentCodePage_ = &CodePageByNumber(437); }},
        {"fonttbl", [](I &i, T &) { i.state_.destination = Destination::FontTable; }},
        {"colortbl", [](I &i, T &) { i.state_.destination = Destination::ColorTable; }},
        {"stylesheet", [](I &i, T &) { i.state_.destination = Destination::Stylesheet; }},
        {"f", [](I &i, T &t) { i.UseFont(t.number); }},
        {"fcharset",
         [](I &i, T &t) {
             i.fonts_[i.definedFont_].codePage = CodePageByCharset(t.number);
             i.fonts_[i.definedFont_].symbol = t.number == 2;
         }},
        {"fmodern", FixedPitchFont},
        {"red", [](I &i, T &t) { i.DefineColor(&Color::red, t.number); }},
        {"green", [](I &i, T &t) { i.DefineColor(&Color::green, t.number); }},
        {"blue", [](I &i, T &t) { i.DefineColor(&Color::blue, t.number); }},
        {"s", [](I &i, T &t) { i.UseStyle(t.number); }},
        {"outlinelevel", [](I &i, T &t) { i.UseOutlineLevel(t.number); }},

        // Groups that are not part of the text: page furniture, indexes, notes on the file.
        {"nonshppict", Hide}, // The picture once more, for simple readers.
        {"objdata", Hide},
        {"shprslt", Hide},
        {"info", Hide},
        {"header", Hide},
        {"headerl", Hide},
        {"headerr", Hide},
        {"headerf", Hide},
        {"footer", Hide},
        {"footerl", Hide},
        {"footerr", Hide},
        {"footerf", Hide},
        {"xe", Hide},
        {"tc", Hide},
        {"tcn", Hide},
        {"rxe", Hide},
        {"template", Hide},
        {"nonesttables", Hide},
        {"private", Hide},
        {"shpinst", Nothing}, // A text box, though optional, is text.

        // Pictures.
        {"shppict", Nothing}, // Optional, and yet the picture that is meant.
        {"sp", [](I &i, T &) { i.state_.destination = Destination::ShapeProperty; }},
        {"pict", [](I &i, T &) { i.BeginPicture(); }},
        {"pngblip", [](I &i, T &) { i.picture_.SetKind(PictureKind::Png); }},
        {"jpegblip", [](I &i, T &) { i.picture_.SetKind(PictureKind::Jpeg); }},
        {"picwgoal", [](I &i, T &t) { i.picture_.SetWidth(std::clamp(t.number, 0, LargestPicture)); }},
        {"pichgoal", [](I &i, T &t) { i.picture_.SetHeight(std::clamp(t.number, 0, LargestPicture)); }},
        {"picscalex", [](I &i, T &t) { i.picture_.SetScaleX(std::clamp(t.number, 1, LargestScale)); }},
        {"picscaley", [](I &i, T &t) { i.picture_.SetScaleY(std::clamp(t.number, 1, LargestScale)); }},
        {"bin",
         [](I &i, T &t) {
             if (i.state_.destination == Destination::Picture)
                 i.picture_.AddBytes(t.binary);
         }},

        // Fields show their result; a link's result shows that it is one.
        {"fldinst",
         [](I &i, T &) {
             i.state_.destination = Destination::FieldInstruction;
             i.instruction_.clear();
         }},
        {"fldrslt",
         [](I &i, T &) { i.state_.text.link |= i.instruction_.find("HYPERLINK") != std::string::npos; }},

        // Characters.
        {"plain", [](I &i, T &) { i.PlainText(); }},
        {"b", [](I &i, T &t) { i.state_.text.bold = On(t); }},
        {"i", [](I &i, T &t) { i.state_.text.italic = On(t); }},
        {"ul", Underline},
        {"uld", Underline},
        {"uldb", Underline},
        {"uldash", Underline},
        {"ulth", Underline},
        {"ulw", Underline},
        {"ulwave", Underline},
        {"ulnone", [](I &i, T &) { i.state_.text.underlined = false; }},
        {"strike", StrikeOut},
        {"striked", StrikeOut},
        {"super", [](I &i, T &t) { i.state_.text.script = On(t) ? Script::Super : Script::Normal; }},
        {"sub", [](I &i, T &t) { i.state_.text.script = On(t) ? Script::Sub : Script::Normal; }},
        {"nosupersub", [](I &i, T &) { i.state_.text.script = Script::Normal; }},
        {"v", [](I &i, T &t) { i.state_.hidden = On(t); }},
        {"deleted", [](I &i, T &t) { i.state_.deleted = On(t); }},
        {"fs",
         [](I &i, T &t) {
             i.state_.text.halfPoints = std::clamp(NumberOr(t, DefaultText), SmallestText, LargestText);
         }},
        {"cf", [](I &i, T &t) { i.state_.text.color = i.ColorByNumber(t.number); }},
        {"highlight", Highlight},
        {"cb", Highlight},
        {"chcbpat", Highlight},
        {"uc", [](I &i, T &t) { i.state_.fallbackLength = std::clamp(NumberOr(t, 1), 0, MostFallback); }},
        {"u", [](I &i, T &t) { i.PutUnicode(t.number); }},

        // Paragraphs.
        {"par", EndParagraph},
        {"sect", EndParagraph},
        {"page", EndParagraph},
        {"column", EndParagraph},
        {"pard", [](I &i, T &) { i.state_.paragraph = {}; }},
        {"ql", [](I &i, T &) { i.state_.paragraph.alignment = Alignment::Left; }},
        {"qc", [](I &i, T &) { i.state_.paragraph.alignment = Alignment::Center; }},
        {"qr", [](I &i, T &) { i.state_.paragraph.alignment = Alignment::Right; }},
        {"qj", [](I &i, T &) { i.state_.paragraph.alignment = Alignment::Justified; }},
        {"li", [](I &i, T &t) { i.state_.paragraph.leftIndent = Twips(t); }},
        {"fi", [](I &i, T &t) { i.state_.paragraph.firstIndent = Twips(t); }},
        {"ri", [](I &i, T &t) { i.state_.paragraph.rightIndent = Twips(t); }},
        {"sb", [](I &i, T &t) { i.state_.paragraph.spaceBefore = Twips(t); }},
        {"sa", [](I &i, T &t) { i.state_.paragraph.spaceAfter = Twips(t); }},
        {"tx",
         [](I &i, T &t) {
             if (i.state_.paragraph.tabStops.size() < MostTabStops)
                 i.state_.paragraph.tabStops.push_back(Twips(t));
         }},

        // Tables.
        {"intbl", [](I &i, T &t) { i.state_.paragraph.inTable = On(t); }},
        {"trowd", [](I &i, T &) { i.writer_.StartRowDescription(); }},
        {"cellx", [](I &i, T &t) { i.writer_.AddCellEnd(t.number); }},
        {"cell", [](I &i, T &) { i.EndCell(); }},
        {"row", [](I &i, T &) { i.EndRow(); }},
    };
    const auto found = Actions.find(word);
    return found == Actions.end() ? nullptr : found->second;
}

} // namespace kelvo::rtf
