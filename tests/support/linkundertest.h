#pragma once

#include "support/recordinglibrary.h"
#include "support/recordingview.h"
#include "support/testclock.h"
#include "unit/messages.h"
#include "unit/simulatedunit.h"
#include "unit/unitlink.h"

#include <doctest/doctest.h>

#include <algorithm>
#include <utility>

namespace kelvo {

/// A link between a unit in memory and a recorded screen; every call of the library, the screen and the
/// pauses stand in one trace.
struct LinkUnderTest {
    Trace trace;
    RoomSettings room;
    Preferences options;
    SimulatedUnit unit;
    RecordingLibrary library{unit, trace};
    RecordingView view{trace};
    TestClock clock{trace};
    UnitLink link{room, options, library, view, clock};

    LinkUnderTest() { view.link = &link; }

    /// What happened since the last look.
    Trace Happened() { return std::exchange(trace, {}); }

    /// Those lines of it that begin with `start`.
    Trace Lines(const std::string &start)
    {
        Trace lines;
        std::ranges::copy_if(Happened(), std::back_inserter(lines),
                             [&](const std::string &line) { return line.starts_with(start); });
        return lines;
    }
};

/// The same, connected, with an empty trace.
struct ConnectedLink : LinkUnderTest {
    ConnectedLink()
    {
        REQUIRE(link.ConnectToUnit());
        trace.clear();
    }
};

/// The parts joined into one trace.
inline Trace Join(std::initializer_list<Trace> parts)
{
    Trace whole;
    for (const Trace &part : parts)
        whole.insert(whole.end(), part.begin(), part.end());
    return whole;
}

/// The part, `times` times.
inline Trace Times(int times, const Trace &part)
{
    Trace whole;
    for (int i = 0; i < times; ++i)
        whole.insert(whole.end(), part.begin(), part.end());
    return whole;
}

/// The box that lists these error lines.
inline std::string ErrorBox(const std::string &lines)
{
    return "box Connection Error: The following Errors were encountered:\n\n" + lines +
           "\n\nCannot Continue On Line!\n";
}

/// How `DispErr` ends a connection, after its box.
inline Trace EndOfConnection()
{
    return {"lamp Off Line", "frames off", "DLLShutdown"};
}

} // namespace kelvo

namespace doctest {

template <>
struct StringMaker<kelvo::Trace> {
    static String convert(const kelvo::Trace &trace)
    {
        std::string text = "\n";
        for (const std::string &line : trace)
            text += "    " + line + "\n";
        return text.c_str();
    }
};

} // namespace doctest
