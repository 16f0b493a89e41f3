#pragma once
// Numbers of the QuickMove windows: their boxes, the advance per step, whole steps, and the
// conversion of what a box shows when the axis or its advance per step changes.
#include "core/Currency.h"

#include <optional>
#include <string>
#include <string_view>

namespace korval {

class ClsKdxAxis;

// A box as the windows read it: thousands commas allowed (the windows write them), then the
// leading number; 0 when there is none.
double BoxValue(std::string_view text);

// How the windows write a converted value: "##,##0.0000000".
std::string FormatUnits(double value);

// Units to whole steps, halves to even. None when the advance is 0 or the result is no number.
std::optional<double> WholeSteps(double value, double advance);

// A whole number of steps in plain decimal, never with an exponent.
std::string StepsText(double steps);

// A typed advance per step as the axis keeps it: written with seven decimals, then held to the
// fixed-point type's four. None for a box that is not a number: the axis keeps its advance.
std::optional<Currency> AdvStepFromBox(std::string_view text);

// A velocity and a distance box.
struct VelDist {
    std::string velocity;
    std::string distance;
};

// Leaving a motor: each box that holds a number other than 0 goes back to steps, by the advance
// going out. Nothing happens for an advance of 0 or none.
void RestoreVelDist(VelDist& boxes, std::string_view advStep);
// Choosing a motor: each such box from steps into the units of the advance coming in.
void CalcVelDist(VelDist& boxes, std::string_view advStep);

// The advance per step of the shown axis changed: each box keeps the steps it stands for. An old
// advance of none converts nothing; of 0 it counts as 1. A box without a number is left alone.
void AdvStepChanged(VelDist& boxes, std::string_view oldAdvStep, std::string_view newAdvStep);
// The same across the change the axis has just made, for its AdvStepChanged event.
void AdvStepChanged(VelDist& boxes, const ClsKdxAxis& axis);

// A group of the simultaneous window counts, for its move and for converting its units, when
// its motor is chosen and its distance is a number other than 0 to seven decimals.
bool GroupTakesPart(bool chosen, std::string_view distance);

// The simultaneous window's group: converted only when it takes part and the advance is not 0,
// then tidied.
void RestoreGroup(VelDist& boxes, bool chosen, double advance);
void CalcGroup(VelDist& boxes, bool chosen, double advance);

// Trailing zeros of a decimal fraction dropped, and the point if nothing follows it:
// "2,000.5000000" -> "2,000.5", "400.0000000" -> "400". A text without a point is kept.
std::string TrimExtraZeros(std::string text);

} // namespace korval
