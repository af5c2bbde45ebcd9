#include "ui/controls/entrywindow.h"

#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"

namespace kelvo {

bool EntryWindow::CommitEntry()
{
    if (sliderHeld)
        sliderHeld->LetGo();
    return !editing || !editing->IsPending() || editing->Validate();
}

} // namespace kelvo
