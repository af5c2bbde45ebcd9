#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/toolwindow.h"

class QListWidget;

namespace kelvo {

/// "History ...": the steps of this room with their times, oldest first. A click goes to the state after that
/// step; undone steps are grey.
class FrmHistory : public ToolWindow {
    Q_OBJECT

  public:
    FrmHistory(Editor &editor, EntryWindow &entries, WallClock &clock, QSettings &memory, QWidget *parent);

    /// The list follows what was done, while it is shown.
    void Follow();

  private:
    int FollowSteps();
    void AddRow(const Step &step);
    void lstHistory_Click(int row);

    Editor &editor_;
    EntryWindow &entries_;
    WallClock &clock_;
    QListWidget *lstHistory_;
    int shownDone_ = 0;
    std::vector<std::size_t> shown_; ///< the steps' numbers; row 0 is the state before them
};

} // namespace kelvo
