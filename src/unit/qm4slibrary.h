#pragma once

#include "unit/devicelibrary.h"
#include "unit/sharedlibrary.h"

#include <array>
#include <functional>
#include <string>
#include <vector>

namespace kelvo {

/// Where the maker's library may lie, besides the system's search path. Empty = no such place.
struct LibraryPlaces {
    std::string given; ///< a file that the user named
    std::string programFolder;
    std::string executableFolder;
};

/// The maker's device library, loaded at run time: the first file found in the order of `LibraryPlaces`
/// and then on the system's search path, never from the working folder.
/// A library runs inside this program: one that crashes, in `InitDLL` say, takes the console with it. A log
/// of the calls then ends with the last one that had answered.
class Qm4sLibrary : public DeviceLibrary {
  public:
    /// Loads nothing yet. `loaded` is told the path of the file whenever one was loaded.
    explicit Qm4sLibrary(const LibraryPlaces &places,
                         std::function<void(const std::string &path)> loaded = nullptr);

    /// Loads the library unless it is loaded; a library that lacks an operation is refused.
    bool TryLoad();
    /// Why the last attempt failed, in words for a box; empty = loaded, or not tried yet.
    const std::string &Problem() const { return problem_; }

    // Without a library every operation answers `CouldNotInitialise`.

    /// Tries to load the library first when it is not loaded.
    Status InitDLL(Word port) override;
    Status DLLShutdown() override;
    Status SetDLLBaud(Word index) override;
    Status DLLCreateIni() override;
    Status ClearError() override;
    Status GetAudio(AudioBlock &audio) override;
    Status GetSystem(SystemBlock &system) override;
    Status SetAudio(AudioBlock &audio) override;
    Status SetSystem(SystemBlock &system) override;
    Status GetUnitVersion(UnitVersion &version) override;
    Status SetVol(Word level) override;
    Status GetVol(Word &level) override;
    Status SetMute(Word word) override;
    Status GetMute(Word &word) override;
    Status SelectFormat(Word format) override;
    Status GetFormat(Word &format) override;
    Status SetPink(Word channel, Word on) override;
    Status SetPhase(Word channel, Word inverted) override;
    Status SetRT60(Word on) override;
    Status SetProjector(Word projector) override;
    Status EnableOBE() override;
    Status StopStream() override;
    Status BeginGainStream() override;
    Status BeginSlitStream() override;
    Status BeginAzimuthStream() override;
    Status GetOptGain(std::span<Byte, GainBytes> reading) override;
    Status GetOptSlitloss() override;
    Status GetSingleSlitloss(std::span<Byte, SlitLossBytes> sample, Word &side) override;
    Status GetOptAzimuth(std::span<Byte, AzimuthBytes> frame) override;

  private:
    static constexpr std::size_t OperationCount = 29;
    using Entries = std::array<void *, OperationCount>; ///< null = not exported

    /// Loads this file; empty = done, else the reason in words.
    std::string Take(const std::string &path);
    template <std::size_t Operation, typename... Parameters>
    Status Call(Parameters... arguments) const;

    std::vector<std::string> candidates_; ///< paths in the order of the search; made once, since the
                                          ///< working folder may change
    std::size_t systemCandidates_ = 0;    ///< how many at the end are of the system's search path
    std::function<void(const std::string &)> loaded_;
    SharedLibrary library_;
    Entries entries_{};
    std::string problem_;
};

} // namespace kelvo
