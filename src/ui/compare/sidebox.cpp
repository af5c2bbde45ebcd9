#include "ui/compare/sidebox.h"

#include "ui/compare/messages.h"
#include "ui/controls/named.h"

#include <algorithm>

namespace kelvo {

SideBox::SideBox(const char *name, const char *accessibleName)
{
    Named(this, name);
    setAccessibleName(accessibleName);
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    connect(this, &QComboBox::activated, this, &SideBox::Activate);
}

void SideBox::Offer(std::vector<NamedSide> sides)
{
    sides_ = std::move(sides);
    if (!chosen_.name.isEmpty() && std::ranges::find(sides_, chosen_.name, &NamedSide::name) == sides_.end())
        sides_.push_back(chosen_);
    clear();
    for (const NamedSide &side : sides_)
        addItem(side.name);
    addItem(messages::FileCaption);
    ShowChosen();
}

void SideBox::Choose(const NamedSide &side)
{
    chosen_ = side;
    ReadAnew();
    ShowChosen();
}

const SideReading &SideBox::Reading()
{
    if (chosen_.kind != NamedSide::Stored)
        ReadAnew();
    return reading_;
}

void SideBox::ReadAnew()
{
    // What stands under a name may be another one by now: a slot is kept again.
    const auto offered = std::ranges::find(sides_, chosen_.name, &NamedSide::name);
    if (offered != sides_.end())
        chosen_ = *offered;
    reading_ = chosen_.read();
}

void SideBox::Activate(int index)
{
    if (std::size_t(index) >= sides_.size()) {
        ShowChosen();
        emit FileWanted();
        return;
    }
    Choose(sides_[std::size_t(index)]);
    emit SideChosen();
}

void SideBox::ShowChosen()
{
    setCurrentIndex(findText(chosen_.name));
}

} // namespace kelvo
