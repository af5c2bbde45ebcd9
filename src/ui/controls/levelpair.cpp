#include "ui/controls/levelpair.h"

namespace kelvo {

int LevelPair::Position() const
{
    return slider_->value();
}
void LevelPair::ShowPosition(int)
{
}
bool LevelPair::Validate()
{
    return true;
}

} // namespace kelvo
