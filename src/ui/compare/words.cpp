#include "ui/compare/words.h"

#include "ui/compare/messages.h"

#include <QStringList>

#include <algorithm>
#include <array>
#include <utility>

namespace kelvo {

namespace {

/// What the reads of a verification bring.
constexpr std::array<std::pair<UnitOp, const char *>, 5> ReadName{{{UnitOp::GetAudio, "audio settings"},
                                                                   {UnitOp::GetSystem, "system settings"},
                                                                   {UnitOp::GetMute, "mute"},
                                                                   {UnitOp::GetVol, "fader"},
                                                                   {UnitOp::GetFormat, "format"}}};

} // namespace

QString DiffersText(const Differences &found)
{
    if (found.None())
        return messages::NoDifference;
    // The verb stands behind the first count: "12 settings differ, 2 live values".
    QString text = QString::fromStdString(CountsText(found));
    const qsizetype firstEnd = std::max(qsizetype(0), text.indexOf(','));
    return text.insert(firstEnd == 0 ? text.size() : firstEnd,
                       text.startsWith("1 ") ? messages::Differs : messages::Differ);
}

QString VerifyText(const Differences &found)
{
    if (found.None())
        return QString(messages::UnitHoldsScreen).arg(found.compared);
    return QString(messages::UnitDiffers).arg(QString::fromStdString(CountsText(found)));
}

QString UnreadText(const char *text, const std::vector<UnitOp> &unread)
{
    QStringList names;
    for (const auto &[read, name] : ReadName)
        if (std::ranges::find(unread, read) != unread.end())
            names += name;
    return QString(text).arg(names.join(", "));
}

} // namespace kelvo
