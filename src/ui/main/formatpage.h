#pragma once

#include <QWidget>

#include <array>
#include <string>

class QLabel;

namespace kelvo {

/// The tab "Format &Selection": the mode buttons, the mute, and `Frame1(21)` with the unit's versions.
class FormatPage : public QWidget {
    Q_OBJECT

  public:
    FormatPage(QWidget *modes, QWidget *cmdMute5);

    /// Empty lines hide the frame.
    void ShowUnitVersion(const std::array<std::string, 3> &lines);

  private:
    QWidget *unitInformation_;
    std::array<QLabel *, 3> lnlInfo_{};
};

} // namespace kelvo
