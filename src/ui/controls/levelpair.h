#pragma once

#include "edit/editor.h"
#include "ui/controls/entrywindow.h"
#include "ui/controls/levelfield.h"
#include "ui/controls/levelslider.h"

#include <span>

namespace kelvo {

/// The object names of a pair; an index other than -1 makes them members of control arrays.
struct LevelNames {
    const char *field;
    const char *slider;
    int index = -1;
};

/// One numeric field and its vertical slider, which show a field of the room and ask the editor to change it.
/// The owner places both widgets; the pair makes and joins them.
class LevelPair : public QObject {
    Q_OBJECT

  public:
    /// `rule` says how the slider stands; its levels are those of the field.
    LevelPair(FieldId field, const LevelRule &rule, Editor &editor, EntryWindow &entries,
              const LevelNames &names, QObject *parent);

    LevelField *Field() const { return text_; }
    LevelSlider *Slider() const { return slider_; }

    /// What both widgets are to a screen reader: "Left Channel, 1 kHz, dB".
    void SetAccessibleName(const QString &name);
    /// Another field of the same scale from now on.
    void Bind(FieldId field);
    void Show(const Changed &changed);
    void ShowUnsent(const FieldSet &unsent) { slider_->MarkUnsent(unsent.test(std::size_t(field_))); }

  private:
    int Position() const { return slider_->value(); }
    /// What the room holds, quietly. A text being typed stays; beyond the range the slider shows the nearest
    /// end.
    void ShowStored();
    void ShowText();
    void TakeSteps(int steps);
    void ApplyChange();

    FieldId field_;
    const LevelRule rule_;
    Editor &editor_;
    EntryWindow &entries_;
    LevelField *text_;
    LevelSlider *slider_;
    int takenAt_ = 0;
};

/// Left and Right lead along the pairs' sliders and round from the last to the first.
void JoinNeighbours(std::span<LevelPair *const> pairs);

} // namespace kelvo
