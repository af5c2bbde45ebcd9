#include "fuzzer.h"

#include "files/configfile.h"
#include "support/samplefile.h"

using namespace kelvo;

namespace {

void Try(std::string_view bytes)
{
    const RoomSettings before;
    RoomSettings room = before;
    if (!ParseConfig(bytes, room)) {
        Must(room == before, "a refused file changes nothing");
        return;
    }
    Must(room.FaderLevel >= 0 && room.FaderLevel <= 99, "a loaded fader can be sent");
    Must(room.CurrentFormat >= 0 && room.CurrentFormat < FormatCount, "a loaded format can be sent");
    RoomSettings again = before;
    Must(ParseConfig(ComposeConfig(room), again), "what was loaded can be saved and loaded");
    Must(again == room, "a saved file brings back what was loaded");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Try(TextOf(data, size));
    Try(Patched(SampleFile, TextOf(data, size)));
    return 0;
}
