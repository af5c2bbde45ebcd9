#pragma once

#include "rtf/interpreter.h"

namespace kelvo::rtf {

/// What each known control word does. A word that is not here does nothing, or hides its group when it
/// is optional.
class ControlWords {
  public:
    using Action = void (*)(Interpreter &, const Token &);

    /// The character that a word stands for, or 0.
    static char16_t Character(std::string_view word);
    /// Null for an unknown word.
    static Action Find(std::string_view word);
};

} // namespace kelvo::rtf
