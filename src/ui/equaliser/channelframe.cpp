#include "ui/equaliser/channelframe.h"

#include "model/tables.h"

namespace kelvo {

void ChannelFrame::Bind(int channel)
{
    setTitle(ChannelTitle[channel]);
    for (int band = 0; band < int(pairs_.size()); ++band) {
        const FieldId field = field::Band(channel, band);
        pairs_[band]->Bind(field);
        pairs_[band]->SetAccessibleName(SpokenName(field));
    }
}

void ChannelFrame::Show(const Changed &changed)
{
    for (LevelPair *pair : pairs_)
        pair->Show(changed);
}

void ChannelFrame::ShowUnsent(const FieldSet &unsent)
{
    for (LevelPair *pair : pairs_)
        pair->ShowUnsent(unsent);
}

QString SpokenName(FieldId field)
{
    const Field &facts = FieldOf(field);
    const std::string name = facts.name ? facts.name : FrequencyText(facts.hertz);
    return QString("%1, %2, %3")
        .arg(ChannelTitle[facts.channel], QString::fromStdString(name), facts.scale->unit);
}

} // namespace kelvo
