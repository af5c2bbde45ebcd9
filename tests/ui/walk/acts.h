#pragma once

#include "ui/walk/walker.h"

#include <span>

namespace kelvo {

/// Something a user does, or something that happens to the unit. The higher its weight, the oftener.
struct Act {
    const char *name;
    int weight;
    void (*run)(Walker &walker);
};

std::span<const Act> LevelActs();  ///< sliders and fields
std::span<const Act> PanelActs();  ///< buttons, options, lists, tabs, keys
std::span<const Act> UnitActs();   ///< the unit, its cable, timers, streams
std::span<const Act> MenuActs();   ///< menus and files
std::span<const Act> DialogActs(); ///< the dialogs that stand beside the window, the guide
std::span<const Act> EditActs();   ///< undo, history, slots, what was left behind
std::span<const Act> ToolActs();   ///< what stands in the menu Tools, and what is dropped

} // namespace kelvo
