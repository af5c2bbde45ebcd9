#pragma once

#include <Qt>

namespace kelvo {

/// The focus comes from or goes to another place of the same window. A box that opens or closes, a menu
/// and another window do not count: the control stays the window's place of work.
constexpr bool MovesInsideWindow(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

} // namespace kelvo
