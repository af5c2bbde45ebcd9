#include "unit/sequences.h"

namespace kelvo {

void SendLoadedValues(UnitLink &link, OpticalStream &stream)
{
    link.RetryFunction(UnitOp::SetVol);
    if (!stream.Running()) {
        link.RetryFunction(UnitOp::SelectFormat);
        link.RetryFunction(UnitOp::SetMute);
        return;
    }
    stream.Without([&link] { link.RetryFunction(UnitOp::SetMute); });
}

void SayFarewell(UnitLink &link, OpticalStream &stream)
{
    stream.StopIfRunning();
    SwitchOffTestSignals(link);
    link.RetryFunction(UnitOp::StopStream);
    link.RetryFunction(UnitOp::SetDLLBaud, 0, 0);
    link.RetryFunction(UnitOp::DLLShutdown);
    link.Close();
}

} // namespace kelvo
