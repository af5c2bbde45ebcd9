#pragma once

#include "files/systempath.h"
#include "support/testfolder.h"
#include "unit/qm4slibrary.h"

#include <cstdlib>
#include <sstream>
#include <vector>

namespace kelvo {

namespace fs = std::filesystem;

inline const fs::path Fakes = fs::absolute(KELVO_FAKE_LIBRARIES); // under Wine it has no drive yet
inline const std::string File = SharedLibrary::FileName("qm4slib");

inline void SetEnvironment(const std::string &name, const std::string &value)
{
#if defined(_WIN32)
    const fs::path wide = std::u8string(value.begin(), value.end());
    _wputenv_s(fs::path(name).c_str(), wide.c_str());
#else
    setenv(name.c_str(), value.c_str(), 1);
#endif
}

/// The places of the search, each a folder of its own, and what the libraries put there record.
struct LibraryFolders {
    TestFolder root;
    fs::path given = Folder("given \u00E9");
    fs::path program = Folder("the program's \u0416");
    fs::path executable = Folder("executable");
    fs::path elsewhere = Folder("elsewhere");
    std::vector<std::string> loadedPaths;

    LibraryFolders()
    {
#if defined(_WIN32)
        SetEnvironment("PATH", ".;" + SystemFolder().string());
#endif
        fs::remove(SystemFolder() / File);
        // Set once more before each load: a library sees the environment as it is then.
        SetEnvironment("KELVO_FAKE_CALLS", root.Path("calls"));
        SetEnvironment("KELVO_FAKE_FAILURES", root.Path("failures"));
    }
    ~LibraryFolders()
    {
        fs::remove(SystemFolder() / File);
    }
    LibraryFolders(const LibraryFolders &) = delete;
    LibraryFolders &operator=(const LibraryFolders &) = delete;

    static fs::path SystemFolder()
    {
        return Fakes / "system";
    }

    static void Put(const fs::path &folder, const std::string &variant = "plain")
    {
        fs::copy_file(Fakes / variant / File, folder / File, fs::copy_options::overwrite_existing);
    }

    fs::path Folder(const std::string &name) const
    {
        const std::string path = root.Path(name);
        const fs::path folder = std::u8string(path.begin(), path.end());
        fs::create_directory(folder);
        return folder;
    }

    LibraryPlaces All() const
    {
        return {Utf8(given / File), Utf8(program), Utf8(executable)};
    }

    std::function<void(const std::string &)> Loaded()
    {
        return [this](const std::string &path) { loadedPaths.push_back(path); };
    }

    /// True when the library was loaded from this folder and nowhere else.
    bool LoadedFrom(const fs::path &folder) const
    {
        if (loadedPaths.size() != 1)
            return false;
        const std::string &path = loadedPaths.front();
        return fs::equivalent(fs::path(std::u8string(path.begin(), path.end())), folder / File);
    }

    std::vector<std::string> Calls() const
    {
        std::istringstream text(root.Get("calls").value_or(""));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);)
            lines.push_back(line);
        return lines;
    }
};

} // namespace kelvo
