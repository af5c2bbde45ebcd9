#pragma once

#include <QWidget>

#include <vector>

namespace kelvo {

/// The Tab key goes through these controls in this order. All stand in one window by now.
inline void SetTabSequence(const std::vector<QWidget *> &controls)
{
    for (std::size_t i = 1; i < controls.size(); ++i)
        QWidget::setTabOrder(controls[i - 1], controls[i]);
}

} // namespace kelvo
