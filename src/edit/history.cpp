#include "edit/history.h"

#include <algorithm>

namespace kelvo {

std::vector<FieldId> Step::Fields() const
{
    std::vector<FieldId> fields;
    fields.reserve(values.size() + texts.size());
    for (const Value &value : values)
        fields.push_back(value.field);
    for (const Text &text : texts)
        fields.push_back(field::Theater(text.index));
    return fields;
}

int Step::CountSettings() const
{
    const auto isSetting = [](const Value &value) { return FieldOf(value.field).section != Section::Kept; };
    return int(std::ranges::count_if(values, isSetting)) + int(texts.size());
}

Step Between(const RoomSettings &before, const RoomSettings &after)
{
    Step step;
    ForEachField([&](FieldId id, const Field &field) {
        if (field.place == Place::Text) {
            const std::string &was = before.TheaterInfo[field.at];
            const std::string &is = after.TheaterInfo[field.at];
            if (was != is)
                step.texts.push_back({field.at, was, is});
        } else if (field.place != Place::Live) {
            const int was = Get(before, id);
            const int is = Get(after, id);
            if (was != is)
                step.values.push_back({id, was, is});
        }
    });
    return step;
}

void TakeBack(const Step &step, RoomSettings &room)
{
    for (const Step::Value &value : step.values)
        Set(room, value.field, value.before);
    for (const Step::Text &text : step.texts)
        room.TheaterInfo[text.index] = text.before;
}

void TakeAgain(const Step &step, RoomSettings &room)
{
    for (const Step::Value &value : step.values)
        Set(room, value.field, value.after);
    for (const Step::Text &text : step.texts)
        room.TheaterInfo[text.index] = text.after;
}

void History::Add(Step step)
{
    steps_.resize(done_);
    step.number = ++numbers_;
    steps_.push_back(std::move(step));
    ++done_;
    if (steps_.size() > Most) {
        steps_.pop_front();
        --done_;
        ++gone_;
    }
}

void History::End()
{
    steps_.clear();
    done_ = gone_ = 0;
}

void History::ForgetReads()
{
    const auto isRead = [](const Step &step) { return step.read; };
    const auto now = steps_.begin() + std::ptrdiff_t(done_);
    steps_.erase(std::find_if(now, steps_.end(), isRead), steps_.end());
    const auto lastRead =
        std::find_if(steps_.rbegin() + std::ptrdiff_t(steps_.size() - done_), steps_.rend(), isRead);
    const auto forgotten = lastRead.base() - steps_.begin();
    steps_.erase(steps_.begin(), lastRead.base());
    done_ -= std::size_t(forgotten);
    gone_ += std::size_t(forgotten);
}

} // namespace kelvo
