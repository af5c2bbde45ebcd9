#pragma once

#include "model/levels.h"
#include "ui/controls/entrywindow.h"

#include <QLineEdit>
#include <QSlider>

#include <functional>

namespace kelvo {

/// One numeric field and its vertical slider. The slider's position is the home of the value.
class LevelPair : public QObject {
    Q_OBJECT

  public:
    /// What a change does. `store` writes the position to the model; `send` follows it when the unit is
    /// to be told. Neither is called while the program shows a value.
    struct Actions {
        std::function<void(int position)> store;
        std::function<void()> send;
    };

    QLineEdit *Field() const { return field_; }
    QSlider *Slider() const { return slider_; }
    int Position() const;

    /// Shows a position quietly: nothing is stored or sent. A field being typed in keeps its text.
    /// Positions outside the range show the nearest end.
    void ShowPosition(int position);
    /// Takes the typed text. False after a bad value: its message has been shown.
    bool Validate();

  private:
    QLineEdit *field_ = nullptr;
    QSlider *slider_ = nullptr;
};

} // namespace kelvo
