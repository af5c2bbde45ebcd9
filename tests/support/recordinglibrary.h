#pragma once

#include "unit/forwardedlibrary.h"

#include <string>
#include <vector>

namespace kelvo {

/// What happened, one line each, in order.
using Trace = std::vector<std::string>;

/// A library that writes each call into a trace before the unit behind it answers: "SetPink 2 -1". The words
/// that were sent stand there; records are looked up in the unit.
class RecordingLibrary : public ForwardedLibrary {
  public:
    RecordingLibrary(DeviceLibrary &unit, Trace &trace) : ForwardedLibrary(unit), trace_(trace) {}

  protected:
    Status Around(const char *operation, Arguments arguments, const Forward &forward) override
    {
        std::string line = operation;
        for (const Argument &argument : arguments) {
            if (!argument.result && argument.bytes.empty())
                line += " " + argument.Text();
        }
        trace_.push_back(line);
        return forward();
    }

  private:
    Trace &trace_;
};

} // namespace kelvo
