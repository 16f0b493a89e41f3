#include "QuickMoveUnits.h"

#include "axis/ClsKdxAxis.h"
#include "axis/FixedPointText.h"
#include "core/Numbers.h"

#include <cmath>
#include <cstdio>

namespace korval {

namespace {

// A box that holds a number, thousands commas allowed; none for anything else.
std::optional<double> number(std::string_view text) {
    if (!IsNumeric(text)) {
        return std::nullopt;
    }
    return BoxValue(text);
}

// Into steps (divided by the advance) or out of them (multiplied).
enum class Way { ToSteps, FromSteps };

double convert(double value, double advance, Way way) {
    return way == Way::ToSteps ? value / advance : value * advance;
}

// Each box with a number other than 0, converted.
void convertBoxes(VelDist& boxes, std::string_view advStep, Way way) {
    const double advance = BoxValue(advStep);
    if (advance == 0) {
        return;
    }
    for (auto* box : {&boxes.velocity, &boxes.distance}) {
        if (const auto v = number(*box); v && *v != 0) {
            *box = FormatUnits(convert(*v, advance, way));
        }
    }
}

// Both boxes of a group that takes part, converted and tidied.
void convertGroup(VelDist& boxes, bool chosen, double advance, Way way) {
    if (!GroupTakesPart(chosen, boxes.distance) || advance == 0) {
        return;
    }
    for (auto* box : {&boxes.velocity, &boxes.distance}) {
        if (const auto v = number(*box)) {
            *box = TrimExtraZeros(FormatUnits(convert(*v, advance, way)));
        }
    }
}

} // namespace

double BoxValue(std::string_view text) {
    std::string plain(text);
    std::erase(plain, ',');
    return Val(plain);
}

std::string FormatUnits(double value) {
    return FormatGrouped(value, 7);
}

std::optional<double> WholeSteps(double value, double advance) {
    if (advance == 0) {
        return std::nullopt;
    }
    const double steps = Round(value / advance);
    if (!std::isfinite(steps)) {
        return std::nullopt;
    }
    return steps;
}

std::string StepsText(double steps) {
    if (steps == 0) {
        return "0"; // and never "-0"
    }
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", steps);
    return text;
}

std::optional<Currency> AdvStepFromBox(std::string_view text) {
    if (!IsNumeric(text)) {
        return std::nullopt;
    }
    return ToFixedPoint(BoxValue(FormatUnits(BoxValue(text))));
}

bool GroupTakesPart(bool chosen, std::string_view distance) {
    return chosen && IsNumeric(distance) && FormatUnits(BoxValue(distance)) != FormatUnits(0);
}

void RestoreVelDist(VelDist& boxes, std::string_view advStep) {
    convertBoxes(boxes, advStep, Way::ToSteps);
}

void CalcVelDist(VelDist& boxes, std::string_view advStep) {
    convertBoxes(boxes, advStep, Way::FromSteps);
}

void AdvStepChanged(VelDist& boxes, std::string_view oldAdvStep, std::string_view newAdvStep) {
    if (oldAdvStep.empty()) {
        return;
    }
    double old = BoxValue(oldAdvStep);
    if (old == 0) {
        old = 1;
    }
    const double now = BoxValue(newAdvStep);
    for (auto* box : {&boxes.velocity, &boxes.distance}) {
        if (const auto v = number(*box)) {
            *box = FormatUnits(*v / old * now);
        }
    }
}

void AdvStepChanged(VelDist& boxes, const ClsKdxAxis& axis) {
    AdvStepChanged(boxes, axis.GetOldAdvStep(), axis.GetAdvStep());
}

void RestoreGroup(VelDist& boxes, bool chosen, double advance) {
    convertGroup(boxes, chosen, advance, Way::ToSteps);
}

void CalcGroup(VelDist& boxes, bool chosen, double advance) {
    convertGroup(boxes, chosen, advance, Way::FromSteps);
}

std::string TrimExtraZeros(std::string text) {
    if (text.find('.') == std::string::npos) {
        return text; // its zeros are real
    }
    while (!text.empty() && text.back() == '0') {
        text.pop_back();
    }
    if (!text.empty() && text.back() == '.') {
        text.pop_back();
    }
    return text;
}

} // namespace korval
