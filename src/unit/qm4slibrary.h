#pragma once

#include "unit/devicelibrary.h"
#include "unit/sharedlibrary.h"

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
/// of the calls then ends with the one that never came back.
class Qm4sLibrary : public DeviceLibrary {
  public:
    /// Loads nothing yet. `loaded` is told the path of the file whenever one was loaded.
    explicit Qm4sLibrary(const LibraryPlaces &places,
                         std::function<void(const std::string &path)> loaded = nullptr);

    /// Loads the library unless it is loaded; a library that lacks an operation is refused.
    bool TryLoad();
    /// Why the last attempt failed, in words for a box; empty = loaded, or not tried yet.
    const std::string &Problem() const { return problem_; }

  private:
    using Entries = std::array<void *, Operations.size()>; ///< null = not exported

    /// Without a library every operation answers `CouldNotInitialise`; `InitDLL` first tries to load one.
    Status Perform(const Call &call) override;
    /// Loads this file; empty = done, else the reason in words.
    std::string Take(const std::string &path);

    std::vector<std::string> candidates_; ///< paths in the order of the search; made once, since the
                                          ///< working folder may change
    std::size_t systemCandidates_ = 0;    ///< how many at the end are of the system's search path
    std::function<void(const std::string &)> loaded_;
    SharedLibrary library_;
    Entries entries_{};
    std::string problem_;
};

} // namespace kelvo
