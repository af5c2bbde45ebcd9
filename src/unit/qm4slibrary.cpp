#include "unit/qm4slibrary.h"

#include "files/systempath.h"
#include "unit/libraryimage.h"
#include "unit/messages.h"

#include <algorithm>
#include <bit>
#include <filesystem>
#include <string_view>

namespace kelvo {

namespace {

namespace fs = std::filesystem;

struct Row {
    std::string_view name;
    int arguments;
    bool required = true;
};

constexpr std::array<Row, 29> Rows{{
    {"InitDLL", 1},
    {"DLLShutdown", 0},
    {"SetDLLBaud", 1},
    {"DLLCreateIni", 0},
    {"ClearError", 0},
    {"GetAudio", 1},
    {"GetSystem", 1},
    {"SetAudio", 1},
    {"SetSystem", 1},
    {"GetUnitVersion", 1},
    {"SetVol", 1},
    {"GetVol", 1},
    {"SetMute", 1},
    {"GetMute", 1},
    {"SelectFormat", 1},
    {"GetFormat", 1},
    {"SetPink", 2},
    {"SetPhase", 2},
    {"SetRT60", 1},
    {"SetProjector", 1},
    {"EnableOBE", 0},
    {"StopStream", 0},
    {"BeginGainStream", 0},
    {"BeginSlitStream", 0},
    {"BeginAzimuthStream", 0},
    {"GetOptGain", 1},
    {"GetOptSlitloss", 1, false},
    {"GetSingleSlitloss", 2},
    {"GetOptAzimuth", 1},
}};

/// The row of an operation; a name that is not in the table does not compile.
consteval std::size_t Op(std::string_view name)
{
    std::size_t row = 0;
    while (Rows.at(row).name != name)
        ++row;
    return row;
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
    static_assert(Rows.size() == OperationCount);
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
    for (std::size_t i = 0; i < Rows.size(); ++i) {
        const std::string name(Rows[i].name);
        entries[i] = library.Find(name, Rows[i].arguments);
        if (!entries[i] && Rows[i].required)
            missing.push_back(name);
    }
    if (!missing.empty())
        return messages::OperationsMissing(missing);
    library_ = std::move(library);
    entries_ = entries;
    return "";
}

template <std::size_t Operation, typename... Parameters>
Status Qm4sLibrary::Call(Parameters... arguments) const
{
    static_assert(sizeof...(Parameters) == std::size_t(Rows[Operation].arguments));
    using Function = Status(KELVO_CALL *)(Parameters...); // 16 bits: what stands above them is not the status
    if (!entries_[Operation])
        return CouldNotInitialise;
    return reinterpret_cast<Function>(entries_[Operation])(arguments...);
}

Status Qm4sLibrary::InitDLL(Word port)
{
    TryLoad();
    return Call<Op("InitDLL")>(port);
}

Status Qm4sLibrary::GetUnitVersion(UnitVersion &version)
{
    auto words = std::bit_cast<std::array<Word, 7>>(version);
    const Status status = Call<Op("GetUnitVersion")>(words.data());
    version = std::bit_cast<UnitVersion>(words);
    return status;
}

Status Qm4sLibrary::GetOptSlitloss()
{
    void *unused = nullptr;
    return Call<Op("GetOptSlitloss")>(unused);
}

Status Qm4sLibrary::DLLShutdown()
{
    return Call<Op("DLLShutdown")>();
}

Status Qm4sLibrary::SetDLLBaud(Word index)
{
    return Call<Op("SetDLLBaud")>(index);
}

Status Qm4sLibrary::DLLCreateIni()
{
    return Call<Op("DLLCreateIni")>();
}

Status Qm4sLibrary::ClearError()
{
    return Call<Op("ClearError")>();
}

Status Qm4sLibrary::GetAudio(AudioBlock &audio)
{
    return Call<Op("GetAudio")>(BytesOf(audio).data());
}

Status Qm4sLibrary::GetSystem(SystemBlock &system)
{
    return Call<Op("GetSystem")>(BytesOf(system).data());
}

Status Qm4sLibrary::SetAudio(AudioBlock &audio)
{
    return Call<Op("SetAudio")>(BytesOf(audio).data());
}

Status Qm4sLibrary::SetSystem(SystemBlock &system)
{
    return Call<Op("SetSystem")>(BytesOf(system).data());
}

Status Qm4sLibrary::SetVol(Word level)
{
    return Call<Op("SetVol")>(level);
}

Status Qm4sLibrary::GetVol(Word &level)
{
    return Call<Op("GetVol")>(&level);
}

Status Qm4sLibrary::SetMute(Word word)
{
    return Call<Op("SetMute")>(word);
}

Status Qm4sLibrary::GetMute(Word &word)
{
    return Call<Op("GetMute")>(&word);
}

Status Qm4sLibrary::SelectFormat(Word format)
{
    return Call<Op("SelectFormat")>(format);
}

Status Qm4sLibrary::GetFormat(Word &format)
{
    return Call<Op("GetFormat")>(&format);
}

Status Qm4sLibrary::SetPink(Word channel, Word on)
{
    return Call<Op("SetPink")>(channel, on);
}

Status Qm4sLibrary::SetPhase(Word channel, Word inverted)
{
    return Call<Op("SetPhase")>(channel, inverted);
}

Status Qm4sLibrary::SetRT60(Word on)
{
    return Call<Op("SetRT60")>(on);
}

Status Qm4sLibrary::SetProjector(Word projector)
{
    return Call<Op("SetProjector")>(projector);
}

Status Qm4sLibrary::EnableOBE()
{
    return Call<Op("EnableOBE")>();
}

Status Qm4sLibrary::StopStream()
{
    return Call<Op("StopStream")>();
}

Status Qm4sLibrary::BeginGainStream()
{
    return Call<Op("BeginGainStream")>();
}

Status Qm4sLibrary::BeginSlitStream()
{
    return Call<Op("BeginSlitStream")>();
}

Status Qm4sLibrary::BeginAzimuthStream()
{
    return Call<Op("BeginAzimuthStream")>();
}

Status Qm4sLibrary::GetOptGain(std::span<Byte, GainBytes> reading)
{
    return Call<Op("GetOptGain")>(reading.data());
}

Status Qm4sLibrary::GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side)
{
    return Call<Op("GetSingleSlitloss")>(sample.data(), &side);
}

Status Qm4sLibrary::GetOptAzimuth(std::span<Byte, AzimuthBytes> frame)
{
    return Call<Op("GetOptAzimuth")>(frame.data());
}

} // namespace kelvo
