// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <optional>
#include <string>

#include "core/limit_watch.h"
#include "display/controls/pictures.h"
#include "display/form.h"

namespace hmonitor {

class LimitAlarms;

/// The marks of a rack panel for figures beyond their limits: a frame around the figure and a word
/// beside it, amber for a warning, red and with an exclamation mark for an alarm. The figures keep
/// their colours and nothing moves.
class LimitMarks {
 public:
    /// A mark for each figure that the panel of that name shows. Must be declared behind the
    /// controls that it marks, since it lies above them.
    explicit LimitMarks(display::Form& form);

    /// Places the marks, all hidden, around what is laid out already.
    void layOut();
    void show(const LimitAlarms& alarms);

 private:
    struct Mark {
        Mark(display::Form& form, const figures::Figure& figure, const char* around, bool inside);

        const figures::Figure& figure;
        const char* around;
        bool inside;  ///< the word stands in the frame, else on its lower edge
        std::string spanishName, englishName;  ///< of the word, for a screen reader
        display::Picture frame, word;
        std::string spanish, english;  ///< the word's tool tip
        std::optional<LimitAlarm> shown;
    };
    void layOut(Mark& mark);
    void show(Mark& mark, const std::optional<LimitAlarm>& alarm);
    void tell(Mark& mark, const LimitAlarm& alarm);

    display::Form& form_;
    std::deque<Mark> marks_;
    int revision_ = -1;  ///< of the rules that the marks tell
};

/// The word for a figure beyond its limit.
display::Words limitWord(const LimitAlarm& alarm);

/// "F-Mod: over 77 kHz" and so on: what a rule asks of its figure, in the language.
std::string limitCondition(const LimitRule& rule, display::Language language);

}  // namespace hmonitor
