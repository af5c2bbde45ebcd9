#pragma once

#include "unit/call.h"

#include <vector>

namespace kelvo {

/// A call of any operation with storage of its own, of the sizes that the operation's row tells.
class AnyCall {
  public:
    explicit AnyCall(Operation operation)
        : operation_(operation),
          wordsIn(RowOf(operation).shape.wordsIn),
          bytesIn(RowOf(operation).shape.bytesIn),
          bytesOut(RowOf(operation).shape.bytesOut),
          wordsOut(RowOf(operation).shape.wordsOut)
    {
    }

    operator Call() { return {operation_, wordsIn, bytesIn, bytesOut, wordsOut}; }

  private:
    Operation operation_;

  public:
    std::vector<Word> wordsIn;
    std::vector<Byte> bytesIn;
    std::vector<Byte> bytesOut;
    std::vector<Word> wordsOut;
};

} // namespace kelvo
