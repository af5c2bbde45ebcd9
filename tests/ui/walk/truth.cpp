#include "ui/walk/truth.h"

#include "files/configfile.h"

namespace kelvo {

std::optional<RoomSettings> Truth::InFile(const QString &path) const
{
    RoomSettings opened = Room(); // an old file does not hold everything
    if (LoadConfigFile(path.toStdString(), opened))
        return std::nullopt;
    return opened;
}

std::string Truth::TextOf(const RoomSettings &room)
{
    return ComposeConfig(room);
}

} // namespace kelvo
