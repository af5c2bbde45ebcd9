#pragma once

#include "ui/help/rtfdocument.h"

#include <QTextBrowser>
#include <QWidget>

class QLabel;
class QLineEdit;
class QListWidget;

namespace kelvo {

/// The page of the guide. It shows what it was given and fetches nothing, whatever a file names.
class HelpPage : public QTextBrowser {
    Q_OBJECT

  public:
    HelpPage();

    QVariant loadResource(int type, const QUrl &name) override;

  protected:
    void resizeEvent(QResizeEvent *event) override;
};

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
    /// Opens the bar that finds a text in the guide; while the panel is disabled nothing can be typed.
    void OpenSearch();

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    QWidget *BuildSearchBar();
    void GoToHeading(int row);
    void CloseSearch();
    void FindAll();
    void Step(int direction);
    void ShowFound();

    QListWidget *lstContents_;
    HelpPage *RTFc_;
    QLineEdit *txtFind_;
    QLabel *lblFound_;
    QWidget *searchBar_;
    QList<Heading> headings_;
    QList<QTextCursor> found_;
    qsizetype shown_ = -1; ///< index in `found_`
};

} // namespace kelvo
