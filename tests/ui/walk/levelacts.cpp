#include "ui/walk/acts.h"

namespace kelvo {

namespace {

void PressKey(Walker &walker)
{
    static constexpr std::array Keys{Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left, Qt::Key_Right,
                                     Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_End,
                                     Qt::Key_Plus,   Qt::Key_Minus,    Qt::Key_A};
    if (walker.Chance(3) || !qobject_cast<LevelSlider *>(QApplication::focusWidget()))
        walker.Focus(walker.AnyUsable<LevelSlider>());
    if (walker.heldKey != 0 || !qobject_cast<LevelSlider *>(QApplication::focusWidget()))
        return;
    walker.heldKey = walker.Pick(Keys);
    walker.Console().Press(walker.heldKey, walker.Chance(2) ? Qt::KeypadModifier : Qt::NoModifier);
}

void RepeatKey(Walker &walker)
{
    if (walker.heldKey != 0)
        walker.Console().Repeat(walker.heldKey);
}

void ReleaseKey(Walker &walker)
{
    if (const int key = std::exchange(walker.heldKey, 0))
        walker.Console().Release(key);
}

void TypeText(Walker &walker)
{
    static constexpr std::array Texts{"0",  "3",   "-3.3", "6",     "-6",   "10",   "9.9",
                                      "7",  "abc", "",     "--3",   "1e3",  "2,5",  "-10",
                                      "11", " 4 ", "-0.1", "1e400", "0.25", "5.5dB"};
    if (LevelField *field = walker.AnyUsable<LevelField>())
        walker.Type(field, walker.Pick(Texts), walker.Chance(2));
}

void LeaveField(Walker &walker)
{
    if (qobject_cast<LevelField *>(QApplication::focusWidget()))
        walker.Console().Key(walker.Pick({Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape, Qt::Key_Tab}));
}

void DropThumb(Walker &walker)
{
    if (walker.dragged)
        walker.Console().Drop(walker.dragged.data());
    walker.dragged = nullptr;
}

void TakeThumb(Walker &walker)
{
    DropThumb(walker);
    walker.dragged = walker.AnyUsable<LevelSlider>();
    if (!walker.dragged)
        return;
    walker.Activate(walker.dragged);
    walker.Console().Take(walker.dragged.data());
}

void MoveThumb(Walker &walker)
{
    if (walker.dragged)
        walker.Console().MoveTo(walker.dragged.data(), walker.Number(walker.dragged->maximum() + 1));
}

void ClickGroove(Walker &walker)
{
    LevelSlider *slider = walker.AnyUsable<LevelSlider>();
    if (!slider)
        return;
    walker.Activate(slider);
    walker.Console().ClickAt(slider, walker.Number(slider->maximum() + 1));
}

void TurnWheel(Walker &walker)
{
    if (LevelSlider *slider = walker.AnyUsable<LevelSlider>())
        walker.Console().Wheel(slider, walker.Pick({120, -240, 40}));
}

/// As a tool for the disabled does.
void SetByTool(Walker &walker)
{
    if (LevelSlider *slider = walker.AnyUsable<LevelSlider>())
        slider->setValue(walker.Number(slider->maximum() + 1));
}

constexpr std::array Acts{
    Act{"press a key on a slider", 60, PressKey}, Act{"the key repeats", 60, RepeatKey},
    Act{"release the key", 60, ReleaseKey},       Act{"type into a field", 60, TypeText},
    Act{"leave the field", 50, LeaveField},       Act{"take a thumb", 30, TakeThumb},
    Act{"move the thumb", 60, MoveThumb},         Act{"drop the thumb", 60, DropThumb},
    Act{"click beside a thumb", 30, ClickGroove}, Act{"turn the wheel over a slider", 30, TurnWheel},
    Act{"set a slider by a tool", 25, SetByTool},
};

} // namespace

std::span<const Act> LevelActs()
{
    return Acts;
}

} // namespace kelvo
