#pragma once

#include <QWidget>

class QTextBrowser;

namespace kelvo {

/// The tab "&Help": the guide `RTFc`, its contents and a search.
class HelpPanel : public QWidget {
    Q_OBJECT

  public:
    HelpPanel();

    /// Shows an RTF file; a missing one leaves the page empty.
    void LoadHelp(const QString &path);
    /// Wheel and page keys, so that the guide can be read while the panel is disabled.
    bool ScrollByKey(int key);
    void ScrollByWheel(int angleDelta);
    void OpenSearch();

  private:
    QTextBrowser *RTFc_;
};

} // namespace kelvo
