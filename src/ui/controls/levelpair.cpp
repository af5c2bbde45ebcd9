#include "ui/controls/levelpair.h"

#include "ui/controls/named.h"

namespace kelvo {

LevelPair::LevelPair(FieldId field, const LevelRule &rule, Editor &editor, EntryWindow &entries,
                     const LevelNames &names, QObject *parent)
    : QObject(parent),
      field_(field),
      rule_(rule),
      editor_(editor),
      entries_(entries),
      text_(new LevelField(rule, entries, [this](int steps) { TakeSteps(steps); })),
      slider_(new LevelSlider(rule, entries))
{
    if (names.index < 0) {
        Named(text_, names.field);
        Named(slider_, names.slider);
    } else {
        Named(text_, names.field, names.index);
        Named(slider_, names.slider, names.index);
    }
    connect(slider_, &LevelSlider::Taken, this, [this] { takenAt_ = Position(); });
    connect(slider_, &LevelSlider::Moved, this, [this] { ShowText(); });
    connect(slider_, &LevelSlider::Placed, this, [this] { ApplyChange(); });
    connect(slider_, &LevelSlider::Dropped, this, [this] {
        if (Position() != takenAt_)
            ApplyChange();
    });
    ShowStored();
}

void LevelPair::SetAccessibleName(const QString &name)
{
    text_->setAccessibleName(name);
    slider_->setAccessibleName(name);
}

void LevelPair::Bind(FieldId field)
{
    field_ = field;
    ShowStored();
}

void LevelPair::Show(const Changed &changed)
{
    if (changed.Has(field_))
        ShowStored();
}

void LevelPair::ShowStored()
{
    const LevelRule &stored = *FieldOf(field_).scale->level;
    slider_->ShowPosition(rule_.PositionFor(stored.StepsAt(Get(editor_.Room(), field_))));
    ShowText();
}

void LevelPair::ShowText()
{
    text_->ShowText(QString::fromStdString(rule_.TextAt(Position())));
}

void LevelPair::TakeSteps(int steps)
{
    slider_->setValue(rule_.PositionFor(steps));
}

/// The screen and the room always take the change. The unit hears of it when no key is held and the
/// slider left the position at which it had the focus; what it did not hear, the next send carries.
void LevelPair::ApplyChange()
{
    ShowText();
    const int stored = FieldOf(field_).scale->level->PositionFor(rule_.StepsAt(Position()));
    const bool moved = entries_.SendArmed && Position() != entries_.FocusPosition;
    editor_.Apply(Edit::One(field_, stored), moved ? Send::AfterEdit : Send::Later);
}

void JoinNeighbours(std::span<LevelPair *const> pairs)
{
    const std::size_t count = pairs.size();
    for (std::size_t i = 0; i < count; ++i)
        pairs[i]->Slider()->SetNeighbours(pairs[(i + count - 1) % count]->Slider(),
                                          pairs[(i + 1) % count]->Slider());
}

} // namespace kelvo
