#include "support/linkundertest.h"

using namespace kelvo;

TEST_CASE("what the console left running is switched off, and nothing else")
{
    ConnectedLink console;
    SwitchOffTestSignals(console.link);
    CHECK(console.Happened().empty());

    console.link.RetryFunction(UnitOp::SetPink, Subwoofer, True);
    console.link.RetryFunction(UnitOp::SetPink, Left, True);
    console.link.RetryFunction(UnitOp::SetPink, Center, True);
    console.link.RetryFunction(UnitOp::SetPink, Center, False);
    console.link.RetryFunction(UnitOp::SetPhase, Right, True);
    console.link.RetryFunction(UnitOp::SetRT60, 0, True);
    console.trace.clear();
    SwitchOffTestSignals(console.link);
    CHECK(console.Happened() == Trace{"SetPink 0 0", "SetPink 5 0", "SetPhase 4 0", "SetRT60 0"});
    SwitchOffTestSignals(console.link);
    CHECK(console.Happened().empty());
}

TEST_CASE("a signal that was on when the link was lost is switched off after the next connection")
{
    ConnectedLink console;
    console.link.RetryFunction(UnitOp::SetPink, Center, True);
    console.link.RetryFunction(UnitOp::SetRT60, 0, True);
    console.link.DispErr(1);
    console.trace.clear();
    SwitchOffTestSignals(console.link);
    CHECK(console.Happened().empty());

    CHECK(console.link.ConnectToUnit());
    console.trace.clear();
    SwitchOffTestSignals(console.link);
    CHECK(console.Happened() == Trace{"SetPink 2 0", "SetRT60 0"});
}
