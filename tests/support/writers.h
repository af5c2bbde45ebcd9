#pragma once

#include "files/configfile.h"
#include "files/preferencesfile.h"
#include "support/samplefile.h"

#include <array>
#include <functional>
#include <optional>
#include <string>

namespace kelvo {

/// One of the files that the console writes, with an old and a new content.
struct Writer {
    std::string name; ///< of the file
    std::string before;
    std::string after;
    std::function<std::optional<FileFailure>(const std::string &path, const FileCalls &calls)> write;
};

inline std::optional<FileFailure> WriteSample(const std::string &path, const FileCalls &calls)
{
    return SaveConfigFile(path, SampleSettings(), calls);
}

inline std::optional<FileFailure> WriteChosenPort(const std::string &path, const FileCalls &calls)
{
    return WritePreferences(path, Preferences{.ComPort = 3, .AutoUpload = true}, calls);
}

/// The configuration, the snapshot of the start, the console's own preferences.
inline const std::array<Writer, 3> Writers{{
    {"Odeon 3.zcf", "the old configuration, longer or shorter", SampleFile, WriteSample},
    {"temp.qm4", "the old snapshot", SampleFile, WriteSample},
    {"settings.dat", "1\r\nFalse\r\nFalse\r\nFalse\r\n0\r\n0\r\n",
     "3\r\nTrue\r\nFalse\r\nFalse\r\n0\r\n0\r\n", WriteChosenPort},
}};

} // namespace kelvo
