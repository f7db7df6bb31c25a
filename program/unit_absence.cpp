// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/unit_absence.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/utf8.h"

namespace hmonitor {

namespace {

using Cause = UnitAbsence::Cause;

Cause causeOf(std::int32_t said) {
    switch (said) {
        case HM16_NO_RADIO:
            return Cause::NoRadio;
        case HM16_NO_SOAPY:
            return Cause::NoSoapy;
        case HM16_BAD_RADIO:
            return Cause::BadRadio;
        case HM16_BAD_SETTING:
            return Cause::BadSetting;
        case HM16_BAD_RECORDING:
            return Cause::BadRecording;
        default:
            return Cause::NotTold;
    }
}

/// A control character or a broken one is a blank.
template <std::size_t kRoom>
std::string lineOf(const char (&text)[kRoom]) {
    constexpr std::size_t kMost = 240;
    std::string_view rest(text, kRoom);
    rest = rest.substr(0, rest.find('\0'));
    std::string line;
    while (!rest.empty()) {
        if (line.size() >= kMost) return line + "…";
        const base::Character character = base::firstCharacter(rest);
        const char32_t number = character.number.value_or(0);
        const bool prints = number >= 0x20 && (number < 0x7f || number >= 0xa0);
        line += prints ? rest.substr(0, character.size) : " ";
        rest.remove_prefix(character.size);
    }
    return line;
}

}  // namespace

UnitAbsence unitAbsence(const HM16_AbsenceInfo& said) {
    return {causeOf(said.cause), lineOf(said.what), lineOf(said.words)};
}

}  // namespace hmonitor
