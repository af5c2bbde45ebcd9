#pragma once

#include <QObject>
#include <QString>

namespace kelvo {

/// The name of a member of a control array: "cmdMode(3)".
inline QString IndexedName(const char *name, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(name)).arg(index);
}

/// Gives a control its name and hands it back.
template <typename Control>
Control *Named(Control *control, const char *name)
{
    control->setObjectName(QLatin1String(name));
    return control;
}

template <typename Control>
Control *Named(Control *control, const char *name, int index)
{
    control->setObjectName(IndexedName(name, index));
    return control;
}

} // namespace kelvo
