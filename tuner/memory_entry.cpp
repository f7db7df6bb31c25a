// SPDX-License-Identifier: GPL-3.0-or-later
#include "tuner/memory_entry.h"

#include <string>

#include "core/code_page.h"
#include "core/numbers.h"
#include "tuner/half_step_text.h"

namespace hmonitor {

namespace {

constexpr double kLowest = 875;          // 87.5 MHz
constexpr double kHighest = 1080;        // 108.0 MHz
constexpr double kLastWithPoint = 8740;  // more than that was typed without the point

HalfStepText splitTyped(std::string_view typed) {
    const bool hasPoint = typed.find('.') != std::string_view::npos;
    return hasPoint ? splitMegahertz(typed) : splitDigits(typed);
}

}  // namespace

std::optional<SmallText> recordFrequency(std::string_view typed) {
    const std::string characters = codePageFromUtf8(typed);
    const HalfStepText split = splitTyped(characters);
    double tenths = valueOf(split.text) * 10;
    if (tenths < kLowest) return std::nullopt;
    if (tenths > kLastWithPoint) tenths /= 10;
    if (tenths > kHighest) return std::nullopt;
    SmallText text = shortText(tenths);
    if (split.half == HalfStep::Yes) text.append('5');
    return text;
}

SmallText megahertzText(const StoredFrequency& frequency) {
    const SmallText digits = shortText(frequency.frequency);
    const std::string_view text = digits;
    const std::size_t whole = frequency.frequency < 1000 ? 2 : 3;
    SmallText shown = text.substr(0, whole);
    shown.append('.');
    if (text.size() > whole) shown.append(text.substr(whole, 1));
    return frequency.half == HalfStep::Yes ? shown.append('5') : shown;
}

}  // namespace hmonitor
