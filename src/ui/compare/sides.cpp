#include "ui/compare/sides.h"

#include "files/configfile.h"
#include "ui/compare/messages.h"

#include <QDir>

namespace kelvo {

namespace {

SideReading ReadFile(const QString &path)
{
    RoomSettings room;
    ConfigForm form{};
    if (const auto failure = LoadConfigFile(path.toStdString(), room, &form))
        return {.problem = QString(messages::CannotCompare)
                               .arg(QDir::toNativeSeparators(path), QString::fromStdString(failure->reason))};
    return {form == ConfigForm::Records ? RecordsAlone(room) : FileLines(room)};
}

} // namespace

NamedSide ScreenSide(const Editor &editor)
{
    return {messages::ScreenName, NamedSide::Screen,
            [&editor] { return SideReading{WholeRoom(editor.Room())}; }};
}

NamedSide UnitSide(const UnitLink &link)
{
    return {messages::UnitName, NamedSide::Unit, [&link]() -> SideReading {
                const UnitHolds &holds = link.Holds();
                if (!holds.KnowsRecords())
                    return {
                        .problem =
                            QString(messages::CannotCompare).arg(messages::UnitName, messages::NotReadYet)};
                return {{holds.Room, holds.Known, true}};
            }};
}

NamedSide SlotSide(const Editor &editor, int slot)
{
    return {QString(messages::SlotName).arg(Slots::NameOf(slot)), NamedSide::Slot,
            [&editor, slot] { return SideReading{SettingsAlone(*editor.Kept().Kept(slot))}; }};
}

NamedSide FactorySide(const Editor &editor)
{
    return {messages::FactoryName, NamedSide::Stored, [&editor] {
                RoomSettings room = editor.Room();
                ResetAll(room);
                return SideReading{SettingsAlone(std::move(room))};
            }};
}

NamedSide FileSide(const QString &name, const QString &path)
{
    return {name, NamedSide::Stored, [path] { return ReadFile(path); }, path};
}

} // namespace kelvo
