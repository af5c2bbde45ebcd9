#pragma once

#include "model/roomsettings.h"

#include <QGridLayout>
#include <QLineEdit>

#include <array>

namespace kelvo {

/// The eleven text boxes `txtTheaterInfo` and their labels in two columns, the notes last and wide.
/// The tab and its dialog each have one; the boxes belong to the widget that takes `layout`.
struct TheaterForm {
    TheaterForm();

    void Show(const TheaterTexts &texts);
    TheaterTexts Texts() const;

    std::array<QLineEdit *, TheaterTextCount> txtTheaterInfo{};
    QGridLayout *layout;
};

} // namespace kelvo
