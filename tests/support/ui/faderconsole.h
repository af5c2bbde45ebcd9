#pragma once

#include "support/ui/consoleundertest.h"

#include <QLineEdit>

#include <algorithm>

namespace kelvo {

inline const QString RangeTitle = "Range Check Error";
inline const QString FaderError = "Error, Please enter a number between 0 and 9.9!";
inline const QString Set7Title = "Set Fader = 7.0";
inline const QString Set7Question = "Are you sure you want to Set Fader = 7.0 ?";

/// The console with both fader sliders at hand.
struct FaderConsole : ConsoleUnderTest {
    using ConsoleUnderTest::ConsoleUnderTest;

    LevelSlider *Main() const { return Find<LevelSlider>("sclVol"); }
    QDialog *Dialog() const { return Find<QDialog>("frmFader"); }
    LevelSlider *OfDialog() const { return Dialog()->findChild<LevelSlider *>("sclVol"); }
    QString Text(const char *field) const { return Find<QLineEdit>(field)->text(); }

    int Count(const char *call) const
    {
        const kelvo::Calls calls = Calls();
        return int(std::ranges::count(calls, call));
    }

    /// Opens the dialog as a user does, through "Adjust Fader" of the tab Output Trim.
    void OpenDialog()
    {
        GoTo(Tab::OutputTrim);
        Click("cmdAdjust(0)");
        QTRY_COMPARE(QApplication::activeWindow(), Dialog());
        Forget();
    }

    /// What is wrong with the five fields and two sliders at a level; "" = nothing.
    QString Wrong(const QString &text, int position) const
    {
        for (const char *field : {"lblVol(0)", "lblVol(1)", "lblVol(2)", "lblVol(3)", "lblVol"})
            if (Text(field) != text)
                return QString("%1 shows %2").arg(field, Text(field));
        for (const QSlider *slider : {Main(), OfDialog()})
            if (slider->value() != position)
                return QString("a slider stands at %1").arg(slider->value());
        return {};
    }
};

} // namespace kelvo
