#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace kelvo {

/// How the text of a level field is taken.
enum class LevelParse {
    LeadingNumber, ///< the leading numeric part counts, no number is 0 (the fader)
    WholeInteger,  ///< the whole text is a number, rounded to even halves (shelves)
    WholeReal,     ///< the whole text is a number, taken in single precision (half-decibel levels)
};

/// How a level's value, its slider position and its text belong together. Slider position 0 is the top.
struct LevelRule {
    int lastPosition; ///< positions are 0 to this
    int zeroAt;       ///< the position of value 0
    int direction;    ///< -1: a higher value is a lower position; +1: the other way round (OBE)
    int stepsPerUnit; ///< positions to one unit of the value (decibel, or fader digit)
    int lowest;       ///< the lowest accepted value, in steps
    int highest;      ///< the highest accepted value, in steps
    int decimals;     ///< 0 or 1, in the text
    LevelParse parse;
    const char *rangeMessage;

    /// The position of a value counted in steps; nothing is clamped.
    constexpr int PositionFor(int steps) const { return zeroAt + direction * steps; }
    /// The value, counted in steps, of a position.
    constexpr int StepsAt(int position) const { return direction * (position - zeroAt); }
    /// The text of a value counted in steps: "-6.0", "7.0", "-10".
    std::string TextOf(int steps) const;
    /// The text of a slider position.
    std::string TextAt(int position) const { return TextOf(StepsAt(position)); }
};

inline constexpr const char *FaderRange = "Error, Please enter a number between 0 and 9.9!";
inline constexpr const char *TenRange = "Error, Please enter a number between -10 and 10!";
inline constexpr const char *SixRange = "Error, Please enter a number between -6 and 6!";

//                                    last zero dir per lowest highest decimals
inline constexpr LevelRule FaderRule{99, 99, -1, 10, 0, 99, 1, LevelParse::LeadingNumber, FaderRange};
inline constexpr LevelRule ShelfRule{20, 10, -1, 1, -10, 10, 0, LevelParse::WholeInteger, TenRange};
inline constexpr LevelRule HalfDecibelRule{24, 12, -1, 2, -12, 12, 1, LevelParse::WholeReal, SixRange};
inline constexpr LevelRule ObeRule{24, 12, +1, 2, -12, 12, 1, LevelParse::WholeReal, SixRange};

/// The number that a text begins with after blanks, 0 when it begins with none; a point and a comma both
/// separate decimals, whatever the locale.
double LeadingNumber(std::string_view text);

/// What typing a text into a level field means.
struct LevelEntry {
    enum Kind {
        Value,      ///< `steps` is to be taken
        Unreadable, ///< not a number, or a fader or shelf beyond 16 bits: the field goes back to what it
                    ///< showed
        OutOfRange, ///< a number beyond the ends: `rangeMessage`, nothing changes
    } kind;
    int steps = 0; ///< the value in steps of the rule, rounded as its family rounds

    bool operator==(const LevelEntry &) const = default;
};

/// Reads a typed text.
/// Half-decibel values between two steps go to the step below: 1.3 becomes 1.0 and -1.3 becomes -1.5.
/// Fader and shelves round to the nearest step, halves to the even one.
LevelEntry ReadLevel(const LevelRule &rule, std::string_view text);

} // namespace kelvo
