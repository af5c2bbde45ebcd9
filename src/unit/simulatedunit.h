#pragma once

#include "unit/devicelibrary.h"

#include <functional>
#include <random>

namespace kelvo {

/// What a simulated unit needs of time; a test puts its own in.
struct SimulatedTime {
    std::function<std::chrono::duration<double>()> now;  ///< since any fixed moment, never going back
    std::function<void(std::chrono::milliseconds)> wait; ///< how a slow line passes its time

    static SimulatedTime OfThisPc();
};

/// A unit in memory: it keeps blocks and values, answers reads from what was written, and plays
/// believable optical streams. Its reader and its front panel can be turned, and it can be told to fail.
/// Knobs may be turned at any moment between two calls; the next call follows them.
class SimulatedUnit : public DeviceLibrary {
  public:
    /// What every operation answers while the cable is out: "Serial Port Error", "Error Receiving".
    static constexpr Status UnpluggedStatus = 1 | 4;
    /// How many readings a stream answers with `StreamNotLocked` after it was begun.
    static constexpr int ReadingsToLock = 3;

    /// The optical reader. Readings are 0 to 255, a smaller one is a taller bar.
    struct Reader {
        double gainLeft = 80; ///< mean gain reading; 80 is the reference line
        double gainRight = 80;
        double azimuthDegrees = 0; ///< how far the cloud's axis leans from 45 degrees
        double slitLoss = 3;       ///< how many reading units are lost at 10 kHz
        double focusNoise = 1;     ///< standard deviation of the readings, in reading units
        bool locked = true;        ///< false: reads answer `StreamNotLocked`
    };

    /// The unit's own front panel, and its cable.
    struct FrontPanel {
        Word level = 70;
        Word mute = False;
        Word format = 4;
        bool plugged = true;               ///< false: every operation answers `UnpluggedStatus`
        std::chrono::milliseconds slow{0}; ///< how long each operation takes
    };

    /// What the console left running in the unit.
    struct TestSignals {
        std::array<bool, ChannelCount> pink{};
        std::array<bool, ChannelCount> inverted{};
        bool rt60 = false;
    };

    enum class Stream { None, Gain, SlitLoss, Azimuth };

    Reader reader;
    FrontPanel panel;
    AudioBlock audio{};
    SystemBlock system{};
    UnitVersion version{1, 6, 0, 1, 3, 1, 9};
    TestSignals testSignals;
    Word projector = 0;
    Word port = 0; ///< 0 while the library is shut down
    Word baudIndex = 0;
    bool iniCreated = false;
    Stream stream = Stream::None;

    /// The same seed and the same times give the same readings.
    explicit SimulatedUnit(SimulatedTime time = SimulatedTime::OfThisPc(), unsigned seed = 1);

    /// The next `times` calls of `operation` (none = any but `ClearError`, which no line carries) answer
    /// `status` and do nothing. Told twice, the second failure follows when the first is used up.
    void FailNext(std::optional<Operation> operation, Status status, int times);
    void ForgetFailures() { failures_.clear(); }
    int FailuresLeft() const; ///< how many calls are still to fail

  protected:
    /// Every operation comes here: the line's time, a failure it was told, the cable, then its own work.
    Status Perform(const Call &call) override;

  private:
    struct Failure {
        std::optional<Operation> operation;
        Status status;
        int times;
    };

    Status Line(Operation operation);
    Status Work(const Call &call);

    Status Begin(Stream kind);
    /// Whether a reading can be taken of a stream of this kind now.
    bool Locked(Stream kind);
    Status ReadGain(std::span<Byte> reading);
    Status ReadSlitLoss(std::span<Byte> sample, Word &side);
    Status ReadAzimuth(std::span<Byte> frame);

    double Seconds() const; ///< since this unit was made
    double Noise() { return reader.focusNoise * noise_(random_); }

    SimulatedTime time_;
    std::chrono::duration<double> start_;
    std::mt19937 random_;
    std::normal_distribution<double> noise_;
    std::vector<Failure> failures_;
    int readingsUntilLock_ = 0;
    Word nextSide_ = 0;
};

} // namespace kelvo
