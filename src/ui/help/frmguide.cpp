#include "ui/help/frmguide.h"

#include "ui/help/messages.h"

#include <QKeyEvent>
#include <QShortcut>
#include <QVBoxLayout>

namespace kelvo {

namespace {

constexpr QSize UsualSize(760, 620);

} // namespace

FrmGuide::FrmGuide(const QString &helpFile, QSettings &memory, QWidget *parent)
    : ToolWindow("frmGuide", messages::GuideName, UsualSize, memory, parent),
      view_(new GuideView("txtSearch"))
{
    auto *whole = new QVBoxLayout(this);
    whole->addWidget(view_);
    view_->LoadHelp(helpFile);
    view_->Page()->setFocus();
    connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F), this), &QShortcut::activated, view_->Search(),
            &GuideSearch::Begin);
}

void FrmGuide::keyPressEvent(QKeyEvent *event)
{
    // What the search's box has no use for turns the page, so that a place found can be read on from.
    const bool plain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (!plain || !view_->ScrollByKey(event->key()))
        ToolWindow::keyPressEvent(event); // Escape closes the window
}

} // namespace kelvo
