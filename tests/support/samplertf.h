#pragma once

namespace kelvo {

/// Written by hand in the manner of an office suite's exporter: inherited attributes everywhere, list and
/// style tables, theme data, associated fonts, revision numbers, a field inside a field, a table with its
/// row described before and after the cells.
inline constexpr const char *OfficeFile =
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

} // namespace kelvo
