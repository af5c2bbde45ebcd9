#include "ui/walk/trail.h"

#include "model/changed.h"

#include <QStringList>

#include <algorithm>

namespace kelvo {

namespace {

FieldSet FieldsOf(const Step &step)
{
    FieldSet fields;
    for (const FieldId field : step.Fields())
        fields.set(std::size_t(field));
    return fields;
}

void Copy(const RoomSettings &from, const FieldSet &fields, RoomSettings &to)
{
    ForEachField([&](FieldId id, const Field &field) {
        if (!fields.test(std::size_t(id)))
            return;
        if (field.place == Place::Text)
            to.TheaterInfo[field.at] = from.TheaterInfo[field.at];
        else
            Set(to, id, Get(from, id));
    });
}

/// Where the steps begin that were made since; past the end when there are none.
std::size_t FirstAfter(std::size_t newest, const std::deque<Step> &steps)
{
    const auto found =
        std::ranges::find_if(steps, [newest](const Step &step) { return step.number > newest; });
    return std::size_t(found - steps.begin());
}

QString NamesOf(const FieldSet &fields)
{
    QStringList names;
    ForEachField([&](FieldId id, const Field &) {
        if (fields.test(std::size_t(id)))
            names += QString::fromStdString(Key(id));
    });
    return names.join(", ");
}

} // namespace

FieldSet Differing(const RoomSettings &one, const RoomSettings &other)
{
    FieldSet fields;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place == Place::Text)
            fields.set(std::size_t(id), one.TheaterInfo[field.at] != other.TheaterInfo[field.at]);
        else if (field.place != Place::Live)
            fields.set(std::size_t(id), Get(one, id) != Get(other, id));
    });
    return fields;
}

void Trail::Begin(const RoomSettings &room)
{
    *this = {};
    Restart(room);
}

void Trail::Restart(const RoomSettings &room)
{
    steps_.clear();
    order_.clear();
    done_ = 0;
    room_ = start_ = room;
    unsure_.reset();
    startHolds_ = true;
}

QString Trail::Look(const RoomSettings &room, const History &history, const Between &between)
{
    const auto &steps = history.Steps();
    touched_ = touched_ || !steps.empty();
    if (between.read) {
        startHolds_ = startHolds_ && Differing(*between.read, room_).none();
        room_ = *between.read;
    }
    if (between.connected)
        TakeFirstConnection(room);
    if (steps.empty()) {
        const bool gone = !order_.empty() && !between.file;
        const FieldSet wrong = Differing(room_, room);
        Restart(room);
        return gone                           ? QString("the history is gone")
               : wrong.any() && !between.file ? "without a step other values: " + NamesOf(wrong)
                                              : QString();
    }
    if (!Follows(history)) {
        LoseSteps(room, history);
        return between.file ? "" : "steps are gone, or have changed their places";
    }
    const std::size_t first = FirstAfter(newest_, steps);
    if (first < steps.size()) {
        MoveFrom(done_, first);
        AddNew(room, history, first);
    } else {
        MoveFrom(done_, history.Done());
    }
    done_ = history.Done();
    const FieldSet wrong = Differing(room_, room) & ~unsure_;
    room_ = room;
    unsure_.reset();
    if (wrong.any())
        return QString("after %1 of %2 steps other values: %3")
            .arg(done_)
            .arg(order_.size())
            .arg(NamesOf(wrong));
    if (done_ == 0 && startHolds_ && Differing(start_, room).any())
        return "undoing everything is not the start";
    return {};
}

/// New steps stand behind known ones, or in the place of those that were undone.
bool Trail::Follows(const History &history) const
{
    const auto &steps = history.Steps();
    const std::size_t known = FirstAfter(newest_, steps);
    const bool all = known == order_.size() || known < steps.size();
    return all && known <= order_.size() &&
           std::equal(order_.begin(), order_.begin() + std::ptrdiff_t(known), steps.begin(),
                      [](std::size_t number, const Step &step) { return number == step.number; });
}

/// It is no step while the steps have set texts alone.
void Trail::TakeFirstConnection(const RoomSettings &room)
{
    const FieldSet records = Changed::Unit(Source::Connection).fields;
    const bool set = std::ranges::any_of(
        order_, [&](std::size_t number) { return (steps_.at(number).fields & records).any(); });
    if (set)
        return;
    Copy(room, records, room_);
    unsure_ |= records;
    startHolds_ = false;
}

/// The oldest went, and the newest perhaps; what is left begins where the first of it did.
void Trail::LoseSteps(const RoomSettings &room, const History &history)
{
    order_.clear();
    for (const Step &step : history.Steps()) {
        order_.push_back(step.number);
        steps_.try_emplace(step.number, Seen{FieldsOf(step), {}, {}, {}, {}});
    }
    newest_ = std::max(newest_, order_.back());
    done_ = history.Done();
    room_ = room;
    unsure_.reset();
    MoveFrom(done_, 0);
    start_ = room_;
    startHolds_ = unsure_.none();
    room_ = room;
    unsure_.reset();
}

void Trail::Pass(std::size_t number, bool back)
{
    const Seen &step = steps_.at(number);
    Copy(back ? step.before : step.after, step.fields, room_);
    unsure_ = (unsure_ & ~step.fields) | (step.fields & ~(back ? step.knownBefore : step.knownAfter));
}

void Trail::MoveFrom(std::size_t from, std::size_t to)
{
    for (; from > to; --from)
        Pass(order_[from - 1], true);
    for (; from < to; ++from)
        Pass(order_[from], false);
}

/// One step was seen whole. Of several, a value before is known where none of them has changed it yet, and a
/// value after where none changes it again; all the room's other values must have stayed.
void Trail::AddNew(const RoomSettings &room, const History &history, std::size_t first)
{
    const auto &steps = history.Steps();
    order_.resize(first);
    FieldSet later;
    for (std::size_t index = first; index < steps.size(); ++index) {
        Seen seen{FieldsOf(steps[index]), room_, room, {}, {}};
        seen.knownBefore = seen.fields & ~later & ~unsure_;
        later |= seen.fields;
        order_.push_back(steps[index].number);
        steps_.insert_or_assign(steps[index].number, seen);
    }
    FieldSet again;
    const bool atTheEnd = history.Done() == steps.size();
    for (std::size_t index = steps.size(); atTheEnd && index > first; --index) {
        Seen &seen = steps_.at(steps[index - 1].number);
        seen.knownAfter = seen.fields & ~again;
        again |= seen.fields;
    }
    newest_ = order_.back();
    // From the room before the first of them to where the history stands now.
    if (atTheEnd)
        Copy(room, later, room_);
    else
        MoveFrom(first, std::max(first, history.Done()));
    if (history.Done() < first)
        MoveFrom(first, history.Done());
}

} // namespace kelvo
