#include "rtf/reader.h"

#include <doctest/doctest.h>

#include <string>
#include <vector>

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

/// Written by hand in the manner of an office suite's exporter: inherited attributes everywhere, list and
/// style tables, theme data, associated fonts, revision numbers, a field inside a field, a table with its
/// row described before and after the cells.
const char *const OfficeFile =
    R"({\rtf1\adeflang1025\ansi\ansicpg1252\uc1\adeff31507\deff0\stshfdbch31506\deflang1033
{\fonttbl{\f0\fbidi \froman\fcharset0\fprq2{\*\panose 02020603050405020304}Times New Roman;}
{\f3\fbidi \froman\fcharset2\fprq2{\*\panose 05050102010706020507}Symbol;}
{\f37\fbidi \fswiss\fcharset0\fprq2 Calibri{\*\falt Arial};}{\f42\fbidi \fswiss\fcharset204\fprq2 Calibri Cyr;}}
{\colortbl;\red0\green0\blue0;\red5\green99\blue193;\ctextone\ctint255\cshade255\red46\green116\blue181;}
{\*\defchp \f31506\fs22 }{\*\defpap \ql \li0\ri0\sa160\sl259\slmult1 }\noqfpromote
{\stylesheet{\ql \li0\ri0\sa160\sl259\slmult1\widctlpar\rtlch\fcs1 \af0\afs22 \ltrch\fcs0 \f37\fs22 \snext0 \sqformat Normal;}
{\s1\ql \li0\ri0\sb240\keep\keepn\widctlpar\outlinelevel0\rtlch\fcs1 \af0 \ltrch\fcs0 \fs32\cf3 \sbasedon0 \snext0 heading 1;}
{\*\cs10 \additive Default Paragraph Font;}{\*\ts11\tsrowd\trftsWidthB3\trpaddl108 \snext11 Normal Table;}
{\*\cs17 \additive \ul\cf2 \sbasedon10 Hyperlink;}}
{\*\listtable{\list\listtemplateid1\listhybrid{\listlevel\levelnfc23\leveljc0{\leveltext\leveltemplateid67698689
\'01\u-3913 ?;}{\levelnumbers;}\f3\fbias0 \fi-360\li720 }{\listname ;}\listid1}}
{\*\listoverridetable{\listoverride\listid1\listoverridecount0\ls1}}
{\*\rsidtbl \rsid525\rsid9999}{\mmathPr\mmathFont34\mbrkBin0}{\info{\title A guide}{\author Someone}{\creatim\yr2001\mo8}}
{\*\xmlnstbl {\xmlns1 http://nowhere.example/word}}\paperw12240\paperh15840\margl1440
{\*\wgrffmtfilter 2450}\nofeaturethrottle1\pgndec{\*\pnseclvl1\pnucrm\pnstart1{\pntxta .}}
{\header \pard\plain \qc page furniture\par}
\pard\plain \ltrpar\s1\ql \li0\ri0\sb240\keep\keepn\widctlpar\outlinelevel0 \rtlch\fcs1 \af31503\afs32 \ltrch\fcs0
\fs32\cf3\lang1033 {\rtlch\fcs1 \af31503 \ltrch\fcs0 \insrsid525 {\*\bkmkstart _Toc1}Getting \hich\af37\loch\f37 started{\*\bkmkend _Toc1}
\par }\pard\plain \ltrpar\ql \li0\ri0\sa160 \f37\fs22 {\insrsid525 It\rquote s easy\u8212\'97\'93really\'94. {\b\insrsid1 Bold} and}{\i\insrsid9999  italic}{\insrsid525 .
\par {\listtext\pard\plain\ltrpar \f3 \loch\af3\dbch\af0\hich\f3 \'b7\tab}}\pard \fi-360\li720\ls1\adjustright {\insrsid525 first point
\par {\listtext\pard\plain \f3 \'b7\tab}second point
\par }\pard \li0 {\insrsid1 See }{\field\fldedit{\*\fldinst {\insrsid1  HYPERLINK "http://nowhere.example/x" }{\insrsid1 {\*\datafield 00d0c9ea79f9}}}{\fldrslt {\cs17\ul\cf2 the site}}}\sectd \linex0{\insrsid1  on page
{\field{\*\fldinst  PAGEREF _Toc1 \\h }{\fldrslt 1}}.
\par }\trowd \irow0\irowband0\trgaph108\trleft-108\trbrdrt\brdrs\brdrw10 \clvertalt\clbrdrt\brdrs \clcbpat3\cellx4500\clvertalt\cellx9200
\pard\plain \ltrpar\ql \intbl\f37\fs22 {\b\insrsid1 Key\cell Use\cell }\pard\plain \intbl {\trowd \irow0\trgaph108\trleft-108\cellx4500\cellx9200\row }
\pard\plain \intbl\f37 {\insrsid1 F1\cell Connect\par and wait\cell }\pard \intbl {\trowd \irow1\lastrow \trleft-108\cellx4500\cellx9200\row }\pard \ltrpar\li0
{\shp{\*\shpinst\shpleft1\shptop1{\sp{\sn shapeType}{\sv 202}}{\shptxt \pard\plain In a box\par }}{\shprslt{\*\do\dobxcolumn\dptxbx{\dptxbxtext In a box\par}}}}
{\*\shppict{\pict{\*\picprop}\wmetafile8\picw1 0100090000}}{\nonshppict{\pict\wmetafile8 010009}}{\f42\'cf\'f0\'e8\'e2\'e5\'f2\par }
{\insrsid1 Last line}{\insrsid1 \par }{\*\themedata 504b030414000600080000002100}{\*\colorschememapping 3c3f786d6c}
{\*\latentstyles\lsdstimax375{\lsdlockedexcept \lsdqformat1 \lsdpriority0 Normal;}}{\*\datastore 0105000002}})";

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
