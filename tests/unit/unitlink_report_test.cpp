#include "support/linkoperations.h"
#include "support/linkundertest.h"

using namespace kelvo;

namespace {

/// Index = status bit.
constexpr std::array<const char *, 11> ErrorLines{"- Serial Port Error\n",
                                                  "- Error Transmitting\n",
                                                  "- Error Receiving\n",
                                                  "- Error Communicating System Block\n",
                                                  "- Error Communicating Audio Block\n",
                                                  "- Invalid response from unit\n",
                                                  "- Could Not Initialise\n",
                                                  "- Error during ASCII command\n",
                                                  "- Error during streaming\n",
                                                  "- Data is not as requested\n",
                                                  "- Current OS is not compatable\n"};

/// The operations that come after a connection was opened and before it is closed.
std::vector<LinkOperation> ControlOperations()
{
    std::vector<LinkOperation> chosen;
    for (const LinkOperation &operation : LinkOperations)
        if (operation.op != UnitOp::InitDLL && operation.op != UnitOp::GetUnitVersion &&
            operation.op != UnitOp::DLLShutdown)
            chosen.push_back(operation);
    return chosen;
}

Status Bit(int bit)
{
    return Status(std::uint16_t(1u << bit));
}

} // namespace

TEST_CASE("each error bit has its line")
{
    for (int bit = 0; bit <= 10; ++bit) {
        CAPTURE(bit);
        ConnectedLink console;
        console.link.DispErr(Bit(bit));
        CHECK(console.Happened() == Join({{ErrorBox(ErrorLines[std::size_t(bit)])}, EndOfConnection()}));
    }
}

TEST_CASE("all bits together are listed in rising order")
{
    ConnectedLink console;
    console.link.DispErr(-1);
    CHECK(console.Happened() ==
          Join({{ErrorBox("- Serial Port Error\n- Error Transmitting\n- Error Receiving\n"
                          "- Error Communicating System Block\n- Error Communicating Audio Block\n"
                          "- Invalid response from unit\n- Could Not Initialise\n"
                          "- Error during ASCII command\n- Error during streaming\n"
                          "- Data is not as requested\n- Current OS is not compatable\n")},
                EndOfConnection()}));
}

TEST_CASE("bits 11 to 15 add no line: header and end stand alone")
{
    for (int bit = 11; bit <= 15; ++bit) {
        CAPTURE(bit);
        ConnectedLink console;
        console.link.DispErr(Bit(bit));
        CHECK(console.Happened() == Join({{ErrorBox("")}, EndOfConnection()}));
    }
}

TEST_CASE("every status bit of every operation is reported once and ends the link")
{
    for (const LinkOperation &operation : ControlOperations()) {
        for (int bit = 0; bit <= 15; ++bit) {
            CAPTURE(operation.Name());
            CAPTURE(bit);
            ConnectedLink console;
            console.unit.FailNext(operation.operation, Bit(bit), 6);
            CHECK(console.link.RetryFunction(operation.op, 1, True) == Bit(bit));
            CHECK_FALSE(console.link.UnitOnline());
            const std::string lines = bit <= 10 ? ErrorLines[std::size_t(bit)] : "";
            CHECK(console.Lines("box") == Trace{ErrorBox(lines)});
        }
    }
}

TEST_CASE("768 shows no box, unlocks the stream and keeps the connection")
{
    ConnectedLink console;
    console.link.DispErr(StreamNotLocked);
    CHECK(console.Happened() == Trace{"no stream"});
    CHECK(console.link.UnitOnline());
}

TEST_CASE("bits 8 and 9 with any other bit are a link failure, not 768")
{
    ConnectedLink console;
    console.link.DispErr(StreamNotLocked | 1);
    CHECK(console.Happened() == Join({{ErrorBox("- Serial Port Error\n- Error during streaming\n"
                                                "- Data is not as requested\n")},
                                      EndOfConnection()}));
}

TEST_CASE("768 from a control call after six attempts keeps the link, the lamp in doubt")
{
    for (const LinkOperation &operation : ControlOperations()) {
        CAPTURE(operation.Name());
        ConnectedLink console;
        console.unit.FailNext(operation.operation, StreamNotLocked, 6);
        CHECK(console.link.RetryFunction(operation.op, 1, True) == StreamNotLocked);
        CHECK(console.link.UnitOnline());
        CHECK_FALSE(console.link.InCall());
        const Trace happened = console.Happened();
        CHECK(std::ranges::count(happened, "lamp Data?") == 1);
        CHECK(std::ranges::count(happened, "lamp On Line") == 0);
        CHECK(happened.back() == "no stream");
    }
}

TEST_CASE("0 ends the connection silently")
{
    ConnectedLink console;
    console.link.DispErr(Success);
    CHECK(console.Happened() == EndOfConnection());
    CHECK_FALSE(console.link.UnitOnline());
}

TEST_CASE("before a connection was accepted the report says only that there is none")
{
    LinkUnderTest console;
    console.link.DispErr(7);
    CHECK(console.Happened() ==
          Join({{"box Connection Error: Unable to connect to unit!"}, EndOfConnection()}));
}

TEST_CASE("the link is still on line while its report is open, and off line after it")
{
    ConnectedLink console;
    bool online = false;
    console.view.duringBox = [&] { online = console.link.UnitOnline(); };
    console.link.DispErr(1);
    CHECK(online);
    CHECK_FALSE(console.link.UnitOnline());
}

TEST_CASE("the status of the closing DLLShutdown is ignored")
{
    ConnectedLink console;
    console.unit.FailNext(Operation::DLLShutdown, 1, 1);
    console.link.DispErr(1);
    CHECK(console.Happened() == Join({{ErrorBox("- Serial Port Error\n")}, EndOfConnection()}));
}

TEST_CASE("nothing reaches the unit while a report is open: one failure is one box")
{
    ConnectedLink console;
    console.options = {.AutoUpload = true, .AutoRefresh = true};
    std::array<Byte, GainBytes> reading{};
    console.view.duringBox = [&] {
        CHECK(console.link.InCall());
        console.link.PollTick();
        console.link.RefreshTick(true);
        console.link.Update();
        console.link.UploadToUnit(UploadSelector::Both, UploadTrigger::Unasked);
        console.link.RetryFunction(UnitOp::SetVol);
        CHECK(console.link.ReadGain(reading) == StreamNotLocked);
        CHECK_FALSE(console.link.ConnectToUnit());
    };
    console.link.DispErr(1);
    CHECK(console.Happened() == Join({{ErrorBox("- Serial Port Error\n")}, EndOfConnection()}));
    CHECK_FALSE(console.link.InCall());
}

TEST_CASE("the handler that stops a running stream finds the link off line: its calls reach nothing")
{
    ConnectedLink console;
    console.view.onOffLine = [&] {
        CHECK_FALSE(console.link.UnitOnline());
        console.link.RetryFunction(UnitOp::StopStream);
        console.link.RetryFunction(UnitOp::SelectFormat);
    };
    console.link.DispErr(1);
    CHECK(console.Happened() == Join({{ErrorBox("- Serial Port Error\n")}, EndOfConnection()}));
}

TEST_CASE("the lamp: off line and on line set the link's state, in doubt leaves it")
{
    LinkUnderTest console;
    console.link.SetConnectStatus(LinkState::InDoubt);
    CHECK_FALSE(console.link.UnitOnline());
    console.link.SetConnectStatus(LinkState::OnLine);
    CHECK(console.link.UnitOnline());
    console.link.SetConnectStatus(LinkState::InDoubt);
    CHECK(console.link.UnitOnline());
    console.link.SetConnectStatus(LinkState::OffLine);
    CHECK_FALSE(console.link.UnitOnline());
    CHECK(console.Happened() == Trace{"lamp Data?", "lamp On Line", "lamp Data?", "lamp Off Line"});
}
