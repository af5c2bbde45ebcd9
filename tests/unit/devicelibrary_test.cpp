#include "unit/devicelibrary.h"

#include "unit/simulatedunit.h"

#include <doctest/doctest.h>

#include <string>

using namespace kelvo;
using namespace std::chrono;

namespace {

using Notes = std::vector<std::string>;

/// Writes down what it sees.
class Witness : public CallObserver {
  public:
    Witness(std::string name, Notes &notes) : name_(std::move(name)), notes_(notes) {}

    void Before(const Call &call) override { Write("before " + NameAndWords(call, call.wordsIn)); }
    void After(const Call &call, Status status, microseconds time) override
    {
        Write("after " + NameAndWords(call, call.wordsOut) + ": " + std::to_string(status));
        taken = time;
    }

    microseconds taken{};

  private:
    static std::string NameAndWords(const Call &call, std::span<const Word> words)
    {
        std::string text = RowOf(call.operation).name;
        for (Word word : words)
            text += ' ' + std::to_string(word);
        return text;
    }
    void Write(const std::string &what) { notes_.push_back(name_ + " " + what); }

    std::string name_;
    Notes &notes_;
};

} // namespace

TEST_CASE(
    "an observer sees each call before it is made and with its results afterwards, in the order of attaching")
{
    Notes notes;
    Witness first("first", notes);
    Witness second("second", notes);
    SimulatedUnit unit;
    unit.SetVol(12);
    unit.Attach(first);
    unit.Attach(second);
    Word level = 0;
    CHECK(unit.GetVol(level) == Success);
    unit.FailNext(Operation::SetPink, 4, 1);
    CHECK(unit.SetPink(2, True) == 4);
    CHECK(notes == Notes{"first before GetVol", "second before GetVol", "first after GetVol 12: 0",
                         "second after GetVol 12: 0", "first before SetPink 2 -1",
                         "second before SetPink 2 -1", "first after SetPink: 4", "second after SetPink: 4"});
}

TEST_CASE("an observer is told how long the call itself took")
{
    Notes notes;
    Witness witness("", notes);
    SimulatedUnit unit;
    unit.Attach(witness);
    unit.panel.slow = milliseconds(5);
    unit.EnableOBE();
    CHECK(witness.taken >= milliseconds(5));
    CHECK(witness.taken < seconds(5));
}

TEST_CASE("every operation is found by the name under which the library exports it, and no other is")
{
    for (const OperationRow &row : Operations)
        CHECK(OperationNamed(row.name) == row.operation);
    for (const char *name : {"", "SetVo", "SetVolume", "setvol", "SetVol ", "_SetVol@4"})
        CHECK(!OperationNamed(name));
}

TEST_CASE("a caller's records are filled where they are, and what is sent is read from there")
{
    struct Watched : DeviceLibrary {
        const void *bytesIn = nullptr;
        const void *bytesOut = nullptr;
        const void *wordsOut = nullptr;
        Status Perform(const Call &call) override
        {
            bytesIn = call.bytesIn.data();
            bytesOut = call.bytesOut.data();
            wordsOut = call.wordsOut.data();
            return Success;
        }
    } library;
    AudioBlock audio{};
    SystemBlock system{};
    std::array<Byte, SlitLossBytes> sample{};
    Word side = 0;
    library.SetAudio(audio);
    CHECK(library.bytesIn == &audio);
    library.GetAudio(audio);
    CHECK(library.bytesOut == &audio);
    library.SetSystem(system);
    CHECK(library.bytesIn == &system);
    library.GetSystem(system);
    CHECK(library.bytesOut == &system);
    library.GetSingleSlitloss(sample, side);
    CHECK(library.bytesOut == &sample);
    CHECK(library.wordsOut == &side);
    library.GetVol(side);
    CHECK(library.wordsOut == &side);
}
