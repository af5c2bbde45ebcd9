#include "ui/equaliser/channelframe.h"

namespace kelvo {

void ChannelFrame::Show(const ChannelSlice &slice)
{
    for (std::size_t i = 0; i < pairs_.size(); ++i)
        pairs_[i]->ShowPosition(slice.Band[i]);
}

} // namespace kelvo
