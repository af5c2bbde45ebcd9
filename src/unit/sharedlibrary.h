#pragma once

#include <string>
#include <vector>

/// How the device library's operations are called.
#if defined(_WIN32)
#define KELVO_CALL __stdcall
#else
#define KELVO_CALL
#endif

namespace kelvo {

/// A library loaded at run time, unloaded when this object goes. Paths are UTF-8.
class SharedLibrary {
  public:
    SharedLibrary() = default;
    ~SharedLibrary();
    SharedLibrary(const SharedLibrary &) = delete;
    SharedLibrary &operator=(const SharedLibrary &) = delete;
    SharedLibrary(SharedLibrary &&other) noexcept;
    SharedLibrary &operator=(SharedLibrary &&other) noexcept;

    /// The file name of library `name` on this system: "qm4slib.dll", "libqm4slib.so".
    static std::string FileName(const std::string &name);

    /// What to hand to `Load` for a file on the system's search path, best first. The working folder is
    /// never on it.
    static std::vector<std::string> OnSystemPath(const std::string &fileName);

    /// Loads the file at an absolute path, and what it needs from beside it, or one of `OnSystemPath`.
    /// Empty = loaded, else the reason in words.
    std::string Load(const std::string &path);
    bool Loaded() const { return handle_ != nullptr; }
    /// Where the loaded file lies.
    std::string Path() const;

    /// The entry of a C function that takes this many arguments of 4 bytes or less each; null = none.
    void *Find(const std::string &name, int arguments) const;

  private:
    void *handle_ = nullptr;
};

} // namespace kelvo
