#include "unit/opticalstream.h"

#include "unit/onechange.h"

#include <array>
#include <utility>

namespace kelvo {

namespace {

/// The format that the unit is put in for the duration of a stream.
constexpr Word StreamFormat = 1;

/// In the order of `Measurement`.
constexpr std::array<UnitOp, MeasurementCount> BeginOf{UnitOp::BeginGainStream, UnitOp::BeginSlitStream,
                                                       UnitOp::BeginAzimuthStream};

} // namespace

void OpticalStream::Toggle()
{
    const OneChange change(link_); // a start that fails takes the stream's format back
    link_.RetryFunction(UnitOp::SetProjector, projector_);
    // A link lost in the call above has ended a running stream already, and without a link none starts.
    if (running_)
        Stop();
    else if (link_.UnitOnline())
        Start();
}

void OpticalStream::StopIfRunning()
{
    if (running_)
        Toggle();
}

void OpticalStream::Start()
{
    link_.SetPolling(false);
    link_.ForceFormat(StreamFormat);
    link_.RetryFunction(UnitOp::SelectFormat);
    if (!link_.UnitOnline()) {
        End();
        return;
    }
    running_ = true;
    view_.ShowStream();
    Begin();
    link_.RetryFunction(UnitOp::GetMute);
}

void OpticalStream::Stop()
{
    link_.RetryFunction(UnitOp::StopStream);
    link_.RetryFunction(UnitOp::SetProjector, projector_);
    End();
}

/// Without a link nothing is sent, and everything is as it was before Start all the same.
void OpticalStream::End()
{
    link_.ReleaseFormat();
    if (std::exchange(running_, false)) {
        view_.ShowStream();
        link_.RetryFunction(UnitOp::SelectFormat);
    }
    link_.SetPolling(true);
}

void OpticalStream::Begin()
{
    view_.ForgetReadings();
    link_.RetryFunction(BeginOf[int(selected_)]);
}

void OpticalStream::Select(Measurement measurement)
{
    if (std::exchange(selected_, measurement) == measurement || !running_)
        return;
    link_.RetryFunction(UnitOp::StopStream);
    link_.RetryFunction(UnitOp::SetProjector, projector_);
    view_.ShowStream();
    Begin();
}

void OpticalStream::SelectProjector(Word projector)
{
    link_.RetryFunction(UnitOp::StopStream);
    projector_ = projector;
    view_.ShowStream();
    link_.RetryFunction(UnitOp::SetProjector, projector_);
    if (running_)
        Begin();
}

void OpticalStream::Without(const std::function<void()> &work)
{
    link_.RetryFunction(UnitOp::StopStream);
    work();
    if (running_)
        Begin();
}

} // namespace kelvo
