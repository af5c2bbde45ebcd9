#pragma once

#include <QColor>
#include <QFont>

class QLabel;
class QWidget;

namespace kelvo {

/// What tells a state: a flat ground and the ink that is readable on it.
struct Colours {
    QColor ground;
    QColor ink;
};

inline constexpr Colours Red{QColorConstants::Red, QColorConstants::White};
inline constexpr Colours Amber{QColor(255, 191, 0), QColorConstants::Black};
inline constexpr Colours Green{QColorConstants::Green, QColorConstants::Black};

void Fill(QLabel *label, const Colours &colours);
/// The label is as it was before `Fill`.
void ClearFill(QLabel *label);
/// Nothing around it moves when it comes and goes.
void KeepPlaceWhenHidden(QWidget *widget);
QFont Bold(QFont font, bool bold = true);

} // namespace kelvo
