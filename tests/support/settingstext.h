#pragma once

#include "model/settings.h"

#include <string>

namespace kelvo {

/// Everything that settings hold, as one text for comparing.
inline std::string Everything(const Settings &settings)
{
    std::string all;
    const auto add = [&](const std::string &text) { all.append(text).append("\n"); };
    all.append(BytesOf(settings.Audio).begin(), BytesOf(settings.Audio).end());
    all.append(BytesOf(settings.System).begin(), BytesOf(settings.System).end());
    for (const int value :
         {int(settings.FaderLevel), int(settings.MuteState), int(settings.CurrentFormat),
          int(settings.FormatBeforeStream.has_value()), int(settings.FormatBeforeStream.value_or(0)),
          int(settings.ObeEnabled), int(settings.ObeMode), int(settings.FileLoaded),
          int(settings.SettingsChanged), int(settings.Updating), int(settings.BaudIndex),
          int(settings.Projector), int(settings.Options.ComPort), int(settings.Options.AutoUpload),
          int(settings.Options.ConfirmUpload), int(settings.Options.Shortcuts),
          int(settings.Options.AutoRefresh), int(settings.Options.RefreshSeconds)})
        add(std::to_string(value));
    for (const std::string &text : settings.TheaterInfo)
        add(text);
    add(settings.CurrentFileName);
    return all;
}

} // namespace kelvo
