// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/limit_marks.h"

#include <cmath>

#include "core/limits_file.h"
#include "program/limit_alarms.h"

namespace hmonitor {

namespace {

using display::Box;
using display::Language;

/// Where the rack marks a figure.
struct Marked {
    const char* figure;
    const char* form;
    const char* around;  ///< the control that wears the frame
    bool inside;         ///< there is room in it for the word, left of the figure
};

constexpr Marked kMarked[] = {
    {"deviation_peak", "Form1", "DeviationWell", true},
    {"level_left", "Form_B", "PromL", false},
    {"level_right", "Form_B", "PromR", false},
    {"level_sum", "Form_B", "PromL", false},
    {"level_difference", "Form_B", "PromR", false},
    {"stereo_phase", "Form_B", "PhaseReadout", true},
    {"relative_power", "Form_B", "PowerDigits", true},
    {"pilot_error", "Form_C", "Error19Well", false},
    {"pilot_level", "Form_C", "PilotWell", false},
    {"noise_left", "Form_C", "Label_LeftNoise", false},
    {"noise_right", "Form_C", "Label_RightNoise", false},
    {"separation_left", "Form_C", "Label_ChannelSep_Left", false},
    {"separation_right", "Form_C", "Label_ChannelSep_Right", false},
    {"distortion", "Form_C", "DistortionWell", false},
    {"carrier_error", "Form1", "CarrierWell", true},
    {"field", "Form1", "FieldWell", true},
    {"multipath", "Form1", "MultipathWell", false},
    {"peaks_per_minute", "Form1", "PeaksWell", true},
    {"rds_error", "Form_C", "Error57Well", false},
    {"rds_level", "Form_C", "RdsWell", false},
};

constexpr float kWordWidth = 480;
constexpr float kWordHeight = 140;
/// How much of a word that stands below lies over its frame: no figure reaches down there.
constexpr float kBelow = 45;
constexpr float kRim = 25;

Box wordBox(const Box& frame, bool inside) {
    if (inside) {
        return {frame.left + 70, frame.top + (frame.height - kWordHeight) / 2, kWordWidth,
                kWordHeight};
    }
    return {frame.left + 40, frame.bottom() - kBelow, kWordWidth, kWordHeight};
}

/// A figure that shares its well has the well's height; one on a plate of its own a little more.
Box frameBox(const display::Control& around) {
    const Box box = around.boxOnForm();
    const auto* label = dynamic_cast<const display::Label*>(&around);
    if (!label) return box;
    if (label->surface == display::Surface::Plate) {
        return {box.left - kRim, box.top - kRim, box.width + 2 * kRim, box.height + 2 * kRim};
    }
    const Box well = label->container.get()->boxOnForm();
    return {box.left, well.top, box.width + kRim, well.height};
}

}  // namespace

display::Words limitWord(const LimitAlarm& alarm) {
    const bool high = alarm.side == LimitAlarm::Side::High;
    if (alarm.severity == LimitSeverity::Alarm) {
        return high ? display::Words{"¡ALTO!", "HIGH!"} : display::Words{"¡BAJO!", "LOW!"};
    }
    return high ? display::Words{"ALTO", "HIGH"} : display::Words{"BAJO", "LOW"};
}

std::string limitCondition(const LimitRule& rule, Language language) {
    const bool spanish = language == Language::Spanish;
    const figures::Figure& figure = *rule.figure;
    const std::string unit = *figure.unit ? std::string(" ") + figure.unit : "";
    const bool low = std::isfinite(rule.good.lowest), high = std::isfinite(rule.good.highest);
    const auto number = [](float bound) { return limitText(bound); };
    std::string text(spanish ? figure.name.spanish : figure.name.english);
    if (low && high) {
        return text + (spanish ? ": fuera de " : ": outside ") + number(rule.good.lowest) +
               (spanish ? " a " : " to ") + number(rule.good.highest) + unit;
    }
    if (low) return text + (spanish ? ": menos de " : ": below ") + number(rule.good.lowest) + unit;
    return text + (spanish ? ": más de " : ": over ") + number(rule.good.highest) + unit;
}

LimitMarks::Mark::Mark(display::Form& form, const figures::Figure& itsFigure, const char* itsAround,
                       bool itsInside)
    : figure(itsFigure),
      around(itsAround),
      inside(itsInside),
      spanishName(std::string("Límite: ") + itsFigure.name.spanish),
      englishName(std::string("Limit: ") + itsFigure.name.english),
      frame(form, std::string("LimitFrame_") + itsFigure.key),
      word(form, std::string("LimitWord_") + itsFigure.key) {
    word.reading = [this] { return std::string(word.caption.get()); };
}

LimitMarks::LimitMarks(display::Form& form) : form_(form) {
    for (const Marked& marked : kMarked) {
        if (form.name() != marked.form) continue;
        marks_.emplace_back(form, *figures::find(marked.figure), marked.around, marked.inside);
    }
}

void LimitMarks::layOut() {
    for (Mark& mark : marks_) layOut(mark);
}

void LimitMarks::layOut(Mark& mark) {
    const Box frame = frameBox(*form_.find(mark.around));
    mark.shown.reset();
    place(mark.frame, frame, "LimitWarning", display::Hidden{});
    place(mark.word, wordBox(frame, mark.inside), "LimitWarningWord", display::Hidden{},
          display::Says{{mark.spanishName.c_str(), mark.englishName.c_str()}});
}

void LimitMarks::show(const LimitAlarms& alarms) {
    const bool otherRules = revision_ != alarms.revision();
    revision_ = alarms.revision();
    for (Mark& mark : marks_) {
        if (otherRules) mark.shown.reset();
        show(mark, alarms.of(mark.figure));
    }
}

void LimitMarks::show(Mark& mark, const std::optional<LimitAlarm>& alarm) {
    mark.frame.visible = alarm.has_value();
    mark.word.visible = alarm.has_value();
    const bool same = alarm && mark.shown && alarm->side == mark.shown->side &&
                      alarm->severity == mark.shown->severity && alarm->rule == mark.shown->rule;
    if (alarm && !same) tell(mark, *alarm);
    mark.shown = alarm;
}

void LimitMarks::tell(Mark& mark, const LimitAlarm& alarm) {
    const bool red = alarm.severity == LimitSeverity::Alarm;
    mark.frame.picture = red ? "LimitAlarm" : "LimitWarning";
    mark.word.picture = red ? "LimitAlarmWord" : "LimitWarningWord";
    mark.word.caption = wordsIn(form_.language, limitWord(alarm));
    mark.spanish = limitCondition(*alarm.rule, Language::Spanish);
    mark.english = limitCondition(*alarm.rule, Language::English);
    mark.word.tip = {mark.spanish.c_str(), mark.english.c_str()};
}

}  // namespace hmonitor
