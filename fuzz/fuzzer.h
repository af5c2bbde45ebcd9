#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);
namespace kelvo {

/// What must hold for any input; when it does not, the fuzzer keeps the input and ends.
inline void Must(bool holds, const char *sentence)
{
    if (holds)
        return;
    std::fprintf(stderr, "Does not hold: %s\n", sentence);
    std::abort();
}

inline std::string_view TextOf(const std::uint8_t *data, std::size_t size)
{
    return {reinterpret_cast<const char *>(data), size};
}

/// A good file with some of its bytes replaced: chance alone would not find one. The first two bytes of
/// `patch` say where, the third how many bytes give way (an even one: as many as come), the others come.
inline std::string Patched(std::string good, std::string_view patch)
{
    if (patch.size() < 3)
        return good;
    const auto byte = [&](std::size_t index) {
        return std::size_t(static_cast<unsigned char>(patch[index]));
    };
    const std::size_t at = (byte(0) << 8 | byte(1)) % good.size();
    const std::string_view coming = patch.substr(3);
    const std::size_t going = byte(2) % 2 == 0 ? coming.size() : byte(2) / 2;
    return good.replace(at, going, coming);
}

} // namespace kelvo
