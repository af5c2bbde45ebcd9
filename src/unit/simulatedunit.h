#pragma once

#include "unit/devicelibrary.h"

#include <chrono>
#include <map>
#include <string>

namespace kelvo {

/// A unit in memory: it keeps blocks and values, answers reads from what was written, and plays
/// believable optical streams. Its reader and its front panel can be turned, and it can be told to fail.
class SimulatedUnit : public DeviceLibrary {
  public:
    /// The reader and its stream.
    struct Reader {
        double gainLeft = 80; ///< mean gain reading, 0 to 255; 80 is the reference line
        double gainRight = 80;
        double azimuthDegrees = 0; ///< slope of the azimuth cloud's axis against 45 degrees
        double slitLoss = 6;       ///< roll-off at 10 kHz, in reading units
        double focusNoise = 2;     ///< standard deviation of the readings, in reading units
        bool locked = true;        ///< false: reads answer `StreamNotLocked`
    };

    /// The unit's own front panel and its cable.
    struct FrontPanel {
        Word level = 70;
        Word mute = False;
        Word format = 4;
        bool plugged = true;               ///< false: every operation answers `unpluggedStatus`
        std::chrono::milliseconds slow{0}; ///< how long each operation takes
    };

    Reader reader;
    FrontPanel panel;
    AudioBlock audio{};
    SystemBlock system{};
    UnitVersion version{1, 6, 0, 1, 3, 1, 9};

    SimulatedUnit();

    /// The next `times` calls of `operation` ("SetAudio"; "" = any) answer `status`.
    void FailNext(const std::string &operation, Status status, int times);
};

} // namespace kelvo
