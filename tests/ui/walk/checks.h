#pragma once

#include "ui/walk/walker.h"

#include <span>

namespace kelvo {

/// Something that must hold at rest. "" = it does.
struct Check {
    const char *name;
    QString (*wrong)(const Walker &walker);
};

std::span<const Check> LevelChecks(); ///< faders, trims, equaliser, OBE
std::span<const Check> PanelChecks(); ///< options, theatre, modes, mute, menus
std::span<const Check> UnitChecks();  ///< lamp, timers, streams, test signals, what was sent, files
std::span<const Check> EditChecks();  ///< undo, history, slots, journals

/// How many settings that a control shows differ.
int DifferentSettings(const AudioBlock &one, const AudioBlock &other);
int DifferentSettings(const SystemBlock &one, const SystemBlock &other);

} // namespace kelvo
