#include "unit/sharedlibrary.h"

#include "unit/libraryimage.h"
#include "unit/messages.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace kelvo {

namespace {

namespace fs = std::filesystem;

fs::path FromUtf8(const std::string &path)
{
    return std::u8string(path.begin(), path.end());
}

std::string Utf8(const fs::path &path)
{
    const std::u8string text = path.u8string();
    return std::string(text.begin(), text.end());
}

HMODULE ModuleOf(void *handle)
{
    return static_cast<HMODULE>(handle);
}

/// The system's search path: its own folder, the Windows folder and those of PATH, the relative ones left out
/// since they depend on the working folder.
std::vector<fs::path> SystemFolders()
{
    wchar_t system[MAX_PATH] = L"";
    wchar_t windows[MAX_PATH] = L"";
    GetSystemDirectoryW(system, MAX_PATH);
    GetWindowsDirectoryW(windows, MAX_PATH);
    std::vector<fs::path> folders{system, windows};
    const wchar_t *variable = _wgetenv(L"PATH");
    std::wstring_view rest = variable ? variable : L"";
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find(L';'), rest.size());
        const fs::path folder(rest.substr(0, end));
        if (folder.is_absolute())
            folders.push_back(folder);
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return folders;
}

/// Folders in which the loader looks for what a library needs, while this stands.
class SearchedFolders {
  public:
    explicit SearchedFolders(const std::vector<fs::path> &folders)
    {
        for (const fs::path &folder : folders)
            if (DLL_DIRECTORY_COOKIE cookie = AddDllDirectory(folder.c_str()))
                cookies_.push_back(cookie);
    }
    ~SearchedFolders()
    {
        for (DLL_DIRECTORY_COOKIE cookie : cookies_)
            RemoveDllDirectory(cookie);
    }
    SearchedFolders(const SearchedFolders &) = delete;
    SearchedFolders &operator=(const SearchedFolders &) = delete;

  private:
    std::vector<DLL_DIRECTORY_COOKIE> cookies_;
};

/// What the system says about an error code, without the line's end and the full stop.
std::string SystemText(DWORD code)
{
    wchar_t text[512] = L"";
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, code,
                                  0, text, DWORD(std::size(text)), nullptr);
    while (length > 0 && std::wstring_view(L"\r\n .").find(text[length - 1]) != std::wstring_view::npos)
        --length;
    return length > 0 ? Utf8(std::wstring(text, length)) : messages::ErrorNumber(int(code));
}

/// Adds the libraries that the file at `path` needs and that are nowhere, also through those beside it. The
/// folders of the load that failed must still be searched.
void AddMissingNeeds(const fs::path &path, std::vector<std::string> &known, std::vector<std::string> &missing)
{
    for (const std::string &need : ReadLibraryImage(Utf8(path)).needs) {
        if (std::ranges::find(known, need) != known.end())
            continue;
        known.push_back(need);
        const fs::path beside = path.parent_path() / FromUtf8(need);
        std::error_code ignored;
        if (fs::exists(beside, ignored)) {
            AddMissingNeeds(beside, known, missing);
        } else if (HMODULE found =
                       LoadLibraryExW(FromUtf8(need).c_str(), nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS)) {
            FreeLibrary(found);
        } else {
            missing.push_back(need);
        }
    }
}

std::string ReasonFor(DWORD code, const fs::path &path)
{
    std::error_code ignored;
    if (code != ERROR_MOD_NOT_FOUND || !fs::exists(path, ignored))
        return SystemText(code);
    std::vector<std::string> known;
    std::vector<std::string> missing;
    AddMissingNeeds(path, known, missing);
    return messages::NeedsMissing(missing);
}

} // namespace

SharedLibrary::~SharedLibrary()
{
    if (handle_)
        FreeLibrary(ModuleOf(handle_));
}

std::string SharedLibrary::FileName(const std::string &name)
{
    return name + ".dll";
}

std::vector<std::string> SharedLibrary::OnSystemPath(const std::string &fileName)
{
    std::vector<std::string> paths;
    for (const fs::path &folder : SystemFolders())
        paths.push_back(Utf8(folder / FromUtf8(fileName)));
    return paths;
}

// The library's needs are looked for beside it, in the system's folder and, for what old installers left
// there, in the Windows folder and those of PATH. The empty folder takes the working folder out of the
// searches that the library itself starts later on.
std::string SharedLibrary::Load(const std::string &path)
{
    const fs::path file = FromUtf8(path).make_preferred();
    SetDllDirectoryW(L"");
    DWORD modeBefore = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &modeBefore); // the reason is told here, not in a system box
    const SearchedFolders searched(SystemFolders());
    handle_ = LoadLibraryExW(file.c_str(), nullptr,
                             LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    const std::string reason = handle_ ? "" : ReasonFor(GetLastError(), file);
    SetThreadErrorMode(modeBefore, nullptr);
    return reason;
}

std::string SharedLibrary::Path() const
{
    std::wstring path(1024, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(ModuleOf(handle_), path.data(), DWORD(path.size()));
        if (length < path.size())
            return Utf8(path.substr(0, length));
        path.resize(2 * path.size());
    }
}

void *SharedLibrary::Find(const std::string &name, int arguments) const
{
    std::vector<std::string> names{name};
#if defined(__i386__)
    const std::string decorated = name + "@" + std::to_string(4 * arguments);
    names.insert(names.end(), {"_" + decorated, decorated});
#else
    static_cast<void>(arguments);
#endif
    for (const std::string &candidate : names)
        if (FARPROC entry = GetProcAddress(ModuleOf(handle_), candidate.c_str()))
            return reinterpret_cast<void *>(entry);
    return nullptr;
}

} // namespace kelvo
