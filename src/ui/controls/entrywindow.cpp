#include "ui/controls/entrywindow.h"

namespace kelvo {

bool EntryWindow::CommitEntry()
{
    return true;
}

} // namespace kelvo
