#include "ui/optical/optionspanel.h"

namespace kelvo {

OptionsPanel::OptionsPanel(Settings &settings, UnitLink &link, EntryWindow &,
                           std::function<void(const QString &)>)
    : settings_(settings),
      link_(link)
{
}
void OptionsPanel::InitialiseLookupArrays()
{
}
void OptionsPanel::Show()
{
}
QString OptionsPanel::F1CaptionOfUnit() const
{
    return {};
}

} // namespace kelvo
