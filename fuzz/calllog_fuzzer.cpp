#include "fuzzer.h"

#include "support/samplelog.h"
#include "unit/calllog.h"

#include <algorithm>
#include <sstream>
#include <utility>

using namespace kelvo;

namespace {

void MustFit(const LogLine &line)
{
    const Shape &shape = RowOf(line.operation).shape;
    const bool call = line.kind == LogLine::Kind::Call;
    Must(line.bytes.size() == (call ? shape.bytesIn : shape.bytesOut), "the bytes fit the operation");
    Must(line.words.size() == (call ? shape.wordsIn : shape.wordsOut), "the words fit the operation");
}

void Try(std::string_view bytes)
{
    std::istringstream file{std::string(bytes)};
    CallLogReader reader(file);
    const auto ends = std::size_t(std::ranges::count(bytes, '\n'));
    std::size_t number = 0;
    while (std::optional<LogLine> line = reader.Next()) {
        Must(line->number > number && line->number <= ends + 1, "lines are counted as they stand");
        number = std::exchange(line->number, 0);
        Must(ReadLogLine(TextOf(*line)) == *line, "what was read can be written and read");
        Must(line->problem.empty() == (line->kind != LogLine::Kind::Damaged), "damage has a reason");
        if (line->kind == LogLine::Kind::Call || line->kind == LogLine::Kind::Answer)
            MustFit(*line);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Try(TextOf(data, size));
    Try(Patched(SampleLog, TextOf(data, size)));
    return 0;
}
