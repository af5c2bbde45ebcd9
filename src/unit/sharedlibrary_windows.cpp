#include "unit/sharedlibrary.h"

#include "files/filecalls.h"
#include "files/systempath.h"
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

/// What the system says about an error code; `file` stands for the file that some of its texts leave a place
/// for.
std::string SystemText(DWORD code, const std::string &file)
{
    std::string words = ReasonOf({int(code), std::system_category()});
    if (const std::size_t place = words.find("%1"); place != std::string::npos)
        words.replace(place, 2, file);
    return words;
}

/// The libraries that a file needs, also through those beside it, and why each of them would not do.
struct Needs {
    std::vector<std::string> known;
    std::vector<std::string> missing;
    std::vector<std::string> ofOtherKind;
};

/// The folders of the load that failed must still be searched.
void AddNeeds(const std::string &path, Needs &needs)
{
    for (const std::string &need : ReadLibraryImage(path).needs) {
        if (std::ranges::find(needs.known, need) != needs.known.end())
            continue;
        needs.known.push_back(need);
        const std::string beside = Utf8(FromUtf8(path).parent_path() / FromUtf8(need));
        if (Exists(beside)) {
            if (ReadLibraryImage(beside).bits != ThisProgram().bits)
                needs.ofOtherKind.push_back(need);
            AddNeeds(beside, needs);
        } else if (HMODULE found =
                       LoadLibraryExW(FromUtf8(need).c_str(), nullptr, LOAD_LIBRARY_SEARCH_DEFAULT_DIRS)) {
            FreeLibrary(found);
        } else {
            needs.missing.push_back(need);
        }
    }
}

std::string ReasonFor(DWORD code, const std::string &path)
{
    Needs needs;
    if (Exists(path))
        AddNeeds(path, needs);
    const bool someNeedFailed = code == ERROR_MOD_NOT_FOUND && Exists(path);
    if ((someNeedFailed || code == ERROR_BAD_EXE_FORMAT) && !needs.ofOtherKind.empty())
        return messages::NeedsOfOtherKind(needs.ofOtherKind, ThisProgram());
    if (someNeedFailed)
        return messages::NeedsMissing(needs.missing);
    return SystemText(code, Utf8(FromUtf8(path).filename()));
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
// there, in the Windows folder and those of PATH.
std::string SharedLibrary::Load(const std::string &path)
{
    DWORD modeBefore = 0;
    SetThreadErrorMode(SEM_FAILCRITICALERRORS, &modeBefore); // the reason is told here, not in a system box
    const SearchedFolders searched(SystemFolders());
    handle_ = LoadLibraryExW(SystemPath(path).make_preferred().c_str(), nullptr,
                             LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_DEFAULT_DIRS);
    const std::string reason = handle_ ? "" : ReasonFor(GetLastError(), path);
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
