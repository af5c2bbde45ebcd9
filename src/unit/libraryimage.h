#pragma once

#include <string>
#include <vector>

namespace kelvo {

/// What a library file says about itself, so that a refusal by the system can be told in plain words.
struct LibraryImage {
    enum class System { None, Linux, Windows };

    System system = System::None; ///< None: not a library at all
    int bits = 0;                 ///< 32 or 64
    /// The file names of the libraries that it is linked to; of Windows libraries only, elsewhere the
    /// system itself names the one that is missing.
    std::vector<std::string> needs;
};

/// Reads the file at `path` (UTF-8); whatever it holds, nothing worse than an empty answer comes of it.
LibraryImage ReadLibraryImage(const std::string &path);

/// What this program itself is.
LibraryImage ThisProgram();

} // namespace kelvo
