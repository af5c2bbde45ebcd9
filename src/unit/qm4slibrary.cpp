#include "unit/qm4slibrary.h"

#include "files/systempath.h"
#include "unit/libraryimage.h"
#include "unit/messages.h"

#include <algorithm>
#include <filesystem>

namespace kelvo {

namespace {

namespace fs = std::filesystem;

/// The shapes that `CallEntry` knows: words by value, or a pointer to words beside one other.
constexpr bool CanBeCalled(const OperationRow &row)
{
    const Shape &shape = row.shape;
    const int otherPointers = shape.Pointers() - (shape.wordsOut > 0 ? 1 : 0);
    return shape.wordsIn == 0 ? otherPointers <= 1 : shape.wordsIn <= 2 && shape.Pointers() == 0;
}
static_assert(std::ranges::all_of(Operations, CanBeCalled));

template <typename... Parameters>
Status Enter(void *entry, Parameters... arguments)
{
    using Function = Status(KELVO_CALL *)(Parameters...); // 16 bits: what stands above them is not the status
    return reinterpret_cast<Function>(entry)(arguments...);
}

/// Calls the library's function by the shape of its operation.
Status CallEntry(void *entry, const Call &call)
{
    const Shape &shape = RowOf(call.operation).shape;
    if (shape.wordsIn == 1)
        return Enter(entry, call.wordsIn[0]);
    if (shape.wordsIn == 2)
        return Enter(entry, call.wordsIn[0], call.wordsIn[1]);
    // The library takes every record by a plain pointer, those that it only reads too.
    void *bytes = shape.bytesIn > 0 ? const_cast<Byte *>(call.bytesIn.data()) : call.bytesOut.data();
    void *words = call.wordsOut.data();
    if (shape.Pointers() == 2)
        return Enter(entry, bytes, words);
    if (shape.Pointers() == 1)
        return Enter(entry, shape.wordsOut > 0 ? words : bytes);
    return Enter(entry);
}

/// Relative paths are meant from where the program was started.
std::string Absolute(const fs::path &path)
{
    std::error_code ignored; // without a working folder the path is empty and names nothing
    return Utf8(fs::absolute(path, ignored).make_preferred());
}

} // namespace

Qm4sLibrary::Qm4sLibrary(const LibraryPlaces &places, std::function<void(const std::string &)> loaded)
    : loaded_(std::move(loaded))
{
    const std::string file = SharedLibrary::FileName("qm4slib");
    const auto add = [this](const std::string &path) {
        if (std::ranges::find(candidates_, path) == candidates_.end())
            candidates_.push_back(path);
    };
    if (!places.given.empty())
        add(Absolute(FromUtf8(places.given)));
    for (const std::string &folder : {places.programFolder, places.executableFolder})
        if (!folder.empty())
            add(Absolute(FromUtf8(folder) / file));
    const std::vector<std::string> onSystemPath = SharedLibrary::OnSystemPath(file);
    systemCandidates_ = onSystemPath.size();
    candidates_.insert(candidates_.end(), onSystemPath.begin(), onSystemPath.end());
}

// The first file that is there decides, even when it cannot be used: passing it over in silence would run
// the unit with another library than the one that somebody put in its place.
bool Qm4sLibrary::TryLoad()
{
    if (library_.Loaded())
        return true;
    std::vector<std::string> places;
    const std::size_t ownCandidates = candidates_.size() - systemCandidates_;
    std::size_t choice = 0;
    for (; choice + 1 < candidates_.size() && !Exists(candidates_[choice]); ++choice)
        if (choice < ownCandidates)
            places.push_back(candidates_[choice]);
    places.push_back(choice < ownCandidates ? candidates_[choice] : messages::SystemSearchPath);

    const std::string reason = Take(candidates_[choice]);
    const bool nowhere = choice >= ownCandidates && !Exists(candidates_[choice]);
    const std::string file = nowhere ? SharedLibrary::FileName("qm4slib") : candidates_[choice];
    problem_ = reason.empty() ? "" : messages::LibraryProblem(file, reason, places);
    if (reason.empty() && loaded_)
        loaded_(library_.Path());
    return reason.empty();
}

std::string Qm4sLibrary::Take(const std::string &path)
{
    SharedLibrary library;
    std::string reason = library.Load(path);
    if (!library.Loaded()) {
        const LibraryImage program = ThisProgram();
        const LibraryImage image = ReadLibraryImage(path);
        const bool ours = image.system == program.system && image.bits == program.bits;
        return ours || !Exists(path) ? reason : messages::WrongKind(image, program);
    }
    Entries entries{};
    std::vector<std::string> missing;
    for (const OperationRow &row : Operations) {
        void *entry = library.Find(row.name, row.shape.Arguments());
        entries[std::size_t(row.operation)] = entry;
        if (!entry && row.required)
            missing.emplace_back(row.name);
    }
    if (!missing.empty())
        return messages::OperationsMissing(missing);
    library_ = std::move(library);
    entries_ = entries;
    return "";
}

Status Qm4sLibrary::Perform(const Call &call)
{
    if (call.operation == Operation::InitDLL)
        TryLoad();
    void *entry = entries_[std::size_t(call.operation)];
    return entry ? CallEntry(entry, call) : CouldNotInitialise;
}

} // namespace kelvo
