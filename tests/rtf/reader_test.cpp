#include "rtf/reader.h"

#include <doctest/doctest.h>

#include <ctime>
#include <string>
#include <vector>

using namespace kelvo::rtf;

namespace {

std::string Rtf(const std::string &body)
{
    return "{\\rtf1\\ansi\\ansicpg1252\\uc1{\\fonttbl{\\f0\\fswiss Arial;}{\\f1\\fmodern Courier;}"
           "{\\f2\\fcharset204 Arial;}{\\f3\\ftech\\fcharset2 Symbol;}}"
           "{\\colortbl;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"
           "{\\stylesheet{\\s0 Normal;}{\\s1 heading 1;}{\\*\\cs9 Emphasis;}{\\s7\\outlinelevel2 Chapter;}}" +
           body + "}";
}

std::u16string TextOf(const Paragraph &paragraph)
{
    std::u16string text;
    for (const Run &run : paragraph.runs)
        text += run.text;
    return text;
}

/// The paragraphs' texts, joined by "|".
std::u16string TextOf(const Document &document)
{
    std::u16string text;
    for (const Paragraph &paragraph : document.paragraphs)
        text += (text.empty() ? u"" : u"|") + TextOf(paragraph);
    return text;
}

std::u16string TextOfBody(const std::string &body)
{
    return TextOf(Read(Rtf(body)));
}

/// The one run of a document that has one.
Run OnlyRun(const std::string &body)
{
    const Document document = Read(Rtf(body));
    REQUIRE(document.paragraphs.size() == 1);
    REQUIRE(document.paragraphs[0].runs.size() == 1);
    return document.paragraphs[0].runs[0];
}

bool HasLoneSurrogate(const std::u16string &text)
{
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool high = text[at] >= 0xd800 && text[at] < 0xdc00;
        const bool low = text[at] >= 0xdc00 && text[at] < 0xe000;
        if (low || (high && (at + 1 == text.size() || text[at + 1] < 0xdc00 || text[at + 1] >= 0xe000)))
            return true;
        at += high;
    }
    return false;
}

/// What this program has worked, however busy the machine is with other things.
double SecondsWorked()
{
    return double(std::clock()) / CLOCKS_PER_SEC;
}

} // namespace

TEST_CASE("paragraphs come in their order, the last one without its end")
{
    CHECK(TextOfBody("one\\par two\\par\n\\par four") == u"one|two||four");
}

TEST_CASE("line ends of the file are no text, the blank after a control word belongs to the word")
{
    CHECK(TextOfBody("on\r\ne \\b bold\\b0  two") == u"one bold two");
}

TEST_CASE("a group gives back at its end what it changed")
{
    const Document document = Read(Rtf("a{\\b\\i b}c"));
    REQUIRE(document.paragraphs[0].runs.size() == 3);
    CHECK(document.paragraphs[0].runs[1].text == u"b");
    CHECK(document.paragraphs[0].runs[1].style.bold);
    CHECK(document.paragraphs[0].runs[1].style.italic);
    CHECK_FALSE(document.paragraphs[0].runs[2].style.bold);
}

TEST_CASE("bold, italic, underline, strike, script, size and fixed pitch reach the run")
{
    CHECK(OnlyRun("\\b x").style.bold);
    CHECK_FALSE(OnlyRun("\\b\\b0 x").style.bold);
    CHECK(OnlyRun("\\i1 x").style.italic);
    CHECK(OnlyRun("\\ul x").style.underlined);
    CHECK(OnlyRun("\\uldb x").style.underlined);
    CHECK_FALSE(OnlyRun("\\ul\\ulnone x").style.underlined);
    CHECK(OnlyRun("\\strike x").style.struckOut);
    CHECK(OnlyRun("\\super x").style.script == Script::Super);
    CHECK(OnlyRun("\\sub x").style.script == Script::Sub);
    CHECK(OnlyRun("x").style.halfPoints == 24);
    CHECK(OnlyRun("\\fs36 x").style.halfPoints == 36);
    CHECK(OnlyRun("\\f1 x").style.fixedPitch);
    CHECK_FALSE(OnlyRun("\\f1\\f0 x").style.fixedPitch);
    CHECK(OnlyRun("\\b\\i\\f1\\fs40\\plain x").style == TextStyle{});
}

TEST_CASE("colours come from the colour table, number 0 is the page's own")
{
    CHECK(OnlyRun("\\cf1 x").style.color == Color{255, 0, 0});
    CHECK(OnlyRun("\\cf2\\highlight1 x").style.color == Color{0, 0, 255});
    CHECK(OnlyRun("\\cf2\\highlight1 x").style.background == Color{255, 0, 0});
    CHECK(OnlyRun("\\cf1\\cf0 x").style.color == std::nullopt);
    CHECK(OnlyRun("\\cf99 x").style.color == std::nullopt);
    CHECK(OnlyRun("\\cf-5 x").style.color == std::nullopt);
}

TEST_CASE("paragraphs keep indents, tabs, spacing and alignment until \\pard")
{
    const Document document =
        Read(Rtf("\\qc\\li720\\fi-360\\ri100\\sb120\\sa60\\tx1440\\tx2880 a\\par\\pard b\\par"));
    const ParagraphStyle &style = document.paragraphs[0].style;
    CHECK(style.alignment == Alignment::Center);
    CHECK(style.leftIndent == 720);
    CHECK(style.firstIndent == -360);
    CHECK(style.rightIndent == 100);
    CHECK(style.spaceBefore == 120);
    CHECK(style.spaceAfter == 60);
    CHECK(style.tabStops == std::vector<int>{1440, 2880});
    CHECK(document.paragraphs[1].style.leftIndent == 0);
    CHECK(document.paragraphs[1].style.alignment == Alignment::Left);
    CHECK(document.paragraphs[1].style.tabStops.empty());
}

TEST_CASE("headings are known by the name of their style and by their outline level")
{
    const Document document =
        Read(Rtf("\\pard\\s1 A\\par\\pard\\s7 B\\par\\pard\\outlinelevel1 C\\par\\pard\\s0 D\\par"));
    CHECK(document.paragraphs[0].style.headingLevel == 1);
    CHECK(document.paragraphs[1].style.headingLevel == 3);
    CHECK(document.paragraphs[2].style.headingLevel == 2);
    CHECK(document.paragraphs[3].style.headingLevel == 0);
}

TEST_CASE("characters by number, with what stands there for readers that do not know them")
{
    CHECK(TextOfBody("\\u233?t\\u233\\'e9") == u"\u00e9t\u00e9");
    CHECK(TextOfBody("\\uc2\\u8364EUx") == u"\u20acx");
    CHECK(TextOfBody("\\uc0\\u8364x") == u"\u20acx");
    CHECK(TextOfBody("{\\uc3 }\\u8364?x") == u"\u20acx");
    CHECK(TextOfBody("{\\u8364}?") == u"\u20ac?");
    CHECK(TextOfBody("\\u-10179?\\u-8704?") == u"\U0001F600");
    CHECK(TextOfBody("\\u8211\\endash -") == u"\u2013-");
}

TEST_CASE("half a surrogate pair becomes the replacement character")
{
    CHECK(TextOfBody("a\\u-10179?b") == u"a\ufffdb");
    CHECK(TextOfBody("a\\u-8704?b") == u"a\ufffdb");
    CHECK(TextOfBody("{\\b\\u-10179?}\\u-8704?") == u"\ufffd\ufffd");
}

TEST_CASE("bytes are read in the character set of the font, else of the document")
{
    CHECK(TextOfBody("\\'e9\\'80") == u"\u00e9\u20ac");
    CHECK(TextOfBody("{\\f2\\'cf\\'f0}\\'f0") == u"\u041f\u0440\u00f0");
    CHECK(TextOfBody("\xe9") == u"\u00e9");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1250 \\'b3\\'f3\\'9f}")) == u"\u0142\u00f3\u017a");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1251 \\'c4\\'e0}")) == u"\u0414\u0430");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1253 \\'cd\\'e1\\'df}")) == u"\u039d\u03b1\u03af");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1254 \\'dd\\'fe\\'fd\\'f0}")) == u"\u0130\u015f\u0131\u011f");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1257 \\'f0\\'e2\\'eb\\'fe}")) == u"\u0161\u0101\u0117\u017e");
    CHECK(TextOf(Read("{\\rtf1\\ansi\\ansicpg1255 \\'e9}")) == u"\u00e9");
    CHECK(TextOf(Read("{\\rtf1\\pc \\'84\\'c4}")) == u"\u00e4\u2500");
    CHECK(TextOfBody("{\\f3\\'b7}x") == u"\u2022x");
    CHECK(TextOfBody("{\\f3\\u-3913?}x") == u"\u2022x");
}

TEST_CASE("a font's character set is known by its number")
{
    const auto inFont = [](const char *charset, const char *bytes) {
        return TextOf(Read(std::string("{\\rtf1\\ansi{\\fonttbl{\\f0\\fcharset") + charset +
                           " Arial;}}\\f0 " + bytes + "}"));
    };
    CHECK(inFont("161", "\\'d9") == u"\u03a9");
    CHECK(inFont("162", "\\'de") == u"\u015e");
    CHECK(inFont("186", "\\'da") == u"\u015a");
    CHECK(inFont("204", "\\'df") == u"\u042f");
    CHECK(inFont("238", "\\'f8") == u"\u0159");
    CHECK(inFont("255", "\\'e1") == u"\u00df");
    CHECK(inFont("0", "\\'df") == u"\u00df");
}

TEST_CASE("raw bytes that are UTF-8 are read as such, all others in the character set")
{
    CHECK(TextOfBody("R\xc3\xa9publique \xe2\x82\xac \xf0\x9f\x98\x80") ==
          u"R\u00e9publique \u20ac \U0001F600");
    CHECK(TextOfBody("{\\f2 \xd0\x94\xd0\xb0}") == u"\u0414\u0430");
    CHECK(TextOfBody("caf\xe9 \xc3\xa9t\xc3\xa9") == u"caf\u00e9 \u00e9t\u00e9");
    // Bytes that stand together are of one kind.
    CHECK(TextOfBody("\xc3\xa9\xe9") == u"\u00c3\u00a9\u00e9");
    CHECK(TextOfBody("\\'c3\\'a9") == u"\u00c3\u00a9");
    // A character that stands for one that was understood is one, however many bytes it has.
    CHECK(TextOfBody("\\u233\xc3\xa9t\\u233\xf0\x9f\x98\x80!") == u"\u00e9t\u00e9!");
}

TEST_CASE("bytes that only look like UTF-8 are read in the character set")
{
    CHECK(TextOfBody("\xc3") == u"\u00c3");                               // cut off
    CHECK(TextOfBody("\xa9\xc3") == u"\u00a9\u00c3");                     // begins in the middle
    CHECK(TextOfBody("\xc0\xaf") == u"\u00c0\u00af");                     // longer than need be
    CHECK(TextOfBody("\xe0\x9f\xbf") == u"\u00e0\u0178\u00bf");           // the same in three bytes
    CHECK(TextOfBody("\xed\xa0\x80") == u"\u00ed\u00a0\u20ac");           // half a surrogate pair
    CHECK(TextOfBody("\xf4\x90\x80\x80") == u"\u00f4\ufffd\u20ac\u20ac"); // beyond the last character
    CHECK(TextOfBody("\xf8\xa1\xa1\xa1\xa1") == u"\u00f8\u00a1\u00a1\u00a1\u00a1"); // five bytes
}

TEST_CASE("words and symbols that stand for characters")
{
    CHECK(TextOfBody("a\\tab b\\line c\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote") ==
          u"a\tb\u2028c\u2014\u2013\u2022\u2018\u2019\u201c\u201d");
    CHECK(TextOfBody("a\\~b\\-c\\_d\\\\\\{\\}") == u"a\u00a0b\u00adc\u2011d\\{}");
    CHECK(TextOfBody("a\\\nb\\page c\\sect d") == u"a|b|c|d");
}

TEST_CASE("what is not for reading is left out: objects, hidden text, optional groups, page furniture")
{
    CHECK(TextOfBody("a{\\object\\objemb{\\*\\objdata 0105}{\\result shown}}b") == u"ashownb");
    CHECK(TextOfBody("a{\\v secret}\\v also\\v0 b") == u"ab");
    CHECK(TextOfBody("a{\\deleted gone}b") == u"ab");
    CHECK(TextOfBody("a{\\*\\unheardof x{y}z}b") == u"ab");
    CHECK(TextOfBody("a{\\info{\\title T}{\\author A}}{\\header H\\par}{\\footer F}b") == u"ab");
    CHECK(TextOfBody("a{\\*\\themedata 504b0304}{\\*\\latentstyles x;}{\\xe word}b") == u"ab");
    CHECK(TextOfBody(std::string("a\\bin5 {}\\{zb", 13)) == u"ab");
}

TEST_CASE("unknown words do nothing, their groups' text is read")
{
    CHECK(TextOfBody("a{\\unheardof b}\\another7 c") == u"abc");
}

TEST_CASE("a link shows its text and keeps no address, other fields show their result")
{
    const Document document = Read(Rtf("see {\\field{\\*\\fldinst { HYPERLINK \"http://nowhere.example/\" }}"
                                       "{\\fldrslt {\\ul\\cf2 here}}} now, page {\\field{\\*\\fldinst PAGE}"
                                       "{\\fldrslt 4}}"));
    CHECK(TextOf(document) == u"see here now, page 4");
    REQUIRE(document.paragraphs[0].runs.size() == 3);
    CHECK_FALSE(document.paragraphs[0].runs[0].style.link);
    CHECK(document.paragraphs[0].runs[1].style.link);
    CHECK_FALSE(document.paragraphs[0].runs[2].style.link);
}

TEST_CASE("a list keeps the bullets and numbers that were written for simple readers")
{
    CHECK(TextOfBody(
              "{\\pntext\\f3\\'b7\\tab}{\\*\\pn\\pnlvlblt\\pnf3{\\pntxtb\\'b7}}\\fi-360\\li720 first\\par"
              "{\\listtext\\pard\\plain 2.\\tab}\\ls1 second\\par") == u"\u2022\tfirst|2.\tsecond");
}

TEST_CASE("cells know their table, row and column")
{
    const Document document =
        Read(Rtf("before\\par\\trowd\\cellx1000\\cellx4000\\pard\\intbl a\\cell b\\par b2\\cell\\row"
                 "\\trowd\\cellx1000\\cellx4000\\pard\\intbl c\\cell d\\cell\\row\\pard after\\par"
                 "\\trowd\\cellx900\\intbl e\\cell\\row"));
    REQUIRE(document.tables.size() == 2);
    CHECK(document.tables[0].rows == 2);
    CHECK(document.tables[0].columns == 2);
    CHECK(document.tables[0].cellEnds == std::vector<int>{1000, 4000});
    CHECK(TextOf(document) == u"before|a|b|b2|c|d|after|e");
    CHECK(document.paragraphs[1].cell == CellPlace{0, 0, 0});
    CHECK(document.paragraphs[2].cell == CellPlace{0, 0, 1});
    CHECK(document.paragraphs[3].cell == CellPlace{0, 0, 1});
    CHECK(document.paragraphs[4].cell == CellPlace{0, 1, 0});
    CHECK(document.paragraphs[5].cell == CellPlace{0, 1, 1});
    CHECK(document.paragraphs[6].cell == std::nullopt);
    CHECK(document.paragraphs[7].cell == CellPlace{1, 0, 0});
}

TEST_CASE("a nested table keeps its text in its order inside the outer cell")
{
    CHECK(TextOfBody(
              "\\trowd\\cellx5000\\pard\\intbl out \\itap2 in1\\nestcell in2\\nestcell"
              "{\\*\\nesttableprops\\trowd\\cellx900\\nestrow}{\\nonesttables\\par}\\itap1 end\\cell\\row") ==
          u"out in1\tin2\tend");
}

TEST_CASE("a file cut off anywhere gives a beginning of what it says")
{
    const std::string whole =
        Rtf("one \\b two\\b0\\par {\\i three}\\u233?\\'e9\\par\\trowd\\cellx1000\\pard\\intbl "
            "four\\cell\\row\\pard {\\field{\\*\\fldinst HYPERLINK x}{\\fldrslt five}}");
    const std::u16string text = TextOf(Read(whole));
    for (std::size_t length = 5; length < whole.size(); ++length) {
        CAPTURE(length);
        const std::u16string part = TextOf(Read(whole.substr(0, length)));
        // Cut inside `\par` or `\u233?` the rest of a word or a mark may be missing, never a text invented.
        CHECK(part.size() <= text.size() + 1);
        CHECK(text.find(part.substr(0, part.size() > 1 ? part.size() - 1 : 0)) == 0);
    }
}

TEST_CASE("numbers that no integer holds do no harm")
{
    CHECK(TextOfBody("\\fs99999999999999999999\\li-99999999999\\cf99999999999\\f99999999999\\tx99999999999 "
                     "x\\par y") == u"x|y");
    CHECK(OnlyRun("\\fs99999999999999999999 x").style.halfPoints <= 200);
    CHECK(OnlyRun("\\fs-4 x").style.halfPoints > 0);
    CHECK(TextOfBody("a\\bin99999999999999 b") == u"a");
    CHECK(TextOfBody("a\\bin-7 b") == u"ab");
    CHECK(TextOfBody("\\uc99999999999\\u233 x") == u"\u00e9");
    CHECK(TextOfBody("\\trowd\\cellx-99999999999\\intbl a\\cell\\row") == u"a");
}

TEST_CASE("groups nested 100,000 deep are read, and 10 million do no harm")
{
    const std::string deep(100'000, '{');
    const std::string up(100'000, '}');
    CHECK(TextOfBody("a" + deep + "\\b b" + up + "c\\par d") == u"abc|d");
    CHECK(TextOf(Read("{\\rtf1 a" + std::string(10'000'000, '{') + "b")).starts_with(u"a"));
    CHECK(TextOf(Read("{\\rtf1 a" + std::string(10'000'000, '}') + "b")) == u"a");
}

TEST_CASE("what is no RTF is read as plain text")
{
    CHECK(TextOf(Read("The guide\r\nis here")) == u"The guide|is here");
    CHECK(TextOf(Read("")) == u"");
    CHECK(TextOf(Read("\xef\xbb\xbfR\xc3\xa9publique\n\xd0\x94\xd0\xb0")) == u"R\u00e9publique|\u0414\u0430");
    CHECK(TextOf(Read("R\xe9publique")) == u"R\u00e9publique");
    CHECK(TextOf(Read("{\\rt")) == u"{\\rt");
    CHECK(TextOf(Read(" \r\n{\\rtf1 x}")) == u"x");
}

TEST_CASE("binary bytes give a text without control characters, noncharacters and lone surrogates")
{
    std::string bytes;
    unsigned seed = 1;
    for (int count = 0; count < 300'000; ++count) {
        seed = seed * 1664525 + 1013904223;
        bytes += char(seed >> 24);
    }
    for (const std::string &content : {bytes, Rtf(bytes), "{\\rtf1\\u64976?\\u-1?\\u1?\\u-4?" + bytes}) {
        for (const Paragraph &paragraph : Read(content).paragraphs) {
            const std::u16string text = TextOf(paragraph);
            CHECK_FALSE(HasLoneSurrogate(text));
            for (const char16_t unit : text)
                CHECK_FALSE(
                    ((unit < 0x20 && unit != '\t') || (unit >= 0xfdd0 && unit <= 0xfdef) || unit > 0xfffd));
        }
    }
}

TEST_CASE("50 MB of anything end soon, with what was read so far and a mark")
{
    for (const std::string &unit :
         {std::string("word "), std::string("\\par "), std::string("\\b x\\b0 y"), std::string("{\\b x}"),
          std::string("\\cell "), std::string("{\\*\\x y}")}) {
        CAPTURE(unit);
        std::string content = "{\\rtf1 start ";
        while (content.size() < 50'000'000)
            content += unit;
        const double start = SecondsWorked();
        const Document document = Read(content);
        CHECK(SecondsWorked() - start < 5);
        CHECK(document.cutOff);
        CHECK(TextOf(document.paragraphs.front()).starts_with(u"start"));
    }
}

TEST_CASE("60 MB of line ends do no harm")
{
    CHECK(Read("x" + std::string(60'000'000, '\n')).cutOff);
}

TEST_CASE("50 MB of pictures leave room for all the text after them")
{
    std::string picture = "{\\pict\\pngblip\n";
    while (picture.size() < 50'000'000)
        picture += std::string(128, 'a') + "\r\n";
    const Document document = Read("{\\rtf1 before" + picture + "}after}");
    CHECK(TextOf(document) == u"beforeafter");
    CHECK_FALSE(document.cutOff);
}

TEST_CASE("a paragraph without end is cut, its text is not")
{
    const Document document = Read("{\\rtf1 " + std::string(100'000, 'x') + "}");
    std::size_t length = 0;
    for (const Paragraph &paragraph : document.paragraphs)
        length += TextOf(paragraph).size();
    CHECK(length == 100'000);
    CHECK(document.paragraphs.size() > 1);
}
