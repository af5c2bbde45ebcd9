#pragma once

#include "unit/operations.h"

#include <chrono>

namespace kelvo {

/// What an operation answers: 0, or error bits (their texts are in unit/messages.h).
using Status = Word;

inline constexpr Status Success = 0;
/// The optical data stream is not locked; the link itself is well.
inline constexpr Status StreamNotLocked = 768;
/// What every operation answers while the library could not be loaded: "Could Not Initialise".
inline constexpr Status CouldNotInitialise = 64;

/// The arguments of one operation, of the sizes that its row tells: others do not compile.
template <Operation operation>
struct Arguments {
    static constexpr Shape shape = RowOf(operation).shape;

    std::array<Word, shape.wordsIn> wordsIn{};
    std::span<const Byte, shape.bytesIn> bytesIn{};
    std::span<Byte, shape.bytesOut> bytesOut{};
    std::span<Word, shape.wordsOut> wordsOut{};
};

/// One call on its way from a caller to the library, whichever its operation. Its arguments lie where the
/// caller keeps them, so that the library fills the caller's own record; their sizes are those of the
/// operation's row.
struct Call {
    Operation operation;
    std::span<const Word> wordsIn;
    std::span<const Byte> bytesIn;
    std::span<Byte> bytesOut;
    std::span<Word> wordsOut;
};

/// Sees the calls of the library that it is attached to. It makes none itself.
class CallObserver {
  public:
    virtual ~CallObserver() = default;

    virtual void Before(const Call &call) = 0;
    /// `call` has what the library left in the caller's storage, whatever it answered.
    virtual void After(const Call &call, Status status, std::chrono::microseconds taken) = 0;
};

} // namespace kelvo
