#pragma once

#include "unit/devicelibrary.h"
#include "unit/libraryimage.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

namespace kelvo::messages {

inline constexpr auto ConnectionErrorTitle = "Connection Error";
inline constexpr auto UnableToConnect = "Unable to connect to unit!";

inline constexpr auto OutOfDateTitle = "Cinema Processor Error";
inline constexpr auto OutOfDate = "Error cinema processor bios is out of date, contact Kelvo for an update.";

inline constexpr auto ConfirmUploadTitle = "Confirm Upload!";
inline constexpr auto ConfirmUpload = "Are you sure you want to Upload the Current Settings?";

inline constexpr auto Connecting = "Connecting to Cinema Processor.";
inline constexpr auto ReadingVersion = "Determining Software Version.";

inline constexpr auto CpuVersionCaption = "CPU Version: ";
inline constexpr auto DspControllerCaption = "DSP Controller: ";
inline constexpr auto DspFirmwareCaption = "DSP Firmware: ";

/// Index = status bit.
inline constexpr std::array<const char *, 11> ErrorLine{
    "- Serial Port Error",
    "- Error Transmitting",
    "- Error Receiving",
    "- Error Communicating System Block",
    "- Error Communicating Audio Block",
    "- Invalid response from unit",
    "- Could Not Initialise",
    "- Error during ASCII command",
    "- Error during streaming",
    "- Data is not as requested",
    "- Current OS is not compatable", // Deliberate: the text is spelled this way.
};

/// What the box lists when an accepted connection ends: one line for each known error bit.
std::string ErrorReport(Status status);

/// The line beside the lamp: "All sent", "3 changes not in the unit - F2", the key on line alone; blank
/// before a unit was read.
std::string SentText(std::optional<int> differences, bool onLine);

inline constexpr auto SystemSearchPath = "the system's search path";

/// Why there is no device library: the file, the reason, and every place that was looked at, in order.
std::string LibraryProblem(const std::string &file, const std::string &reason,
                           const std::vector<std::string> &places);

// Reasons that end a sentence of the box above.
std::string NeedsMissing(const std::vector<std::string> &libraries); ///< may be empty: not known which
std::string NeedsOfOtherKind(const std::vector<std::string> &libraries, const LibraryImage &program);
std::string OperationsMissing(const std::vector<std::string> &operations);
std::string WrongKind(const LibraryImage &library, const LibraryImage &program);

} // namespace kelvo::messages
