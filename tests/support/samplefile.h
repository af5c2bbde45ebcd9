#pragma once

#include "model/roomsettings.h"

#include <string>

namespace kelvo {

/// Settings in which every byte that a file stores has a value of its own kind, and the ".zcf" file that
/// belongs to them, written down line by line.
inline RoomSettings SampleSettings()
{
    RoomSettings room;
    room.CurrentFormat = 4;
    room.FaderLevel = 65;
    room.MuteState = True;
    room.System.F1KeyMode = 2;
    room.System.DisableMatrix = 1;
    room.System.NonsyncMode = 3;
    room.System.ReaderDelay = {1, 44};
    room.System.SurroundDelay = 7;
    room.System.stored8 = 81;
    room.System.stored10 = {101, 111, 121, 131};
    room.System.NonsyncTrim = 20;
    room.System.stored25 = {250, 251, 252, 253, 255};
    room.System.DefaultFormat = 4;
    room.Audio.ObeLevel = 24;
    room.Audio.ObeFreq = 6;
    room.Audio.ChannelTrim = {0, 1, 2, 3, 4, 24};
    for (int channel = 0; channel < ChannelCount; ++channel) {
        ChannelSlice &slice = room.Audio.ChannelEq[std::size_t(channel)];
        slice.BassLevel = Byte(channel);
        slice.TrebleLevel = Byte(20 - channel);
        for (std::size_t band = 0; band < BandCount; ++band)
            slice.Band[band] = Byte(100 + band); // where no file reaches
        for (int band = 0; band < EqualiserBytes(KindOf(channel)); ++band)
            slice.Band[std::size_t(band)] = Byte((band + channel) % 25);
    }
    room.TheaterInfo = {"A7",      "Odeon \"3\"", "1 High Street", "Paris",     "", "75001", "555-0100",
                        "S/N, 42", "3",           "May 1",         "Müller, ok"};
    return room;
}

inline const std::string SampleFile =
    "\"Kelvo CP Settings File: V1.0\"\r\n"
    "4,65,-1\r\n"
    "2,1,3\r\n"
    "1,44,7\r\n"
    "81,101,111\r\n"
    "121,131,20\r\n"
    "250,251,252\r\n"
    "253,255,4\r\n"
    "24,6\r\n"
    "0,1,2,3,4,24\r\n"
    "0,20\r\n"
    "1,19\r\n"
    "2,18\r\n"
    "3,17\r\n"
    "4,16\r\n"
    "5,15\r\n"
    "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,0,1\r\n"
    "1,2,3,4,5,6,7,8,9\r\n"
    "2,3,4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,0,1,2,3\r\n"
    "3,4,5,6,7,8,9,10,11\r\n"
    "4,5,6,7,8,9,10,11,12,13,14,15,16,17,18,19,20,21,22,23,24,0,1,2,3,4,5\r\n"
    "5,6,7\r\n"
    "\"A7\"\r\n"
    "\"Odeon \"3\"\"\r\n"
    "\"1 High Street\"\r\n"
    "\"Paris\"\r\n"
    "\"\"\r\n"
    "\"75001\"\r\n"
    "\"555-0100\"\r\n"
    "\"S/N, 42\"\r\n"
    "\"3\"\r\n"
    "\"May 1\"\r\n"
    "\"M\xC3\xBCller, ok\"\r\n";

} // namespace kelvo
