#pragma once

#include "model/records.h"

namespace kelvo {

/// What the operator chose for the console itself; kept in `settings.dat`.
struct Preferences {
    Word ComPort = 1;           ///< 1 to 4
    bool AutoUpload = false;    ///< "Automatically Upload": every edit is sent at once
    bool ConfirmUpload = false; ///< "Confirm Message Box": ask before an explicit upload
    bool Shortcuts = false;     ///< "Enable Shortcuts": the Ctrl keys of the equaliser tab
    bool AutoRefresh = false;   ///< the settings are re-read every `RefreshSeconds`
    Word RefreshSeconds = 0;

    bool operator==(const Preferences &) const = default;
};

} // namespace kelvo
