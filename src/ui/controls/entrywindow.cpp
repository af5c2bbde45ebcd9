#include "ui/controls/entrywindow.h"

#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"

namespace kelvo {

bool EntryWindow::CommitEntry()
{
    if (sliderHeld)
        sliderHeld->LetGo();
    const bool taken = !editing || !editing->IsPending() || editing->Validate();
    return taken && (!dialog || dialog->CommitEntry());
}

bool EntryWindow::HoldsSlider() const
{
    return sliderHeld || (dialog && dialog->HoldsSlider());
}

} // namespace kelvo
