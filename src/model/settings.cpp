#include "model/settings.h"

#include <algorithm>

namespace kelvo {

void ResetChannelData(Settings &settings, int channel)
{
    ChannelSlice &slice = settings.Audio.ChannelEq[channel];
    if (KindOf(channel) == ChannelKind::Subwoofer) {
        slice.Band[SubGain] = FlatHalfDecibel;
        slice.Band[SubWidth] = 0;
        slice.Band[SubFreq] = 0;
    } else {
        slice.Band.fill(FlatHalfDecibel);
    }
    slice.BassLevel = FlatShelf;
    slice.TrebleLevel = FlatShelf;
}

void ResetAll(Settings &settings)
{
    for (int channel = 0; channel < ChannelCount; ++channel)
        ResetChannelData(settings, channel);
    settings.Audio.ChannelTrim.fill(FlatHalfDecibel);
    settings.Audio.ObeLevel = FlatHalfDecibel;
    settings.Audio.ObeFreq = 0;
    settings.ObeEnabled = false;
    settings.ObeMode = 1;

    settings.System.F1KeyMode = 0;
    settings.System.DisableMatrix = 0;
    settings.System.NonsyncMode = 0;
    SetReaderDelayIndex(settings.System, 0);
    settings.System.SurroundDelay = 0;
    settings.System.NonsyncTrim = 0;
    settings.System.DefaultFormat = 0;

    settings.MuteState = False;
    // While a stream runs its own format stays; the reset one is what its stop selects.
    (settings.FormatBeforeStream ? *settings.FormatBeforeStream : settings.CurrentFormat) = 0;
    settings.FaderLevel = NominalFader;
}

void TakeObeFromAudio(Settings &settings)
{
    settings.ObeEnabled = settings.Audio.ObeFreq != 0;
    settings.ObeMode = settings.ObeEnabled ? settings.Audio.ObeFreq : Byte(1);
}

} // namespace kelvo
