#include "fuzzer.h"

#include "files/configfile.h"

#include <algorithm>

using namespace kelvo;

namespace {

constexpr std::size_t OldLength = 352;

void Try(std::string_view bytes)
{
    const RoomSettings before;
    RoomSettings room = before;
    const bool loaded = ParseOldConfig(bytes, room);
    Must(loaded == (bytes.size() == OldLength), "an old file has 352 bytes");
    if (!loaded) {
        Must(room == before, "a refused file changes nothing");
        return;
    }
    const auto same = [](std::string_view part, auto record) {
        return std::ranges::equal(part, record, {}, [](char c) { return Byte(c); });
    };
    Must(same(bytes.substr(0, 128), BytesOf(room.System)), "the first 128 bytes are the system block");
    Must(same(bytes.substr(128), BytesOf(room.Audio)), "the other 224 bytes are the audio block");

    RoomSettings again = room;
    Must(ParseConfig(ComposeConfig(room), again), "what was loaded can be saved and loaded");
    Must(again == room, "a saved file brings back what was loaded");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Try(TextOf(data, size));
    Try(Patched(std::string(OldLength, '\f'), TextOf(data, size)));
    return 0;
}
