// A device library for tests: it keeps what it is sent and answers reads from it.
//
// KELVO_FAKE_CALLS names a file to which each call is appended, one line each: "SetPink 2 -1", blocks as
// hexadecimal digits. KELVO_FAKE_FAILURES names a file with lines such as "SetVol 5": while it says so,
// that operation does nothing and answers that status.
//
// It knows nothing of the console's sources, as the library that it stands for.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <initializer_list>
#include <string>

#if defined(FAKE_EXPORTS_BY_LIST)
#define FAKE(name) extern "C" std::int16_t __stdcall name
#elif defined(_WIN32)
#define FAKE(name) extern "C" __declspec(dllexport) std::int16_t __stdcall name
#else
#define FAKE(name) extern "C" __attribute__((visibility("default"))) std::int16_t name
#endif

#if defined(FAKE_NEEDS_ANOTHER)
extern "C" int AnotherLibrary();
#endif

namespace {

constexpr int AudioSize = 224;
constexpr int SystemSize = 128;
constexpr std::int16_t NotLocked = 768;

enum class Stream { None, Gain, SlitLoss, Azimuth };

struct Unit {
    std::uint8_t audio[AudioSize];
    std::uint8_t system[SystemSize];
    std::int16_t level = 70;
    std::int16_t mute = 0;
    std::int16_t format = 2;
    std::int16_t side = 0;
    Stream stream = Stream::None;

    Unit()
    {
        std::fill(audio, audio + AudioSize, std::uint8_t(12)); // every slider in its middle
        std::fill(system, system + SystemSize, std::uint8_t(1));
        audio[193] = 3;
        system[4] = 0;
    }
};

Unit unit;

std::string Environment(const char *name)
{
    const char *value = std::getenv(name);
    return value ? value : "";
}

std::int16_t ToldStatus(const std::string &operation)
{
    std::ifstream failures(Environment("KELVO_FAKE_FAILURES"));
    std::string failing;
    for (int status = 0; failures >> failing >> status;)
        if (failing == operation)
            return std::int16_t(status);
    return 0;
}

/// `std::to_string` would bring in a symbol that keeps the library loaded to the end of the program.
std::string Decimal(int number)
{
    char text[16];
    std::snprintf(text, sizeof text, "%d", number);
    return text;
}

std::string Digits(const std::uint8_t *block, int size)
{
    std::string text;
    for (int i = 0; i < size; ++i) {
        text += "0123456789abcdef"[block[i] / 16];
        text += "0123456789abcdef"[block[i] % 16];
    }
    return text;
}

/// Records the call and, unless it is told to fail, does the work.
template <typename Work>
std::int16_t Do(const std::string &operation, const std::string &sent, Work work)
{
    const std::string file = Environment("KELVO_FAKE_CALLS");
    if (!file.empty())
        std::ofstream(file, std::ios::app | std::ios::binary)
            << operation << (sent.empty() ? "" : " ") << sent << '\n';
    const std::int16_t status = ToldStatus(operation);
    return status != 0 ? status : work();
}

std::int16_t Do(const std::string &operation, std::initializer_list<std::int16_t> words)
{
    std::string sent;
    for (std::int16_t word : words)
        sent += (sent.empty() ? "" : " ") + Decimal(word);
    return Do(operation, sent, [] { return std::int16_t(0); });
}

std::int16_t Store(const std::string &operation, std::int16_t &place, std::int16_t word)
{
    return Do(operation, Decimal(word), [&] {
        place = word;
        return std::int16_t(0);
    });
}

std::int16_t Tell(const std::string &operation, std::int16_t *result, std::int16_t word)
{
    return Do(operation, "", [&] {
        *result = word;
        return std::int16_t(0);
    });
}

std::int16_t Begin(const std::string &operation, Stream stream)
{
    return Do(operation, "", [&] {
        unit.stream = stream;
        return std::int16_t(0);
    });
}

/// Fills a reading with rising bytes when its stream runs.
std::int16_t Read(const std::string &operation, Stream stream, std::uint8_t *bytes, int size, int first)
{
    return Do(operation, "", [&] {
        if (unit.stream != stream)
            return NotLocked;
        for (int i = 0; i < size; ++i)
            bytes[i] = std::uint8_t(first + i);
        return std::int16_t(0);
    });
}

std::int16_t Copy(const std::string &operation, const std::string &sent, const std::uint8_t *from,
                  std::uint8_t *to, int size)
{
    return Do(operation, sent, [&] {
        std::copy(from, from + size, to);
        return std::int16_t(0);
    });
}

} // namespace

FAKE(InitDLL)(std::int16_t port)
{
#if defined(FAKE_NEEDS_ANOTHER)
    return Do("InitDLL", {port, std::int16_t(AnotherLibrary())});
#else
    return Do("InitDLL", {port});
#endif
}

FAKE(DLLShutdown)()
{
    return Do("DLLShutdown", {});
}

FAKE(SetDLLBaud)(std::int16_t index)
{
    return Do("SetDLLBaud", {index});
}

FAKE(DLLCreateIni)()
{
    return Do("DLLCreateIni", {});
}

FAKE(ClearError)()
{
    return Do("ClearError", {});
}

FAKE(GetAudio)(std::uint8_t *block)
{
    return Copy("GetAudio", "", unit.audio, block, AudioSize);
}

FAKE(GetSystem)(std::uint8_t *block)
{
    return Copy("GetSystem", "", unit.system, block, SystemSize);
}

FAKE(SetAudio)(std::uint8_t *block)
{
    return Copy("SetAudio", Digits(block, AudioSize), block, unit.audio, AudioSize);
}

FAKE(SetSystem)(std::uint8_t *block)
{
    return Copy("SetSystem", Digits(block, SystemSize), block, unit.system, SystemSize);
}

FAKE(GetUnitVersion)(std::int16_t *version)
{
    return Do("GetUnitVersion", "", [&] {
        constexpr std::int16_t accepted[] = {1, 6, 78, 1, 3, 1, 9};
        std::copy(std::begin(accepted), std::end(accepted), version);
        return std::int16_t(0);
    });
}

FAKE(SetVol)(std::int16_t level)
{
    return Store("SetVol", unit.level, level);
}

FAKE(GetVol)(std::int16_t *level)
{
    return Tell("GetVol", level, unit.level);
}

FAKE(SetMute)(std::int16_t word)
{
    return Store("SetMute", unit.mute, word);
}

FAKE(GetMute)(std::int16_t *word)
{
    return Tell("GetMute", word, unit.mute);
}

FAKE(SelectFormat)(std::int16_t format)
{
    return Store("SelectFormat", unit.format, format);
}

#if !defined(FAKE_LACKS_TWO)
FAKE(GetFormat)(std::int16_t *format)
{
    return Tell("GetFormat", format, unit.format);
}

FAKE(SetRT60)(std::int16_t on)
{
    return Do("SetRT60", {on});
}
#endif

FAKE(SetPink)(std::int16_t channel, std::int16_t on)
{
    return Do("SetPink", {channel, on});
}

FAKE(SetPhase)(std::int16_t channel, std::int16_t inverted)
{
    return Do("SetPhase", {channel, inverted});
}

FAKE(SetProjector)(std::int16_t projector)
{
    return Do("SetProjector", {projector});
}

FAKE(EnableOBE)()
{
    return Do("EnableOBE", {});
}

FAKE(StopStream)()
{
    return Begin("StopStream", Stream::None);
}

FAKE(BeginGainStream)()
{
    return Begin("BeginGainStream", Stream::Gain);
}

FAKE(BeginSlitStream)()
{
    return Begin("BeginSlitStream", Stream::SlitLoss);
}

FAKE(BeginAzimuthStream)()
{
    return Begin("BeginAzimuthStream", Stream::Azimuth);
}

FAKE(GetOptGain)(std::uint8_t *reading)
{
    return Read("GetOptGain", Stream::Gain, reading, 2, 80);
}

#if !defined(FAKE_LACKS_SLITLOSS)
FAKE(GetOptSlitloss)(void *)
{
    return Do("GetOptSlitloss", {});
}
#endif

FAKE(GetSingleSlitloss)(std::uint8_t *sample, std::int16_t *side)
{
    const std::int16_t status = Read("GetSingleSlitloss", Stream::SlitLoss, sample, 11, 64);
    if (status == 0) {
        *side = unit.side;
        unit.side = unit.side == 0 ? 1 : 0;
    }
    return status;
}

FAKE(GetOptAzimuth)(std::uint8_t *frame)
{
    return Read("GetOptAzimuth", Stream::Azimuth, frame, 28, 100);
}
