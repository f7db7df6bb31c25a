// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/panels/rack/rack_view.h"

#include <cmath>
#include <stdexcept>

#include "core/numbers.h"
#include "tests/panels/audio/shown_digit.h"

namespace hmonitor::test {

namespace {

using display::Colour;
using display::Line;

constexpr Colour kSegmentRed{0x2f2fff};
constexpr Colour kDigitRed{0x2317fd};
constexpr Colour kDigitGreen{0x00ff00};
constexpr Colour kDigitDark{0x1d1c20};
constexpr Colour kPhaseDark{0x000000};

std::string text(const display::Label& label) {
    return std::string(label.caption.get());
}

/// The digit at a place, "_" for a dark one.
std::string place(SegmentDigit& digit, Colour lit, Colour dark) {
    const std::string figure = shownFigure(digit, lit, dark);
    return figure.empty() ? "_" : figure;
}

template <class Digits>
std::string places(Digits& digits, Colour lit) {
    std::string shown;
    for (SegmentDigit& digit : digits) shown += place(digit, lit, kDigitDark);
    return shown;
}

std::string rounded(double value) {
    return mask("0.00", value).str();
}

/// The angle of a needle of that length, in degrees from vertical to the right.
std::string degrees(const Line& needle, double length) {
    const double x = needle.x2 - needle.x1;
    const double y = needle.y1 - needle.y2;
    if (std::fabs(std::hypot(x, y) - length) > 0.05) return "?";
    return rounded(std::atan2(x, y) * 180 / std::acos(-1.0));
}

/// "50 yellow 7 red, mark 58": a bar must be lit from element 0 without a gap.
std::string barOf(display::Family<Line, 62>& elements) {
    int yellow = 0;
    int red = 0;
    int mark = -1;
    for (int i = 0; i < 62; ++i) {
        const Colour colour = elements[static_cast<std::size_t>(i)].colour;
        const bool follows = yellow + red == i;
        if (colour == Colour{0xffff00} && follows && i <= 50) {
            ++yellow;
        } else if (colour == Colour{0x2317fd} && follows && i > 50) {
            ++red;
        } else if (colour == Colour{0x2317fd} && mark < 0) {
            mark = i;
        } else if (!(colour == Colour{0x404040})) {
            return "?";
        }
    }
    // At the top the mark is one of the red elements.
    if (mark < 0) mark = --red + 51;
    return wholeText(yellow).str() + "+" + wholeText(red).str() + "^" + wholeText(mark).str();
}

std::string figureOf(const display::Label& figure) {
    if (figure.colour == Colour{0x0000ff}) return text(figure) + " red";
    return figure.colour == Colour{0x000000} ? text(figure) : "?";
}

}  // namespace

RackView::RackView(RackBench& bench) : bench_(bench) {
    addModulation();
    addLevels();
    addPhaseAndPower();
    addQuality();
}

std::string RackView::see(const std::string& place) const {
    const auto found = places_.find(place);
    if (found == places_.end()) throw std::invalid_argument("no place " + place);
    return found->second();
}

std::map<std::string, std::string> RackView::all() const {
    std::map<std::string, std::string> seen;
    for (const auto& [name, look] : places_) seen[name] = look();
    return seen;
}

void RackView::addModulation() {
    Form1& panel = bench_.form1;
    places_["percent"] = [&] { return text(panel.Label_FMod_Porcentaje); };
    places_["kHz"] = [&] { return text(panel.Label_FMod); };
    places_["peaks"] = [&] { return text(panel.Label_PicosPorMinuto); };
    places_["field"] = [&] { return text(panel.Label_FieldIntensity); };
    places_["tenths"] = [&] { return shortText(panel.FieldTenths).str(); };
    places_["bar"] = [&]() -> std::string {
        const float at = panel.Line1.x1 - 230;
        const bool together = panel.Line1.x2 == at + 230 && panel.Label10.left == at - 40 &&
                              panel.Picture1.left == at + 200 && panel.Picture2.left == at + 180 &&
                              panel.BarFill.width == std::max(at, 0.f);
        return together ? shortText(at / 48).str() : "?";
    };
    places_["carrier"] = [&]() -> std::string {
        const Colour colour = panel.Label_CarrierDeviation.colour;
        const bool bad = panel.Label_Bad_CarrierDev.visible;
        const std::string figure = text(panel.Label_CarrierDeviation);
        if (colour == Colour{0x0000ff} && bad) return figure + " bad";
        return colour == Colour{0xffff00} && !bad ? figure : "?";
    };
    places_["over"] = [&] { return panel.Label_OVER.visible ? "lit" : "dark"; };
    places_["multipath"] = [&]() -> std::string {
        std::string row;
        for (display::Picture& element : panel.multypath) {
            row += element.picture == "multyon" ? '#' : element.picture == "multyoff" ? '.' : '?';
        }
        const Colour good = panel.multygood.colour;
        row += good == Colour{0x37ff4b} ? " GOOD" : good == Colour{0x1b6013} ? "" : "?";
        return panel.multybad.visible ? row + " BAD" : row;
    };
}

void RackView::addLevels() {
    Form_B& panel = bench_.formB;
    places_["left bar"] = [&] { return barOf(panel.LineAudL); };
    places_["right bar"] = [&] { return barOf(panel.LineAudR); };
    places_["left figure"] = [&] { return figureOf(panel.PromL); };
    places_["right figure"] = [&] { return figureOf(panel.PromR); };
}

void RackView::addPhaseAndPower() {
    Form_B& panel = bench_.formB;
    places_["phase"] = [&] { return text(panel.Label_PhaseVector); };
    places_["phase needle"] = [&] { return degrees(panel.Line1, 840); };
    places_["phase trail"] = [&] {
        // Lines of the trail at the same angle are listed once.
        std::string trail;
        std::string last;
        for (const Line* line :
             {&panel.Line2, &panel.Line3, &panel.Line4, &panel.Line5, &panel.Line6}) {
            const std::string angle = degrees(*line, 840);
            if (angle != last) trail += (trail.empty() ? "" : " ") + angle;
            last = angle;
        }
        return trail;
    };
    places_["phase digits"] = [&]() -> std::string {
        const Colour hundreds = panel.Line120.colour;
        if (!(panel.Line121.colour == hundreds)) return "?";
        const std::string first = hundreds == kSegmentRed  ? "1"
                                  : hundreds == kPhaseDark ? "_"
                                                           : "?";
        return first + place(panel.phaseTens, kSegmentRed, kPhaseDark) +
               place(panel.phaseUnits, kSegmentRed, kPhaseDark);
    };
    places_["power"] = [&] { return bench_.state.PowerText.str(); };
    places_["power needle"] = [&] { return degrees(panel.LinePo, 1865); };
    places_["power digits"] = [&] {
        return place(panel.powerTens, kDigitRed, kDigitDark) +
               place(panel.powerUnits, kDigitRed, kDigitDark);
    };
}

void RackView::addQuality() {
    Form_C& panel = bench_.formC;
    places_["19 kHz"] = [&] { return text(panel.Label_19K_FrecError); };
    places_["19 kHz digits"] = [&] {
        const bool bar = panel.Line147.colour == kDigitGreen;
        const bool upright = panel.Line148.colour == kDigitGreen;
        const bool dark = panel.Line148.colour == kDigitDark;
        const std::string sign = bar && upright ? "+" : bar && dark ? "-" : "?";
        return sign + places(panel.error19, kDigitGreen);
    };
    places_["pilot"] = [&] { return text(panel.Label_PilotLevel); };
    places_["pilot digits"] = [&] { return places(panel.pilot, kDigitGreen); };
    places_["left noise"] = [&] { return text(panel.Label_LeftNoise); };
    places_["right noise"] = [&] { return text(panel.Label_RightNoise); };
    places_["noise digits"] = [&] { return places(panel.noise, kDigitRed); };
    places_["left separation"] = [&] { return text(panel.Label_ChannelSep_Left); };
    places_["right separation"] = [&] { return text(panel.Label_ChannelSep_Right); };
    places_["separation digits"] = [&] { return places(panel.separation, kDigitRed); };
    places_["distortion"] = [&] { return text(panel.Label_HarmonicDistortion); };
    places_["distortion digits"] = [&] { return places(panel.distortion, kDigitRed); };
    places_["57 kHz"] = [&] { return text(panel.Label_57K_FrecError); };
    places_["RDS"] = [&] { return text(panel.Label_RDSLevel); };
}

}  // namespace hmonitor::test
