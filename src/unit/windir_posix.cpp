#include "unit/windir.h"

#include <cstdlib>
#include <filesystem>
#include <pwd.h>
#include <unistd.h>

namespace kelvo {

namespace {

std::filesystem::path ConfigurationFolder()
{
    // A relative path there is to be ignored.
    const char *configured = std::getenv("XDG_CONFIG_HOME");
    if (configured && configured[0] == '/')
        return configured;
    const char *home = std::getenv("HOME");
    if (!home || !*home) {
        const passwd *user = getpwuid(getuid());
        home = user ? user->pw_dir : "/";
    }
    return std::filesystem::path(home) / ".config";
}

} // namespace

std::string GetWinDir()
{
    const std::filesystem::path directory = ConfigurationFolder() / "kelvo";
    std::error_code ignored; // a folder that cannot be created holds no file
    std::filesystem::create_directories(directory, ignored);
    return directory.string();
}

} // namespace kelvo
