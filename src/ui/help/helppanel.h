#pragma once

#include "ui/help/guideview.h"

namespace kelvo {

/// The tab "&Help": the guide with a search that comes when it is wanted and goes again.
class HelpPanel : public GuideView {
    Q_OBJECT

  public:
    HelpPanel();

    /// Opens the bar that finds a text in the guide; while the panel is disabled nothing can be typed.
    void OpenSearch();

  private:
    void CloseSearch();
};

} // namespace kelvo
