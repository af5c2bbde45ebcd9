#pragma once

#include "ui/compare/sides.h"
#include "ui/controls/choices.h"

#include <vector>

namespace kelvo {

/// The list from which one side of a comparison is chosen. Its last entry opens a file.
class SideBox : public ChoiceList {
    Q_OBJECT

  public:
    SideBox(const char *name, const char *accessibleName);

    /// What there is to choose from; what was chosen stays, whether it is offered still or not.
    void Offer(std::vector<NamedSide> sides);
    void Choose(const NamedSide &side);
    const NamedSide &Chosen() const { return chosen_; }

    /// What the chosen side holds: of a stored one what it held when it was chosen or read anew.
    const SideReading &Reading();
    void ReadAnew();

  signals:
    void SideChosen();
    void FileWanted();

  private:
    void Activate(int index);
    void ShowChosen();

    std::vector<NamedSide> sides_;
    NamedSide chosen_;
    SideReading reading_;
};

} // namespace kelvo
