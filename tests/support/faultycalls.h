#pragma once

#include "files/filecalls.h"

#include <cstdlib>
#include <string>
#include <vector>

namespace kelvo {

enum class Fault {
    None,
    Fails,        ///< the call does nothing and answers an error
    Interrupted,  ///< a signal came first: nothing is done, the call asks to be made again
    Short,        ///< a write or read takes half of what it was given
    NothingTaken, ///< a write takes nothing and tells of no error
    LastBefore,   ///< the process ends before the call
    LastMidway,   ///< the process ends when half of a write is done
    LastAfter,    ///< the process ends right after the call
};

/// The system's calls with one fault: call number `at` (from 1) goes wrong.
class FaultyCalls : public FileCalls {
  public:
    explicit FaultyCalls(Fault fault = Fault::None, std::size_t at = 0) : fault_(fault), at_(at) {}

    /// The calls in the order in which they came.
    mutable std::vector<std::string> made;

    std::error_code Follow(std::string &path) const override
    {
        return Around("Follow", [&] { return FileCalls::Follow(path); });
    }
    std::error_code Examine(const std::string &path, std::optional<FileMode> &mode) const override
    {
        return Around("Examine", [&] { return FileCalls::Examine(path, mode); });
    }
    std::error_code OpenFolder(const std::string &path, FileHandle &folder) const override
    {
        return Around("OpenFolder", [&] { return FileCalls::OpenFolder(path, folder); });
    }
    std::error_code Create(const std::string &path, FileHandle &file) const override
    {
        return Around("Create", [&] { return FileCalls::Create(path, file); });
    }
    std::error_code Lock(FileHandle file) const override
    {
        return Around("Lock", [&] { return FileCalls::Lock(file); });
    }
    std::error_code SetMode(FileHandle file, FileMode mode) const override
    {
        return Around("SetMode", [&] { return FileCalls::SetMode(file, mode); });
    }
    std::error_code Write(FileHandle file, std::string_view bytes, std::size_t &written) const override
    {
        const std::string_view half = bytes.substr(0, (bytes.size() + 1) / 2);
        return Around(
            "Write", [&] { return FileCalls::Write(file, bytes, written); },
            [&] {
                written = 0;
                return fault_ == Fault::NothingTaken ? std::error_code()
                                                     : FileCalls::Write(file, half, written);
            });
    }
    std::error_code Flush(FileHandle file) const override
    {
        return Around("Flush", [&] { return FileCalls::Flush(file); });
    }
    std::error_code Close(FileHandle file) const override
    {
        // A close that answers an error has let go of the file all the same.
        return Around(
            "Close", [&] { return FileCalls::Close(file); }, [&] { return FileCalls::Close(file); });
    }
    std::error_code Rename(const std::string &from, const std::string &to) const override
    {
        return Around("Rename", [&] { return FileCalls::Rename(from, to); });
    }
    std::error_code Remove(const std::string &path) const override
    {
        return Around("Remove", [&] { return FileCalls::Remove(path); });
    }
    std::error_code OpenToRead(const std::string &path, FileHandle &file, std::uint64_t &size) const override
    {
        return Around("OpenToRead", [&] { return FileCalls::OpenToRead(path, file, size); });
    }
    std::error_code Read(FileHandle file, std::span<char> room, std::size_t &count) const override
    {
        const std::span<char> half = room.first((room.size() + 1) / 2);
        return Around(
            "Read", [&] { return FileCalls::Read(file, room, count); },
            [&] { return FileCalls::Read(file, half, count); });
    }

  private:
    /// The call itself, or what the fault makes of it. `part` is as much as is done of a call that goes
    /// wrong in the middle.
    template <typename Call, typename Part>
    std::error_code Around(const char *name, Call call, Part part) const
    {
        made.emplace_back(name);
        if (made.size() != at_)
            return call();
        switch (fault_) {
        case Fault::None:
            break;
        case Fault::Fails:
        case Fault::Interrupted:
            if (made.back() == "Close")
                static_cast<void>(part());
            return std::make_error_code(fault_ == Fault::Fails ? std::errc::io_error
                                                               : std::errc::interrupted);
        case Fault::Short:
        case Fault::NothingTaken:
            return part();
        case Fault::LastBefore:
            std::_Exit(EXIT_SUCCESS);
        case Fault::LastMidway:
            static_cast<void>(part());
            std::_Exit(EXIT_SUCCESS);
        case Fault::LastAfter:
            static_cast<void>(call());
            std::_Exit(EXIT_SUCCESS);
        }
        return call();
    }

    template <typename Call>
    std::error_code Around(const char *name, Call call) const
    {
        return Around(name, call, [] { return std::error_code(); });
    }

    Fault fault_;
    std::size_t at_;
};

} // namespace kelvo
