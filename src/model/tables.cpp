#include "model/tables.h"

namespace kelvo {

std::string ReaderDelayText(int index)
{
    static constexpr std::array<const char *, 4> Quarter{"00", "25", "50", "75"};
    return std::to_string(index / 4) + "." + Quarter[index % 4] + " TC Frames";
}

} // namespace kelvo
