// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/keypad_entry.h"

#include <string>

#include "core/code_page.h"
#include "core/numbers.h"
#include "tuner/half_step_text.h"

namespace hmonitor {

std::optional<StoredFrequency> keypadFrequency(std::string_view typed) {
    constexpr double kLowest = 875;
    constexpr double kHighest = 1080;
    const std::string characters = codePageFromUtf8(typed);
    const HalfStepText split = splitDigits(characters);
    const double frequency = valueOf(split.text);
    if (frequency < kLowest || frequency > kHighest) return std::nullopt;
    return StoredFrequency{frequency, split.half};
}

bool canBecomeTunable(std::string_view typed) {
    constexpr int kLowest = 875;
    constexpr int kHighest = 1080;
    const std::size_t digits = typed.find_first_not_of('0');
    if (digits == std::string_view::npos) return true;
    typed.remove_prefix(digits);
    for (int frequency = kLowest; frequency <= kHighest; ++frequency) {
        const SmallText halfStep = wholeText(10 * frequency + 5);
        if (halfStep.view().starts_with(typed)) return true;
    }
    return false;
}

}  // namespace hmonitor
