#include "unit/calllog.h"

#include "support/anycall.h"
#include "support/samplelog.h"
#include "support/testfolder.h"
#include "unit/simulatedunit.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <sstream>

using namespace kelvo;
using namespace std::chrono;
using Kind = LogLine::Kind;

namespace {

/// A file for logs whose name is not plain ASCII.
struct LogFile {
    TestFolder folder;
    std::string name = "calls \u0416.log";
    std::string path = folder.Path(name);

    std::string Content() const { return folder.Get(name).value_or(""); }
};

std::vector<LogLine> LinesOf(const std::string &content)
{
    std::istringstream file(content);
    CallLogReader reader(file);
    std::vector<LogLine> lines;
    while (std::optional<LogLine> line = reader.Next())
        lines.push_back(*line);
    return lines;
}

std::string Marks(const std::vector<LogLine> &lines)
{
    std::string marks;
    for (const LogLine &line : lines)
        marks += char(line.kind);
    return marks;
}

LogTime At(int hour, int minute, int second, int thousandths)
{
    return local_days(year(2031) / 5 / 17) + hours(hour) + minutes(minute) + seconds(second) +
           milliseconds(thousandths);
}

/// Answers with bytes, words and a status that are all its own, and refuses what was not sent.
class OddLibrary : public DeviceLibrary {
    Status Perform(const Call &call) override
    {
        const auto seed = Byte(17 * std::size_t(call.operation));
        for (std::size_t i = 0; i < call.bytesOut.size(); ++i)
            call.bytesOut[i] = Byte(seed + i);
        for (std::size_t i = 0; i < call.wordsOut.size(); ++i)
            call.wordsOut[i] = Word(i % 2 == 0 ? -32768 + seed : 32767 - seed);
        return Word(call.operation == Operation::GetVol ? -32768 : seed);
    }
};

/// Answers from a log instead of a unit, call by call, whatever the operations.
class Replay : public DeviceLibrary {
  public:
    explicit Replay(std::vector<LogLine> lines) : lines_(std::move(lines)) {}

  private:
    Status Perform(const Call &call) override
    {
        while (lines_[next_].kind != Kind::Answer)
            ++next_;
        const LogLine &answer = lines_[next_++];
        REQUIRE(answer.operation == call.operation);
        std::ranges::copy(answer.bytes, call.bytesOut.begin());
        std::ranges::copy(answer.words, call.wordsOut.begin());
        return answer.status;
    }

    std::vector<LogLine> lines_;
    std::size_t next_ = 0;
};

/// A call of each operation, with odd values where it sends something.
std::vector<AnyCall> OneOfEach()
{
    std::vector<AnyCall> calls;
    for (const OperationRow &row : Operations) {
        AnyCall &call = calls.emplace_back(row.operation);
        for (std::size_t i = 0; i < call.bytesIn.size(); ++i)
            call.bytesIn[i] = Byte(255 - i);
        for (std::size_t i = 0; i < call.wordsIn.size(); ++i)
            call.wordsIn[i] = i == 0 ? Word(-32768) : Word(32767);
    }
    return calls;
}

} // namespace

TEST_CASE("each line of a log is read into what it tells")
{
    const std::vector<LogLine> lines = LinesOf(SampleLog);
    REQUIRE(Marks(lines) == "=#><><>=");
    CHECK(lines[0].time == At(21, 4, 9, 250));
    CHECK(lines[0].version == 1);
    CHECK(lines[1].text == "loaded /opt/libqm4slib.so");
    CHECK(lines[2].operation == Operation::SetPink);
    CHECK(lines[2].words == std::vector<Word>{2, -1});
    CHECK(lines[3].operation == Operation::SetPink);
    CHECK(lines[3].status == Success);
    CHECK(lines[3].taken == microseconds(12410));
    CHECK(lines[5].operation == Operation::GetSingleSlitloss);
    CHECK(lines[5].status == StreamNotLocked);
    CHECK(lines[5].bytes == std::vector<Byte>{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    CHECK(lines[5].words == std::vector<Word>{-1});
    CHECK(lines[5].taken == microseconds(9));
    CHECK(lines[6].operation == Operation::InitDLL);
    CHECK(lines[6].number == 7);
    CHECK(lines[7].number == 9); // the blank line counts
    CHECK(lines[7].time == At(22, 0, 0, 0));
}

TEST_CASE("what is read is written as it stood")
{
    std::string again;
    for (const LogLine &line : LinesOf(SampleLog))
        again += (line.number == 9 ? "\n" : "") + TextOf(line) + "\n";
    CHECK(again == SampleLog);
}

TEST_CASE("every operation reads back as it was called and answered, failed ones too")
{
    LogFile file;
    OddLibrary unit;
    CallLog log(file.path);
    unit.Attach(log);
    std::vector<AnyCall> calls = OneOfEach();
    std::vector<Status> answers;
    for (AnyCall &call : calls)
        answers.push_back(unit.Do(call));
    CHECK(std::ranges::count(answers, Success) == 1); // InitDLL, the first row

    const std::vector<LogLine> lines = LinesOf(file.Content());
    REQUIRE(lines.size() == 1 + 2 * Operations.size());
    for (std::size_t i = 0; i < Operations.size(); ++i) {
        CAPTURE(Operations[i].name);
        const LogLine &before = lines[1 + 2 * i];
        const LogLine &after = lines[2 + 2 * i];
        CHECK(before.kind == Kind::Call);
        CHECK(before.operation == Operations[i].operation);
        CHECK(before.bytes == calls[i].bytesIn);
        CHECK(before.words == calls[i].wordsIn);
        CHECK(after.kind == Kind::Answer);
        CHECK(after.operation == Operations[i].operation);
        CHECK(after.bytes == calls[i].bytesOut);
        CHECK(after.words == calls[i].wordsOut);
        CHECK(after.status == answers[i]);
        CHECK(after.time >= before.time);
    }
}

TEST_CASE("a stand-in gives from a log what the unit gave, without knowing one operation")
{
    LogFile file;
    OddLibrary unit;
    CallLog log(file.path);
    unit.Attach(log);
    Replay replay([&] {
        for (AnyCall &call : OneOfEach())
            unit.Do(call);
        return LinesOf(file.Content());
    }());
    const std::vector<AnyCall> none = OneOfEach();
    for (std::size_t i = 0; i < Operations.size(); ++i) {
        CAPTURE(Operations[i].name);
        AnyCall given = none[i];
        AnyCall replayed = none[i];
        CHECK(unit.Do(given) == replay.Do(replayed));
        CHECK(given.bytesOut == replayed.bytesOut);
        CHECK(given.wordsOut == replayed.wordsOut);
    }
}

TEST_CASE("a failed call is written with what stands in the caller's storage")
{
    LogFile file;
    SimulatedUnit unit;
    CallLog log(file.path);
    unit.Attach(log);
    unit.FailNext(Operation::GetVol, 5, 1);
    Word level = -77;
    CHECK(unit.GetVol(level) == 5);
    const std::vector<LogLine> lines = LinesOf(file.Content());
    REQUIRE(Marks(lines) == "=><");
    CHECK(lines[2].status == 5);
    CHECK(lines[2].words == std::vector<Word>{-77});
}

TEST_CASE("a line is in the file before the call is made, and the next as soon as it has answered")
{
    struct Watched : SimulatedUnit {
        LogFile file;
        std::string during;
        Status Perform(const Call &call) override
        {
            during = Marks(LinesOf(file.Content()));
            return SimulatedUnit::Perform(call);
        }
    } unit;
    CallLog log(unit.file.path);
    unit.Attach(log);
    unit.EnableOBE();
    CHECK(unit.during == "=>");
    CHECK(Marks(LinesOf(unit.file.Content())) == "=><");
}

TEST_CASE("the duration is the call's own, in microseconds")
{
    LogFile file;
    CallLog log(file.path);
    AnyCall call(Operation::EnableOBE);
    log.After(call, Success, microseconds(3'600'000'001)); // an hour on a line that hangs
    log.After(call, Success, microseconds(0));
    const std::vector<LogLine> lines = LinesOf(file.Content());
    REQUIRE(lines.size() == 3);
    CHECK(lines[1].taken == microseconds(3'600'000'001));
    CHECK(lines[2].taken == microseconds(0));
    CHECK(file.Content().find("< EnableOBE 0 () 3600000.001 ms\n") != std::string::npos);
}

TEST_CASE("a note is one line, whatever it holds, and comes back")
{
    LogFile file;
    CallLog log(file.path);
    log.Note("settings.dat could not be written:\nNo space left on device\r");
    log.Note("loaded C:\\Vorf\u00FChrer \u0416\\qm4slib.dll (x86) > 2 # 3");
    log.Note("");
    const std::vector<LogLine> lines = LinesOf(file.Content());
    REQUIRE(Marks(lines) == "=###");
    CHECK(lines[1].text == "settings.dat could not be written: No space left on device ");
    CHECK(lines[2].text == "loaded C:\\Vorf\u00FChrer \u0416\\qm4slib.dll (x86) > 2 # 3");
    CHECK(lines[3].text.empty());
}

TEST_CASE("a log is appended to: each run begins with its own line, after a line that a crash cut too")
{
    LogFile file;
    file.folder.Put(file.name, SampleLog + "2031-05-17 22:00:00.100 > SetV");
    const CallLog second(file.path);
    const std::vector<LogLine> lines = LinesOf(file.Content());
    CHECK(Marks(lines) == "=#><><>=?=");
    CHECK(lines[8].text == "2031-05-17 22:00:00.100 > SetV");
    CHECK(lines[8].number == 10);
    CHECK(lines[9].number == 11);
    const CallLog third(file.path);
    CHECK(Marks(LinesOf(file.Content())) == "=#><><>=?==");
}

TEST_CASE("a log cut at any byte gives the lines before the cut, and no other line in their place")
{
    const std::vector<LogLine> whole = LinesOf(SampleLog);
    for (std::size_t size = 0; size < SampleLog.size(); ++size) {
        CAPTURE(size);
        const std::vector<LogLine> cut = LinesOf(SampleLog.substr(0, size));
        REQUIRE(cut.size() <= whole.size());
        for (std::size_t i = 0; i + 1 < cut.size(); ++i)
            CHECK(cut[i] == whole[i]);
        if (cut.empty() || cut.back() == whole[cut.size() - 1])
            continue;
        CHECK((cut.back().kind == Kind::Damaged || cut.back().kind == Kind::Note));
        CHECK(whole[cut.size() - 1].text.starts_with(cut.back().kind == Kind::Note ? cut.back().text : ""));
    }
}

TEST_CASE("a log with any byte changed is read without harm, and its other lines as they are")
{
    const std::vector<LogLine> whole = LinesOf(SampleLog);
    for (const char wrong : {'\0', '\n', ' ', '9', '-', '(', '\xFF'})
        for (std::size_t at = 0; at < SampleLog.size(); ++at) {
            std::string content = SampleLog;
            content[at] = wrong;
            std::size_t same = 0;
            for (const LogLine &line : LinesOf(content))
                same += std::ranges::count_if(whole, [&](const LogLine &good) {
                            return TextOf(good) == TextOf(line) && good.kind == line.kind;
                        }) > 0;
            CHECK(same + 2 >= whole.size()); // the end of a line joins two
        }
}

TEST_CASE("what is wrong with a damaged line is told")
{
    const auto problem = [](const std::string &text) { return ReadLogLine(text).problem; };
    CHECK(problem("2031-05-17 21:04:09.263 SetPink 2 -1 -> 0 (12.410 ms)") ==
          "it does not begin with a date, a time and a mark");
    CHECK(problem("2031-02-30 21:04:09.263 > StopStream()") ==
          "it does not begin with a date, a time and a mark");
    CHECK(problem("2031-05-17 21:04:09.263 ! StopStream()") == "its mark is not known");
    CHECK(problem("2031-05-17 21:04:09.263 ? StopStream()") == "its mark is not known");
    CHECK(problem("2031-05-17 21:04:09.263 > StopStreams()") == "no operation has this name");
    for (const std::string rest :
         {"> SetPink(2)", "> SetPink(2 -1 0)", "> SetPink(2 40000)", "> GetVol(1)", "> SetVol(1) 2",
          "< GetVol 0 () 1.000 ms", "< GetVol 65536 (1) 1.000 ms", "< GetVol 0 (1) 1.00 ms",
          "< GetVol 0 (1) -1.000 ms", "< GetOptGain 0 (5) 1.000 ms", "< GetOptGain 0 (5g00) 1.000 ms",
          "= call log, version ", "= another log"}) {
        CAPTURE(rest);
        CHECK(problem("2031-05-17 21:04:09.263 " + rest) == "it is cut or damaged");
    }
}

TEST_CASE("lines that were mailed with other ends are read, and a later version's run is told")
{
    const std::vector<LogLine> lines = LinesOf("2031-05-17 21:04:09.250 = call log, version 2\r\n"
                                               "\r\n"
                                               "2031-05-17 21:04:09.263 > SetVol(65)");
    REQUIRE(Marks(lines) == "=>");
    CHECK(lines[0].version == 2);
    CHECK(lines[1].words == std::vector<Word>{65});
    CHECK(lines[1].number == 3);
}

TEST_CASE("a log that cannot be opened is told with the system's reason, and harms no call")
{
    LogFile file;
    CallLog log(file.path + "/missing/calls.log");
    CHECK(!log.Problem().empty());
    CHECK(log.Problem() != std::generic_category().message(0));
    SimulatedUnit unit;
    unit.Attach(log);
    CHECK(unit.SetVol(30) == Success);
    CHECK(unit.panel.level == 30);
}
