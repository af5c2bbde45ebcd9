#include "unit/messages.h"

namespace kelvo::messages {

namespace {

constexpr auto ErrorsHeader = "The following Errors were encountered:\n\n";
constexpr auto ErrorsFooter = "\n\nCannot Continue On Line!\n";

constexpr auto AllSent = "All sent";
constexpr auto OneUnsent = "1 change not in the unit";
constexpr auto ManyUnsent = " changes not in the unit";
constexpr auto UploadKey = " - F2";

constexpr auto LibraryHeader = "The device library could not be loaded. The console works off line.";
constexpr auto LibraryFile = "\n\nFile: ";
constexpr auto LibraryReason = "\nReason: ";
constexpr auto LibraryPlaces = "\n\nLooked for, in this order:";

constexpr auto NeedMissing = "a library that it needs was not found";
constexpr auto NeedOfOtherKind = "a library that it needs is not for the ";
constexpr auto NoLibrary = "it is not a library";
constexpr auto OperationsLacking = "it lacks these operations: ";

std::string Joined(const std::vector<std::string> &names)
{
    std::string text;
    for (const std::string &name : names)
        text += (text.empty() ? "" : ", ") + name;
    return text;
}

/// "32-bit Windows"
std::string KindText(const LibraryImage &image)
{
    return std::to_string(image.bits) +
           (image.system == LibraryImage::System::Windows ? "-bit Windows" : "-bit Linux");
}

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

std::string SentText(std::optional<int> differences, bool onLine)
{
    if (!differences)
        return "";
    if (*differences == 0)
        return AllSent;
    return (*differences == 1 ? OneUnsent : std::to_string(*differences) + ManyUnsent) +
           (onLine ? UploadKey : "");
}

std::string LibraryProblem(const std::string &file, const std::string &reason,
                           const std::vector<std::string> &places)
{
    std::string text =
        std::string(LibraryHeader) + LibraryFile + file + LibraryReason + reason + LibraryPlaces;
    for (const std::string &place : places)
        text += '\n' + place;
    return text;
}

std::string NeedsMissing(const std::vector<std::string> &libraries)
{
    return libraries.empty() ? NeedMissing : std::string(NeedMissing) + ": " + Joined(libraries);
}

std::string NeedsOfOtherKind(const std::vector<std::string> &libraries, const LibraryImage &program)
{
    return NeedOfOtherKind + KindText(program) + " program: " + Joined(libraries);
}

std::string OperationsMissing(const std::vector<std::string> &operations)
{
    return OperationsLacking + Joined(operations);
}

std::string WrongKind(const LibraryImage &library, const LibraryImage &program)
{
    if (library.system == LibraryImage::System::None)
        return NoLibrary;
    return "it is a " + KindText(library) + " library, this is the " + KindText(program) + " program";
}

} // namespace kelvo::messages
