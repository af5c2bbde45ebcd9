#pragma once

#include "ui/controls/messages.h"

#include <array>

namespace kelvo::messages {

inline constexpr auto WindowTitle = "Kelvo Cinema Processor and EQ Software   <%1>";
inline constexpr auto Untitled = "Untitled";
inline constexpr auto FromUnit = "CP Settings";
inline constexpr auto ConnectCaption = "Connect";
inline constexpr auto UnitInformation = "Processor Unit Information";
inline constexpr auto SentHint = "A click opens what this line tells of.";

// The state line: what a label reads, what it means, and what is announced when it goes.
inline constexpr std::array ShortChannelName{"L", "LS", "C", "RS", "R", "SW"};
inline constexpr auto AllChannels = "ALL";
inline constexpr auto SimulatedKind = "SIMULATED";
inline constexpr auto SimulatedMeaning = "No unit: a simulated one answers";
inline constexpr auto LineMeaning = "Serial port %1, %2 baud";
inline constexpr auto MutedState = "MUTED";
inline constexpr auto MutedMeaning = "The unit is muted";
inline constexpr auto NotMuted = "Not muted";
inline constexpr auto NoiseState = "NOISE";
inline constexpr auto NoiseMeaning = "Pink noise";
inline constexpr auto NoNoise = "No pink noise";
inline constexpr auto PhaseState = "PHASE";
inline constexpr auto PhaseMeaning = "Inverted";
inline constexpr auto NoPhase = "no phase inverted";
inline constexpr auto RT60State = "RT60";
inline constexpr auto RT60Meaning = "The RT60 signal plays";
inline constexpr auto NoRT60 = "No RT60 signal";
inline constexpr auto MeasuringState = "MEASURING %1";
inline constexpr auto MeasuringMeaning = "A measurement holds the unit in the format %1";
inline constexpr auto NotMeasuring = "No measurement";

inline constexpr auto OffLineHint = "Off line. Press Connect or F1.";

inline constexpr auto RecentScreen = "screen %1";

inline constexpr Message SaveChanges{Question, "Save?", "Do you want to save your changes?",
                                     QMessageBox::Yes};
inline constexpr Message SaveBeforeExit{Question, "Save?", "Do you want to save changes before you exit?",
                                        QMessageBox::Yes};
inline constexpr Message SaveUnitOverFile{
    Question, "Save?", "The settings on the screen were read from the unit. Save them over %1?"};
inline constexpr Message Revert{Question, "Revert?", "Do you want to revert back to original settings?"};
inline constexpr Message FaderNominal{Question, "Fader=7.0?", "Do you want to set fader = 7.0?"};

inline constexpr Message WrongFormat{Exclamation, "File Error", "Error open opening file! Incorrect format!"};
inline constexpr Message CannotOpen{Exclamation, "File Error", "Cannot open %1: %2."};

// Faults that only the state line tells.
inline constexpr auto CannotKeep = "Cannot keep %1 in the folder %2.";
inline constexpr auto CannotRemember = "Cannot keep window places and recent files in %1.";
inline constexpr auto CannotJournal = "Cannot write the journal in %1: %2.";

inline constexpr Message SmallScreen{CriticalError, "Screen Resolution Error",
                                     "Error, screen resolution too low. Please select a screen resolution of "
                                     "at least 800 x 600."};
inline constexpr Message MissingLibrary{Information, "Device Library", "%1"};

inline constexpr auto Undo = "Undo";
inline constexpr auto Redo = "Redo";
inline constexpr auto History = "History ...";
inline constexpr auto Recall = "Recall %1";
inline constexpr auto KeepAs = "Keep as %1";
inline constexpr auto BringBack = "Bring Back ...";
inline constexpr auto BringBackOne = "Bring back %2 change of %1";
inline constexpr auto BringBackMany = "Bring back %2 changes of %1";
inline constexpr auto BringBackSlots = "Bring back the slots of %1";
inline constexpr auto SlotShown = "Slot %1";

inline constexpr auto Loading = "Loading Please Wait...";

inline constexpr auto ConnectingTitle = "Connecting";

inline constexpr auto AutomaticUpdateTitle = "Automatic Update";
inline constexpr auto EnableAutomaticUpdate = "Enable Automatic Update";
inline constexpr auto Every = "Every";
inline constexpr auto Seconds = "seconds";
inline constexpr auto RefreshPeriodName = "Period of the automatic update, seconds";
inline constexpr auto CloseCaption = "Close";

inline constexpr auto DiffersCaption = "What Differs ...";
inline constexpr auto VerifyCaption = "Verify the Unit";
inline constexpr auto StartSnapshot = "Start-up snapshot";
inline constexpr auto KeptSnapshot = "Snapshot %1";

} // namespace kelvo::messages
