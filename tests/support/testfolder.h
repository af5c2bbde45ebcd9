#pragma once

#include <atomic>
#include <chrono>
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// A folder of the test's own under the system's temporary folder; it goes with its scope.
class TestFolder {
  public:
    TestFolder()
    {
        static std::atomic<int> count = 0;
        const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
        folder_ = std::filesystem::temp_directory_path() /
                  ("kelvo-test-" + std::to_string(now) + "-" + std::to_string(++count));
        std::filesystem::create_directory(folder_);
    }
    ~TestFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    TestFolder(const TestFolder &) = delete;
    TestFolder &operator=(const TestFolder &) = delete;

    /// The path, in UTF-8, of a name in the folder; without a name the folder's own.
    std::string Path(std::string_view name = {}) const
    {
        const std::u8string path = (name.empty() ? folder_ : folder_ / Utf8(name)).u8string();
        return {path.begin(), path.end()};
    }

    void Put(std::string_view name, std::string_view bytes) const
    {
        std::ofstream file(folder_ / Utf8(name), std::ios::binary | std::ios::trunc);
        file.write(bytes.data(), std::streamsize(bytes.size()));
    }

    /// The file's content; none when there is no such file.
    std::optional<std::string> Get(std::string_view name) const
    {
        std::ifstream file(folder_ / Utf8(name), std::ios::binary);
        if (!file)
            return std::nullopt;
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    /// How many files and folders stand in it.
    std::size_t Count() const
    {
        return std::size_t(std::distance(std::filesystem::directory_iterator(folder_), {}));
    }

  private:
    static std::filesystem::path Utf8(std::string_view name)
    {
        return std::u8string(name.begin(), name.end());
    }

    std::filesystem::path folder_;
};

} // namespace kelvo
