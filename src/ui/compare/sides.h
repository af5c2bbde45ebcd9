#pragma once

#include "edit/editor.h"
#include "report/differences.h"

#include <QString>

#include <functional>

namespace kelvo {

/// What a side holds, or why that cannot be told.
struct SideReading {
    Side side{};
    QString problem{}; ///< "" = it was read

    bool Read() const { return problem.isEmpty(); }
};

/// One that may be chosen for a side of a comparison.
struct NamedSide {
    enum Kind {
        Screen, ///< takes what is taken
        Unit,   ///< can be read again
        Slot,   ///< a tuning kept in this run
        Stored, ///< read when it is chosen and when its window comes to the front; the others at each edit
    };

    QString name;
    Kind kind = Stored;
    std::function<SideReading()> read;
    QString path{}; ///< of a file
};

NamedSide ScreenSide(const Editor &editor);
/// What the unit last took or told, as far as it is known.
NamedSide UnitSide(const UnitLink &link);
NamedSide SlotSide(const Editor &editor, int slot);
/// What a reset sets.
NamedSide FactorySide(const Editor &editor);
/// A settings file, new or old.
NamedSide FileSide(const QString &name, const QString &path);

} // namespace kelvo
