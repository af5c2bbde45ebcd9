#pragma once

#include "edit/editor.h"
#include "ui/controls/panel.h"
#include "ui/theatre/theaterform.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "Theater &Information": the eleven texts, read only here, and the button that edits them.
class TheaterPanel : public QWidget, public Panel {
    Q_OBJECT

  public:
    /// `edit` opens the dialog "Set Theater Information".
    TheaterPanel(const Editor &editor, std::function<void()> edit);

    /// The boxes show `TheaterInfo`.
    void ApplyTheaterTabFields();
    void Show(const Changed &changed) override;
    /// The clock text shown last.
    const QString &ClockText() const { return clockText_; }

  private:
    /// The unit's clock takes the place of the date in its box; the text typed there stays in the room.
    void ShowDate();

    const Editor &editor_;
    TheaterForm form_;
    QString clockText_;
};

} // namespace kelvo
