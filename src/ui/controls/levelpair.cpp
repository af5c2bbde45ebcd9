#include "ui/controls/levelpair.h"

#include "ui/controls/named.h"

namespace kelvo {

LevelPair::LevelPair(const LevelRule &rule, EntryWindow &entries, const LevelNames &names, Actions actions,
                     QObject *parent)
    : QObject(parent),
      rule_(rule),
      entries_(entries),
      actions_(std::move(actions)),
      field_(new LevelField(rule, entries, [this](int steps) { TakeSteps(steps); })),
      slider_(new LevelSlider(rule, entries))
{
    if (names.index < 0) {
        Named(field_, names.field);
        Named(slider_, names.slider);
    } else {
        Named(field_, names.field, names.index);
        Named(slider_, names.slider, names.index);
    }
    connect(slider_, &LevelSlider::Taken, this, [this] { takenAt_ = Position(); });
    connect(slider_, &LevelSlider::Moved, this, [this] { ShowText(); });
    connect(slider_, &LevelSlider::Placed, this, [this] { ApplyChange(); });
    connect(slider_, &LevelSlider::Dropped, this, [this] {
        if (Position() != takenAt_)
            ApplyChange();
    });
    ShowPosition(rule.zeroAt);
}

void LevelPair::SetAccessibleName(const QString &name)
{
    field_->setAccessibleName(name);
    slider_->setAccessibleName(name);
}

void LevelPair::ShowPosition(int position)
{
    slider_->ShowPosition(position);
    ShowText();
}

void LevelPair::ShowText()
{
    field_->ShowText(QString::fromStdString(rule_.TextAt(Position())));
}

void LevelPair::TakeSteps(int steps)
{
    slider_->setValue(rule_.PositionFor(steps));
}

/// The screen and the record always take the change. The unit hears of it when no key is held and the
/// slider left the position at which it had the focus; what it did not hear, the next send carries.
void LevelPair::ApplyChange()
{
    ShowText();
    actions_.store(Position());
    if (entries_.SendArmed && Position() != entries_.FocusPosition)
        actions_.send();
}

void JoinNeighbours(std::span<LevelPair *const> pairs)
{
    const std::size_t count = pairs.size();
    for (std::size_t i = 0; i < count; ++i)
        pairs[i]->Slider()->SetNeighbours(pairs[(i + count - 1) % count]->Slider(),
                                          pairs[(i + 1) % count]->Slider());
}

} // namespace kelvo
