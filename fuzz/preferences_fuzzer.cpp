#include "fuzzer.h"

#include "files/preferencesfile.h"

using namespace kelvo;

namespace {

void Try(std::string_view bytes)
{
    const Preferences options = ParsePreferences(bytes);
    Must(options.ComPort >= 1 && options.ComPort <= 4, "the port is one of four");
    Must(ParsePreferences(ComposePreferences(options)) == options, "what was read can be written and read");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    Try(TextOf(data, size));
    Try(Patched("3\r\nTrue\r\n\"False\"\r\n True \r\n1\r\n600\r\n", TextOf(data, size)));
    return 0;
}
