#include "model/records.h"

#include <cstddef>
#include <type_traits>

namespace kelvo {

// The structs are the wire images.
static_assert(sizeof(ChannelSlice) == 30 && offsetof(ChannelSlice, Band) == 0);
static_assert(offsetof(ChannelSlice, BassLevel) == 27 && offsetof(ChannelSlice, TrebleLevel) == 28);
static_assert(offsetof(ChannelSlice, unused29) == 29);
static_assert(sizeof(AudioBlock) == 224 && offsetof(AudioBlock, UnitClock) == 0);
static_assert(offsetof(AudioBlock, reserved4) == 4 && offsetof(AudioBlock, ChannelTrim) == 6);
static_assert(offsetof(AudioBlock, ChannelEq) == 12 && offsetof(AudioBlock, ObeLevel) == 192);
static_assert(offsetof(AudioBlock, ObeFreq) == 193 && offsetof(AudioBlock, reserved194) == 194);
static_assert(std::is_trivially_copyable_v<AudioBlock>);
static_assert(sizeof(SystemBlock) == 128 && offsetof(SystemBlock, F1KeyMode) == 0);
static_assert(offsetof(SystemBlock, DisableMatrix) == 1 && offsetof(SystemBlock, reserved2) == 2);
static_assert(offsetof(SystemBlock, NonsyncMode) == 3 && offsetof(SystemBlock, ReaderDelay) == 4);
static_assert(offsetof(SystemBlock, SurroundDelay) == 6 && offsetof(SystemBlock, reserved7) == 7);
static_assert(offsetof(SystemBlock, stored8) == 8 && offsetof(SystemBlock, reserved9) == 9);
static_assert(offsetof(SystemBlock, stored10) == 10 && offsetof(SystemBlock, reserved14) == 14);
static_assert(offsetof(SystemBlock, NonsyncTrim) == 24 && offsetof(SystemBlock, stored25) == 25);
static_assert(offsetof(SystemBlock, DefaultFormat) == 30 && offsetof(SystemBlock, reserved31) == 31);
static_assert(std::is_trivially_copyable_v<SystemBlock>);

} // namespace kelvo
