#pragma once

#include "model/levels.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"

#include <functional>
#include <span>

namespace kelvo {

/// The object names of a pair; an index other than -1 makes them members of control arrays.
struct LevelNames {
    const char *field;
    const char *slider;
    int index = -1;
};

/// One numeric field and its vertical slider. The slider's position is the home of the value.
/// The owner places both widgets; the pair makes and joins them.
class LevelPair : public QObject {
    Q_OBJECT

  public:
    /// What a change does. `store` writes the position to the model; `send` follows it when the unit is
    /// to be told. Neither is called while the program shows a value.
    struct Actions {
        std::function<void(int position)> store;
        std::function<void()> send;
    };

    LevelPair(const LevelRule &rule, EntryWindow &entries, const LevelNames &names, Actions actions,
              QObject *parent);

    LevelField *Field() const { return field_; }
    LevelSlider *Slider() const { return slider_; }
    int Position() const { return slider_->value(); }

    /// What both widgets are to a screen reader: "Left Channel, 1 kHz, dB".
    void SetAccessibleName(const QString &name);
    /// Shows a position quietly: nothing is stored or sent. A field being typed in keeps its text.
    /// Positions outside the range show the nearest end.
    void ShowPosition(int position);

  private:
    void TakeSteps(int steps);
    void ApplyChange();
    void ShowText();

    const LevelRule rule_;
    EntryWindow &entries_;
    Actions actions_;
    LevelField *field_;
    LevelSlider *slider_;
    int takenAt_ = 0;
};

/// Left and Right lead along the pairs' sliders and round from the last to the first.
void JoinNeighbours(std::span<LevelPair *const> pairs);

} // namespace kelvo
