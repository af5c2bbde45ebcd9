#include "fuzzer.h"

#include "files/configfile.h"
#include "support/samplefile.h"
#include "support/settingstext.h"

using namespace kelvo;

namespace {

void Try(std::string_view bytes)
{
    const Settings before;
    Settings settings = before;
    if (!ParseConfig(bytes, settings)) {
        Must(Everything(settings) == Everything(before), "a refused file changes nothing");
        return;
    }
    Must(settings.FaderLevel >= 0 && settings.FaderLevel <= HighestFader, "a loaded fader can be sent");
    Must(settings.CurrentFormat >= 0 && settings.CurrentFormat < FormatCount, "a loaded format can be sent");
    Settings again = before;
    Must(ParseConfig(ComposeConfig(settings), again), "what was loaded can be saved and loaded");
    Must(Everything(again) == Everything(settings), "a saved file brings back what was loaded");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Try(TextOf(data, size));
    Try(Patched(SampleFile, TextOf(data, size)));
    return 0;
}
