#include "fuzzer.h"

#include "rtf/reader.h"
#include "support/samplertf.h"

using namespace kelvo;

namespace {

bool IsShown(char16_t unit)
{
    const bool control = (unit < 0x20 && unit != '\t') || (unit >= 0x7f && unit < 0xa0);
    const bool noncharacter = (unit >= 0xfdd0 && unit <= 0xfdef) || unit > 0xfffd;
    return !control && !noncharacter && unit != 0x2029;
}

void MustBePlaced(const rtf::Paragraph &paragraph, const rtf::Document &document)
{
    if (!paragraph.cell)
        return;
    const auto [number, row, column] = *paragraph.cell;
    Must(number >= 0 && std::size_t(number) < document.tables.size(), "a cell's table is known");
    const rtf::Table &table = document.tables[std::size_t(number)];
    Must(row >= 0 && row < table.rows, "a cell's row is in its table");
    Must(column >= 0 && column < table.columns, "a cell's column is in its table");
}

void Try(std::string_view bytes)
{
    const rtf::Document document = rtf::Read(bytes);
    std::size_t pictureBytes = 0;
    for (const rtf::Picture &picture : document.pictures)
        pictureBytes += picture.bytes.size();
    Must(pictureBytes <= rtf::Picture::MostBytesOfAll, "pictures are kept within their bound");
    for (const rtf::Paragraph &paragraph : document.paragraphs) {
        MustBePlaced(paragraph, document);
        for (const rtf::Run &run : paragraph.runs) {
            Must(run.text.empty() == run.picture.has_value(), "a run has a text or a picture");
            Must(!run.picture || *run.picture < document.pictures.size(), "a run's picture is known");
            for (const char16_t unit : run.text)
                Must(IsShown(unit), "a text holds no character that cannot be shown");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string_view bytes = TextOf(data, size);
    Try(bytes);
    Try("{\\rtf1 " + std::string(bytes));
    Try(Patched(OfficeFile, bytes));
    return 0;
}
