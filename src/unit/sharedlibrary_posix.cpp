#include "unit/sharedlibrary.h"

#include "unit/messages.h"

#include <algorithm>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <link.h>
#include <unistd.h>

namespace kelvo {

namespace {

/// The working folder is the root while this stands, because an empty or relative part of the system's
/// search path means the working folder.
class AwayFromWorkingFolder {
  public:
    AwayFromWorkingFolder() : before_(open(".", O_PATH | O_DIRECTORY | O_CLOEXEC)), away_(chdir("/") == 0) {}
    ~AwayFromWorkingFolder()
    {
        if (before_ < 0)
            return;
        if (away_ && fchdir(before_) != 0)
            away_ = false; // The folder is gone; the root will do.
        close(before_);
    }
    AwayFromWorkingFolder(const AwayFromWorkingFolder &) = delete;
    AwayFromWorkingFolder &operator=(const AwayFromWorkingFolder &) = delete;

  private:
    int before_;
    bool away_;
};

/// The system's reason without the path in front of it, which the caller knows.
std::string LastReason(const std::string &path)
{
    const char *text = dlerror();
    std::string reason = text ? text : "";
    const std::string prefix = path + ": ";
    return reason.starts_with(prefix) ? reason.substr(prefix.size()) : reason;
}

/// The bare file name that the reason begins with: a library that was needed and not found.
std::string NeededIn(const std::string &reason)
{
    const std::string name = reason.substr(0, reason.find(": "));
    const bool bare = name.size() < reason.size() && name.find_first_of("/ ") == std::string::npos;
    return bare ? name : std::string();
}

} // namespace

SharedLibrary::~SharedLibrary()
{
    if (handle_)
        dlclose(handle_);
}

std::string SharedLibrary::FileName(const std::string &name)
{
    return "lib" + name + ".so";
}

std::vector<std::string> SharedLibrary::OnSystemPath(const std::string &fileName)
{
    return {fileName};
}

// The system looks for a library's needs beside it only when the library was built to say so. A need that is
// missing and does lie there is loaded first; the next attempt then finds it by its name.
std::string SharedLibrary::Load(const std::string &path)
{
    const AwayFromWorkingFolder away;
    std::vector<std::string> tried;
    std::vector<SharedLibrary> needs; // held until the library that needs them holds them itself
    for (;;) {
        handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
        if (handle_)
            return "";
        std::string reason = LastReason(path);
        const std::string needed = NeededIn(reason);
        if (needed.empty())
            return reason;
        const std::filesystem::path beside = std::filesystem::path(path).parent_path() / needed;
        SharedLibrary need;
        if (!beside.is_absolute() || std::ranges::find(tried, needed) != tried.end() ||
            !need.Load(beside.string()).empty())
            return messages::NeedsMissing({needed});
        tried.push_back(needed);
        needs.push_back(std::move(need));
    }
}

std::string SharedLibrary::Path() const
{
    const link_map *map = nullptr;
    if (!handle_ || dlinfo(handle_, RTLD_DI_LINKMAP, &map) != 0)
        return "";
    return map->l_name;
}

void *SharedLibrary::Find(const std::string &name, int /*arguments*/) const
{
    return dlsym(handle_, name.c_str());
}

} // namespace kelvo
