#pragma once

namespace kelvo {

/// The same style and type size everywhere; called once, after the application object is made.
void ApplyLook();

} // namespace kelvo
