#include "rtf/reader.h"
#include "support/samplertf.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

using namespace kelvo;
using namespace kelvo::rtf;

namespace {

std::vector<std::u16string> Lines(const Document &document)
{
    std::vector<std::u16string> lines;
    for (const Paragraph &paragraph : document.paragraphs) {
        lines.emplace_back();
        for (const Run &run : paragraph.runs)
            lines.back() += run.text;
    }
    return lines;
}

/// In the manner of a free office suite: styles in `\*` tables, `\u` with `\'3f`, lists as text.
const char *const FreeOfficeFile = R"({\rtf1\ansi\deff3\adeflang1025
{\fonttbl{\f0\froman\fprq2\fcharset0 Times New Roman;}{\f3\froman\fprq2\fcharset0 Liberation Serif{\*\falt Times New Roman};}
{\f5\fnil\fprq2\fcharset2 OpenSymbol{\*\falt Arial Unicode MS};}{\f6\fmodern\fprq1\fcharset0 Liberation Mono;}}
{\colortbl;\red0\green0\blue0;\red201\green33\blue30;}
{\stylesheet{\s0\snext0\hich\af7\loch\f3\fs24\lang1033 Normal;}{\*\cs15\snext15 Bullets;}
{\s20\sbasedon17\snext18\ql\keepn\sb240\sa120\keepn\outlinelevel1\loch\b\fs32 Heading 2;}{\s17\sbasedon0\fs28 Heading;}}
{\*\generator FreeOffice/1.0$Linux}{\info{\creatim\yr2024}{\doccomm a comment}}{\*\userprops}\deftab709
\hyphauto1\viewscale100{\*\pgdsctbl{\pgdsc0\pgdscuse451 Default;}}\formshade\paperh16838
{\*\ftnsep\chftnsep}\pgndec\pard\plain \s20\ilvl1\outlinelevel1\ql\keepn\sb240{\listtext\pard\plain }\b\fs32{\hich\af3\loch\b\fs32\rtlch \ltrch\loch
Faders}\par \pard\plain \s0\ql\nowidctlpar{\rtlch \ltrch\loch\lang1033
Turn it to }{\cf2\b\rtlch \ltrch\loch\loch 7.0}{\rtlch \ltrch\loch\hich\af3\loch\u8201\'20dB\u8230\'85}\par
\pard\plain {\listtext\pard\plain \hich\af5\dbch\af5\loch\f5 \u8226\'95\tab}\ilvl0\ls1\fi-360\li720 {\loch
One}\par \pard\plain {\listtext\pard\plain 2.\tab}\ilvl0\ls2\fi-360\li720 {\loch Two}\par
\pard\plain \s0{\loch\f6 run\line me}\par {\loch caf\u233\'e9 \u937\'3f \u-10179\'3f\u-8690\'3f}\par})";

} // namespace

TEST_CASE("an office suite's file shows all its text in order")
{
    const Document document = Read(OfficeFile);
    CHECK(Lines(document) == std::vector<std::u16string>{
                                 u"Getting started",
                                 u"It\u2019s easy\u2014\u201creally\u201d. Bold and italic.",
                                 u"\u2022\tfirst point",
                                 u"\u2022\tsecond point",
                                 u"See the site on page1.",
                                 u"Key",
                                 u"Use",
                                 u"F1",
                                 u"Connect",
                                 u"and wait",
                                 u"In a box",
                                 u"\u041f\u0440\u0438\u0432\u0435\u0442",
                                 u"Last line",
                             });
    CHECK(document.paragraphs[0].style.headingLevel == 1);
    CHECK(document.paragraphs[1].style.headingLevel == 0);
    REQUIRE(document.tables.size() == 1);
    CHECK(document.tables[0].rows == 2);
    CHECK(document.tables[0].columns == 2);
    CHECK(document.paragraphs[9].cell == CellPlace{0, 1, 1});
    CHECK(document.paragraphs[10].cell == std::nullopt);
}

TEST_CASE("a free office suite's file shows all its text in order")
{
    const Document document = Read(FreeOfficeFile);
    CHECK(Lines(document) == std::vector<std::u16string>{
                                 u"Faders",
                                 u"Turn it to 7.0\u2009dB\u2026",
                                 u"\u2022\tOne",
                                 u"2.\tTwo",
                                 u"run\u2028me",
                                 u"caf\u00e9 \u03a9 \U0001F60E",
                             });
    CHECK(document.paragraphs[0].style.headingLevel == 2);
    CHECK(document.paragraphs[4].runs[0].style.fixedPitch);
}

TEST_CASE("no beginning of an office suite's file does harm")
{
    const std::string whole = OfficeFile;
    std::size_t longest = 0;
    for (std::size_t length = 0; length <= whole.size(); ++length)
        longest = std::max(longest, Read(whole.substr(0, length)).paragraphs.size());
    CHECK(longest == 13);
}
