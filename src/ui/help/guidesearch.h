#pragma once

#include "ui/help/helppage.h"

class QLabel;
class QLineEdit;

namespace kelvo {

/// The bar that finds a text in a page: what is looked for, how often it stands there, and the way from one
/// place to the next. Every place is marked.
class GuideSearch : public QWidget {
    Q_OBJECT

  public:
    /// `field` is the name of the box that is typed into.
    GuideSearch(HelpPage *page, const char *field);

    /// The keyboard goes to the box, what stands in it is selected.
    void Begin();
    void Clear();
    /// To the next place, or with -1 to the one before; round at both ends.
    void Step(int direction);

  protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

  private:
    void FindAll();
    void ShowFound();

    HelpPage *page_;
    QLineEdit *field_;
    QLabel *lblFound_;
    QList<QTextCursor> found_;
    qsizetype shown_ = -1; ///< index in `found_`
};

} // namespace kelvo
