#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace kelvo {

/// The bytes of a library's first header, for a kind of processor that this program is not.
inline std::string ElfOfOtherBits()
{
    std::string header("\x7F"
                       "ELF",
                       4);
    header += sizeof(void *) == 8 ? '\1' : '\2'; // class: 32 or 64 bits
    header += '\1';                              // low byte first
    header += '\1';                              // version
    header.resize(16);
    header += std::string("\3\0\3\0\1\0\0\0", 8); // shared object for the i386, version
    header.resize(64);
    return header;
}

inline std::string WindowsImage(std::string_view magic, std::size_t directory, std::string_view machine)
{
    std::string image = "MZ";
    image.resize(0x200);
    const auto put = [&](std::size_t at, std::string_view bytes) { image.replace(at, bytes.size(), bytes); };
    put(0x3C, "\x40");
    put(0x40, std::string_view("PE\0\0", 4));
    put(0x44, machine);
    put(0x46, "\1");                            // one section
    put(0x54, "\xF0");                          // size of the optional header
    put(0x58, magic);                           // at 0x40 + 24
    put(directory, std::string("\x10\x10", 2)); // imports at address 0x1010
    put(0x148 + 12, std::string("\0\x10", 2));  // the section begins at address 0x1000,
    put(0x148 + 16, std::string("\0\1", 2));    // is 0x100 bytes long
    put(0x148 + 20, std::string("\0\x2", 2));   // and lies at 0x200 of the file
    std::string section(0x100, '\0');
    section.replace(0x10 + 12, 2, "\x80\x10"); // first entry's name at address 0x1080
    section.replace(0x24 + 12, 2, "\x90\x10"); // second entry's; the third is empty
    section.replace(0x80, 9, "FIRST.dll");
    section.replace(0x90, 10, "second.dll");
    return image + section;
}

inline std::string Windows32()
{
    return WindowsImage(std::string("\x0B\1", 2), 0x40 + 24 + 96 + 8, "\x4C\x01");
}

inline std::string Windows64()
{
    return WindowsImage(std::string("\x0B\2", 2), 0x40 + 24 + 112 + 8, "\x64\x86");
}

} // namespace kelvo
