#include "unit/unitholds.h"

#include <utility>

namespace kelvo {

namespace {

int DifferentBytes(std::span<const Byte> one, std::span<const Byte> other)
{
    int count = 0;
    for (std::size_t i = 0; i < one.size(); ++i)
        count += one[i] != other[i];
    return count;
}

int DifferentFields(const AudioBlock &one, const AudioBlock &other)
{
    // The unit's clock runs on by itself.
    constexpr std::size_t first = sizeof(AudioBlock::UnitClock);
    return DifferentBytes(BytesOf(one).subspan<first>(), BytesOf(other).subspan<first>());
}

int DifferentFields(const SystemBlock &one, SystemBlock other)
{
    // The two bytes of the reader delay are one setting.
    const bool delayDiffers = one.ReaderDelay != other.ReaderDelay;
    other.ReaderDelay = one.ReaderDelay;
    return delayDiffers + DifferentBytes(BytesOf(one), BytesOf(std::as_const(other)));
}

bool Differs(Word value, std::optional<Word> held)
{
    return held && value != *held;
}

} // namespace

std::optional<int> CountDifferences(const Settings &settings, const UnitHolds &holds)
{
    if (!holds.Audio || !holds.System)
        return std::nullopt;
    const bool muteDiffers = holds.MuteState && (settings.MuteState != False) != (*holds.MuteState != False);
    return DifferentFields(settings.Audio, *holds.Audio) + DifferentFields(settings.System, *holds.System) +
           Differs(settings.FaderLevel, holds.FaderLevel) + muteDiffers +
           Differs(settings.CurrentFormat, holds.CurrentFormat);
}

} // namespace kelvo
