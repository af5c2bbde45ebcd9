#include "unit/testsignals.h"

#include "unit/unitlink.h"

namespace kelvo {

namespace {

constexpr Word Truth(bool on)
{
    return on ? True : False;
}

} // namespace

void SwitchNoise(UnitLink &link, int channel, bool on)
{
    link.RetryFunction(UnitOp::SetPink, Word(channel), Truth(on));
}

void SwitchPhase(UnitLink &link, int channel, bool inverted)
{
    link.RetryFunction(UnitOp::SetPhase, Word(channel), Truth(inverted));
}

void SwitchRT60(UnitLink &link, bool on)
{
    link.RetryFunction(UnitOp::SetRT60, 0, Truth(on));
}

void SwitchOffTestSignals(UnitLink &link)
{
    const TestSignals &playing = link.Holds().Playing;
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (playing.Pink[channel])
            SwitchNoise(link, channel, false);
    for (int channel = 0; channel < ChannelCount; ++channel)
        if (playing.Inverted[channel])
            SwitchPhase(link, channel, false);
    if (playing.RT60)
        SwitchRT60(link, false);
}

} // namespace kelvo
