// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/absence.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string>

#include "drivers/unit/standard_error.h"

namespace hm16 {

namespace {

HM16_AbsenceInfo told{};

// As much of the text as there is room for, cut between two characters.
template <std::size_t kRoom>
void fill(char (&into)[kRoom], std::string_view text) {
    const std::string line = printable(text);
    std::size_t length = std::min(line.size(), kRoom - 1);
    const auto continues = [&](std::size_t at) {
        return (static_cast<unsigned char>(line[at]) & 0xc0) == 0x80;
    };
    while (length > 0 && length < line.size() && continues(length)) --length;
    std::memset(into, 0, kRoom);
    std::memcpy(into, line.data(), length);
}

std::int32_t HM16_CALL why(HM16_AbsenceInfo* info) {
    if (info == nullptr || info->size < sizeof info->size) return 1;
    HM16_AbsenceInfo copy = told;
    copy.size = std::min<std::uint32_t>(info->size, sizeof copy);
    std::memcpy(info, &copy, copy.size);
    return 0;
}

constexpr HM16_AbsenceV1 kAbsence{sizeof(HM16_AbsenceV1), why};

}  // namespace

void tellAbsence(std::int32_t cause, std::string_view what, std::string_view words) {
    told.cause = cause;
    fill(told.what, what);
    fill(told.words, words);
}

void forgetAbsence() {
    told = {};
}

const HM16_AbsenceV1& absenceExtension() {
    return kAbsence;
}

}  // namespace hm16
