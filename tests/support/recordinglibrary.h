#pragma once

#include "unit/devicelibrary.h"

#include <string>
#include <vector>

namespace kelvo {

/// What happened, one line each, in order.
using Trace = std::vector<std::string>;

/// A library that writes each call into a trace before the unit behind it answers: "SetPink 2 -1". The words
/// that were sent stand there; records are looked up in the unit.
class RecordingLibrary : public DeviceLibrary {
  public:
    RecordingLibrary(DeviceLibrary &unit, Trace &trace) : unit_(unit), trace_(trace) {}

  protected:
    Status Perform(const Call &call) override
    {
        std::string line = RowOf(call.operation).name;
        for (Word word : call.wordsIn)
            line += ' ' + std::to_string(word);
        trace_.push_back(line);
        return unit_.Do(call);
    }

  private:
    DeviceLibrary &unit_;
    Trace &trace_;
};

} // namespace kelvo
