#include "unit/libraryimage.h"

#include "files/systempath.h"
#include "model/records.h"

#include <cstdint>
#include <fstream>
#include <sstream>

namespace kelvo {

namespace {

constexpr std::uint32_t ElfMark = 0x464C457F;     // 7F "ELF"
constexpr std::uint32_t WindowsMark = 0x5A4D;     // "MZ"
constexpr std::uint32_t HeadersMark = 0x00004550; // "PE", 0, 0

/// The file's bytes; what lies beyond their end reads as 0.
class Image {
  public:
    explicit Image(const std::string &bytes) : bytes_(bytes.begin(), bytes.end()) {}

    /// A little-endian number of `size` bytes.
    std::uint32_t Number(std::uint64_t offset, int size) const
    {
        std::uint32_t number = 0;
        for (int i = size - 1; i >= 0; --i)
            number = number << 8 | At(offset + std::uint64_t(i));
        return number;
    }
    std::uint32_t Half(std::uint64_t offset) const { return Number(offset, 2); }
    std::uint32_t Whole(std::uint64_t offset) const { return Number(offset, 4); }
    /// The text up to the next zero byte.
    std::string Text(std::uint64_t offset) const
    {
        std::string text;
        while (const Byte byte = At(offset++))
            text += char(byte);
        return text;
    }

  private:
    Byte At(std::uint64_t offset) const
    {
        return offset < bytes_.size() ? Byte(bytes_[std::size_t(offset)]) : Byte(0);
    }

    std::vector<char> bytes_;
};

/// The headers of a Windows library, whose "PE" mark stands at `mark`.
class WindowsHeaders {
  public:
    WindowsHeaders(const Image &image, std::uint64_t mark) : image_(image), mark_(mark) {}

    int Bits() const
    {
        switch (image_.Half(mark_ + 24)) {
        case 0x10B:
            return 32;
        case 0x20B:
            return 64;
        default:
            return 0;
        }
    }

    std::vector<std::string> Needs() const
    {
        static constexpr std::uint64_t entrySize = 20;
        static constexpr int most = 1000; // a damaged table may have no end
        const std::uint64_t directory = mark_ + 24 + (Bits() == 32 ? 96U : 112U) + 8;
        std::uint64_t entry = FileOffset(image_.Whole(directory));
        std::vector<std::string> needs;
        for (int i = 0; i < most; ++i, entry += entrySize) {
            const std::string name = image_.Text(FileOffset(image_.Whole(entry + 12)));
            if (name.empty())
                break;
            needs.push_back(name);
        }
        return needs;
    }

  private:
    /// Where in the file an address of the loaded image lies; beyond its end when no section holds it.
    std::uint64_t FileOffset(std::uint32_t address) const
    {
        static constexpr std::uint64_t nowhere = ~std::uint32_t{0};
        const std::uint64_t first = mark_ + 24 + image_.Half(mark_ + 20);
        const std::uint32_t sections = image_.Half(mark_ + 6);
        for (std::uint32_t i = 0; i < sections; ++i) {
            const std::uint64_t section = first + 40ULL * i;
            const std::uint32_t start = image_.Whole(section + 12);
            const std::uint32_t size = image_.Whole(section + 16);
            if (address >= start && address - start < size)
                return std::uint64_t{image_.Whole(section + 20)} + (address - start);
        }
        return nowhere;
    }

    const Image &image_;
    std::uint64_t mark_;
};

} // namespace

LibraryImage ReadLibraryImage(const std::string &path)
{
    std::ifstream file(SystemPath(path), std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf(); // unlike the iterators it does not throw when the path is a folder
    const Image image(bytes.str());
    if (image.Whole(0) == ElfMark)
        return {LibraryImage::System::Linux, image.Number(4, 1) == 1 ? 32 : 64, {}};
    const std::uint64_t mark = image.Whole(0x3C);
    if (image.Half(0) != WindowsMark || image.Whole(mark) != HeadersMark)
        return {};
    const WindowsHeaders headers(image, mark);
    if (headers.Bits() == 0)
        return {};
    return {LibraryImage::System::Windows, headers.Bits(), headers.Needs()};
}

LibraryImage ThisProgram()
{
#if defined(_WIN32)
    constexpr auto system = LibraryImage::System::Windows;
#else
    constexpr auto system = LibraryImage::System::Linux;
#endif
    return {system, int(8 * sizeof(void *)), {}};
}

} // namespace kelvo
