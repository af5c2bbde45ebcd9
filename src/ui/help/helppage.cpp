#include "ui/help/helppage.h"

#include "ui/controls/named.h"
#include "ui/help/messages.h"

namespace kelvo {

namespace {

constexpr int PageMargin = 12;
constexpr int LongestLine = 900; ///< pixels; longer ones are hard to read

/// Dark on light whatever the theme, for so the guide's colours were chosen; a disabled page is greyer
/// and can be read all the same.
QPalette PaperPalette(QPalette palette)
{
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Text, Qt::black);
    palette.setColor(QPalette::Disabled, QPalette::Base, QColor(238, 238, 238));
    palette.setColor(QPalette::Disabled, QPalette::Text, Qt::black);
    return palette;
}

} // namespace

HelpPage::HelpPage()
{
    Named(this, "RTFc");
    setOpenLinks(false);
    setOpenExternalLinks(false);
    setUndoRedoEnabled(false);
    setPalette(PaperPalette(palette()));
    document()->setDocumentMargin(PageMargin);
    setAccessibleName(messages::GuideName);
}

QVariant HelpPage::loadResource(int, const QUrl &)
{
    return {};
}

void HelpPage::resizeEvent(QResizeEvent *event)
{
    const bool wide = viewport()->width() > LongestLine;
    setLineWrapMode(wide ? FixedPixelWidth : WidgetWidth);
    setLineWrapColumnOrWidth(wide ? LongestLine : 0);
    QTextBrowser::resizeEvent(event);
}

} // namespace kelvo
