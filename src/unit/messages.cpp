#include "unit/messages.h"

#include <array>

namespace kelvo::messages {

namespace {

constexpr Text ErrorsHeader = "The following Errors were encountered:\n\n";
constexpr Text ErrorsFooter = "\n\nCannot Continue On Line!\n";

/// Index = status bit.
constexpr std::array<Text, 11> ErrorLine{
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

constexpr Text AllSent = "All sent";
constexpr Text OneUnsent = "1 change not in the unit - F2";
constexpr Text ManyUnsent = " changes not in the unit - F2";

} // namespace

std::string ErrorReport(Status status)
{
    std::string report = ErrorsHeader;
    for (std::size_t bit = 0; bit < ErrorLine.size(); ++bit) {
        if (status & (1 << bit)) {
            report += ErrorLine[bit];
            report += '\n';
        }
    }
    return report + ErrorsFooter;
}

std::string SentText(std::optional<int> differences)
{
    if (!differences)
        return "";
    if (*differences == 0)
        return AllSent;
    return *differences == 1 ? OneUnsent : std::to_string(*differences) + ManyUnsent;
}

} // namespace kelvo::messages
