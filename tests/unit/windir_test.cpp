#include "unit/windir.h"

#include <doctest/doctest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

using namespace kelvo;
namespace fs = std::filesystem;

#ifdef _WIN32

TEST_CASE("the Windows directory is the system's, without a separator at its end")
{
    const std::string directory = GetWinDir();
    CHECK(fs::is_directory(directory));
    CHECK(fs::exists(fs::path(directory) / "system32"));
    CHECK(directory.back() != '\\');
}

#else

namespace {

/// An empty folder that stands for the user's configuration, and the environment that names it.
class TestHome {
  public:
    TestHome()
    {
        std::string name = (fs::temp_directory_path() / "kelvo-windir-XXXXXX").string();
        folder = mkdtemp(name.data());
        Set("XDG_CONFIG_HOME", (folder / "config").c_str());
        Set("HOME", (folder / "home").c_str());
    }
    ~TestHome() { fs::remove_all(folder); }
    TestHome(const TestHome &) = delete;
    TestHome &operator=(const TestHome &) = delete;

    static void Set(const char *name, const char *value)
    {
        if (value)
            setenv(name, value, 1);
        else
            unsetenv(name);
    }

    fs::path folder;
};

} // namespace

TEST_CASE("where there is no Windows directory the user's configuration folder stands in for it")
{
    const TestHome home;
    CHECK(GetWinDir() == home.folder / "config/kelvo");
    CHECK(fs::is_directory(home.folder / "config/kelvo"));

    TestHome::Set("XDG_CONFIG_HOME", nullptr);
    CHECK(GetWinDir() == home.folder / "home/.config/kelvo");
    CHECK(fs::is_directory(home.folder / "home/.config/kelvo"));
}

TEST_CASE("an empty or relative configuration folder in the environment does not count")
{
    const TestHome home;
    for (const char *value : {"", "relative/folder"}) {
        TestHome::Set("XDG_CONFIG_HOME", value);
        CHECK(GetWinDir() == home.folder / "home/.config/kelvo");
    }
}

TEST_CASE("the serial settings file is missing until it is there")
{
    const TestHome home;
    CHECK(SerialIniMissing());
    std::ofstream(fs::path(GetWinDir()) / "kelvoserial.ini") << "[Port]\n";
    CHECK_FALSE(SerialIniMissing());
}

#endif
