#pragma once

#include <string>

namespace kelvo {

/// Two runs, as they stand in a log of calls; the first one ends inside a call.
inline const std::string SampleLog =
    "2031-05-17 21:04:09.250 = call log, version 1\n"
    "2031-05-17 21:04:09.251 # loaded /opt/libqm4slib.so\n"
    "2031-05-17 21:04:09.263 > SetPink(2 -1)\n"
    "2031-05-17 21:04:09.275 < SetPink 0 () 12.410 ms\n"
    "2031-05-17 21:04:10.000 > GetSingleSlitloss()\n"
    "2031-05-17 21:04:10.001 < GetSingleSlitloss 768 (000102030405060708090a -1) 0.009 ms\n"
    "2031-05-17 21:04:11.000 > InitDLL(2)\n"
    "\n"
    "2031-05-17 22:00:00.000 = call log, version 1\n";

} // namespace kelvo
