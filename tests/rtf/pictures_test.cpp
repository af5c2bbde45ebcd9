#include "rtf/reader.h"

#include <doctest/doctest.h>

#include <string>

using namespace kelvo::rtf;

namespace {

Document ReadBody(const std::string &body)
{
    return Read("{\\rtf1\\ansi " + body + "}");
}

/// The paragraphs' texts, joined by "|", with "#" and its number for each picture.
std::string TextOf(const Document &document)
{
    std::string text;
    for (const Paragraph &paragraph : document.paragraphs) {
        text += text.empty() ? "" : "|";
        for (const Run &run : paragraph.runs)
            text += run.picture ? "#" + std::to_string(*run.picture)
                                : std::string(run.text.begin(), run.text.end());
    }
    return text;
}

/// The one picture of a document that has one.
Picture OnlyPicture(const std::string &body)
{
    const Document document = ReadBody(body);
    REQUIRE(document.pictures.size() == 1);
    return document.pictures[0];
}

} // namespace

TEST_CASE("a picture stands in its place, with its kind and its bytes")
{
    const Document document =
        ReadBody("a{\\pict\\pngblip 89504e47{\\*\\blipuid 00}0D0a}b\\par{\\pict\\jpegblip ffd8}");
    CHECK(TextOf(document) == "a#0b|#1");
    REQUIRE(document.pictures.size() == 2);
    CHECK(document.pictures[0].kind == PictureKind::Png);
    CHECK(document.pictures[0].bytes == "\x89PNG\r\n");
    CHECK(document.pictures[1].kind == PictureKind::Jpeg);
    CHECK(document.pictures[1].bytes == "\xff\xd8");
}

TEST_CASE("a picture's bytes may be given as they are")
{
    const std::string body = std::string("{\\pict\\pngblip\\bin6 a}b{\\\0}", 27) + "after";
    const Document document = ReadBody(body);
    CHECK(TextOf(document) == "#0after");
    CHECK(document.pictures[0].bytes == std::string("a}b{\\\0", 6));
}

TEST_CASE("hexadecimal bytes may be cut by line ends and by what is no digit")
{
    CHECK(OnlyPicture("{\\pict\\pngblip 4\r\n1 4-2\n}").bytes == "AB");
    CHECK(OnlyPicture("{\\pict\\pngblip 414}").bytes == "A");
}

TEST_CASE("a picture tells how large it is meant to be")
{
    const Picture picture = OnlyPicture(
        "{\\pict\\picscalex50\\picscaley200\\picw9\\pich9\\picwgoal1500\\pichgoal750\\pngblip 41}");
    CHECK(picture.width == 1500);
    CHECK(picture.height == 750);
    CHECK(picture.scaleX == 50);
    CHECK(picture.scaleY == 200);
    const Picture silent = OnlyPicture("{\\pict\\pngblip 41}");
    CHECK(silent.width == 0);
    CHECK(silent.height == 0);
    CHECK(silent.scaleX == 100);
    CHECK(silent.scaleY == 100);
}

TEST_CASE("sizes that no picture has do no harm")
{
    const Picture picture = OnlyPicture(
        "{\\pict\\picscalex0\\picscaley-7\\picwgoal99999999999\\pichgoal-99999999999\\pngblip 41}");
    CHECK(picture.width == 100'000);
    CHECK(picture.height == 0);
    CHECK(picture.scaleX == 1);
    CHECK(picture.scaleY == 1);
}

TEST_CASE("another kind of picture keeps its place and no bytes")
{
    for (const std::string kind : {"wmetafile8", "emfblip", "dibitmap0", "macpict", "unheardof"}) {
        CAPTURE(kind);
        const Document document = ReadBody("a{\\pict\\" + kind + " 0100090000}b");
        CHECK(TextOf(document) == "a#0b");
        CHECK(document.pictures[0].kind == PictureKind::Other);
        CHECK(document.pictures[0].bytes.empty());
    }
}

TEST_CASE("a picture written twice for simple readers is there once, one of a shape too")
{
    CHECK(TextOf(ReadBody("a{\\*\\shppict{\\pict\\pngblip 41}}{\\nonshppict{\\pict\\wmetafile8 42}}b")) ==
          "a#0b");
    CHECK(TextOf(ReadBody(
              "a{\\shp{\\*\\shpinst{\\sp{\\sn pib}{\\sv {\\pict\\pngblip 41}}}{\\sp{\\sn x}{\\sv 202}}}"
              "{\\shprslt{\\pict\\wmetafile8 42}}}b")) == "a#0b");
}

TEST_CASE("what nobody is to see has no picture either, nor has an empty group")
{
    CHECK(TextOf(ReadBody(
              "a{\\v{\\pict\\pngblip 41}}{\\deleted{\\pict\\pngblip 41}}"
              "{\\header{\\pict\\pngblip 41}}{\\*\\unheardof{\\pict\\pngblip 41}}{\\pict\\pngblip}b")) ==
          "ab");
}

TEST_CASE("a file that is cut off inside a picture loses that picture alone")
{
    CHECK(TextOf(Read("{\\rtf1 a{\\pict\\pngblip 41}b{\\pict\\pngblip 4142")) == "a#0b");
    CHECK(TextOf(Read("{\\rtf1 a{\\pict\\pngblip 41}b{\\pict\\pngblip\\bin900 x")) == "a#0b");
}

TEST_CASE("pictures are kept up to 32 MB, those beyond keep their place")
{
    const std::string most(32u << 20, 'x');
    const auto picture = [](const std::string &bytes) {
        return "{\\pict\\pngblip\\bin" + std::to_string(bytes.size()) + " " + bytes + "}";
    };
    const Document tooLarge = ReadBody("a" + picture(most + "x") + "b" + picture("small"));
    CHECK(TextOf(tooLarge) == "a#0b#1");
    CHECK(tooLarge.pictures[0].bytes.empty());
    CHECK(tooLarge.pictures[1].bytes == "small");

    const Document together = ReadBody(picture(most.substr(2)) + picture("xy") + picture("z"));
    REQUIRE(together.pictures.size() == 3);
    CHECK(together.pictures[0].bytes.size() == most.size() - 2);
    CHECK(together.pictures[1].bytes == "xy");
    CHECK(together.pictures[2].bytes.empty());
}

TEST_CASE("pictures without end are cut, and the file says so")
{
    std::string many;
    for (int count = 0; count < 100'000; ++count)
        many += "{\\pict\\pngblip 41}";
    const Document document = ReadBody(many);
    CHECK(document.cutOff);
    CHECK(document.pictures.size() < 1'000);
    CHECK(document.pictures.size() > 100);
}
