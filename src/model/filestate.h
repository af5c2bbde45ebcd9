#pragma once

#include <string>

namespace kelvo {

/// How the room on the screen stands to the file that it belongs to.
struct FileState {
    std::string CurrentFileName;  ///< UTF-8 path; "" = untitled
    bool FileLoaded = false;      ///< the settings came from a file
    bool SettingsChanged = false; ///< the user changed a setting since the last load or save
    bool MaySave = true;          ///< Save writes without asking for a name, when there is one
    bool UnitRead =
        false; ///< the user had the unit read since the last load or save: it may be another room's
};

} // namespace kelvo
