#include "ui/help/helppanel.h"

#include "ui/controls/named.h"
#include "ui/help/messages.h"

#include <QLayout>
#include <QPushButton>
#include <QShortcut>

namespace kelvo {

HelpPanel::HelpPanel() : GuideView("txtFind")
{
    Named(Search(), "frmFind");
    auto *cmdCloseFind = Named(new QPushButton(messages::CloseSearchCaption), "cmdCloseFind");
    cmdCloseFind->setToolTip(messages::CloseSearchHint);
    cmdCloseFind->setAutoDefault(false);
    connect(cmdCloseFind, &QPushButton::clicked, this, &HelpPanel::CloseSearch);
    Search()->layout()->addWidget(cmdCloseFind);
    Search()->hide();

    auto *escape = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    escape->setContext(Qt::WidgetWithChildrenShortcut); // the fader beside the tabs has its own Escape
    connect(escape, &QShortcut::activated, this, &HelpPanel::CloseSearch);
}

void HelpPanel::OpenSearch()
{
    if (!isEnabled())
        return;
    Search()->show();
    Search()->Begin();
}

void HelpPanel::CloseSearch()
{
    if (Search()->isAncestorOf(focusWidget()))
        Page()->setFocus();
    Search()->hide();
    Search()->Clear();
}

} // namespace kelvo
