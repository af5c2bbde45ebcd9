#pragma once

#include "ui/help/guidesearch.h"
#include "ui/help/rtfdocument.h"

class QListWidget;

namespace kelvo {

/// The guide for reading: its page `RTFc` with the search above it, and its contents `lstContents`.
class GuideView : public QWidget {
    Q_OBJECT

  public:
    /// `searchField` is the name of the search's box.
    explicit GuideView(const char *searchField);

    /// Shows an RTF file; a missing one leaves the page empty.
    void LoadHelp(const QString &path);
    HelpPage *Page() const { return RTFc_; }
    GuideSearch *Search() const { return search_; }
    /// Wheel and page keys, so that the guide can be read where its page does not get them. False for a key
    /// that does not scroll.
    bool ScrollByKey(int key);
    void ScrollByWheel(int angleDelta);

  private:
    void GoToHeading(int row);

    QListWidget *lstContents_;
    HelpPage *RTFc_;
    GuideSearch *search_;
    QList<Heading> headings_;
};

} // namespace kelvo
