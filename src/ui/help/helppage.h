#pragma once

#include <QTextBrowser>

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

} // namespace kelvo
