#pragma once

#include "unit/unitlink.h"

#include <functional>

namespace kelvo {

/// What the unit can be asked to stream.
enum class Measurement { Gain, SlitLoss, Azimuth };
inline constexpr int MeasurementCount = 3;

/// What shows the stream.
class StreamView {
  public:
    virtual ~StreamView() = default;

    /// It has started or ended, or measures something else or elsewhere.
    virtual void ShowStream() = 0;
    /// The measurement begins anew: what was read before is no longer of it.
    virtual void ForgetReadings() = 0;
};

/// The optical alignment stream: what is sent when it starts, stops, or is disturbed. The unit plays a fixed
/// format while it streams, and is polled by nobody.
class OpticalStream {
  public:
    OpticalStream(UnitLink &link, StreamView &view) : link_(link), view_(view) {}

    bool Running() const { return running_; }
    Measurement Selected() const { return selected_; }
    /// 0 or 1: the projector whose reader is measured.
    Word Projector() const { return projector_; }

    /// Start, or Stop while one runs.
    void Toggle();
    void StopIfRunning();
    /// A running stream goes over to the other measurement.
    void Select(Measurement measurement);
    void SelectProjector(Word projector);
    /// The projector is the first one again; nothing is sent.
    void ForgetProjector() { projector_ = 0; }
    /// Does what the unit must not be asked while it streams; a running stream begins again afterwards.
    void Without(const std::function<void()> &work);

  private:
    void Start();
    void Stop();
    void Begin();
    void End();

    UnitLink &link_;
    StreamView &view_;
    Measurement selected_ = Measurement::Gain;
    Word projector_ = 0;
    bool running_ = false;
};

} // namespace kelvo
