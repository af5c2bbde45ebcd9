#pragma once

#include "model/settings.h"
#include "ui/controls/entrywindow.h"
#include "unit/unitlink.h"

#include <QWidget>

#include <functional>

namespace kelvo {

/// The tab "Op&tions": every stored option of `SystemBlock`.
class OptionsPanel : public QWidget {
    Q_OBJECT

  public:
    /// `showF1Caption` takes the caption that `cmdMode(0)` is to show after a choice of the user.
    OptionsPanel(Settings &settings, UnitLink &link, EntryWindow &entries,
                 std::function<void(const QString &)> showF1Caption);

    /// Fills the reader delay list.
    void InitialiseLookupArrays();
    /// Every control shows the model, quietly; a byte beyond its list shows no choice.
    void Show();
    /// The caption of `cmdMode(0)` after a connection.
    QString F1CaptionOfUnit() const;

  private:
    Settings &settings_;
    UnitLink &link_;
};

} // namespace kelvo
