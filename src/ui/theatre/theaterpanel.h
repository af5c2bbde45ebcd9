#pragma once

#include "ui/theatre/theaterform.h"

#include <QString>
#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "Theater &Information": the eleven texts, read only here, and the button that edits them.
class TheaterPanel : public QWidget {
    Q_OBJECT

  public:
    /// `edit` opens the dialog "Set Theater Information".
    TheaterPanel(const Settings &settings, std::function<void()> edit);

    /// The boxes show `TheaterInfo`.
    void ApplyTheaterTabFields();
    /// The unit's clock takes the place of the date in its box; the text typed there stays in the settings.
    void ShowDate();
    /// The clock text shown last.
    const QString &ClockText() const { return clockText_; }

  private:
    const Settings &settings_;
    TheaterForm form_;
    QString clockText_;
};

} // namespace kelvo
