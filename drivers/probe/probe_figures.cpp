// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/probe/probe_figures.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <vector>

#include "base/number_text.h"
#include "drivers/probe/driving.h"

namespace hm16::probe {

namespace {

constexpr const char* kNoFigures = "This library tells no figures beyond the nineteen functions.";
constexpr std::int32_t kRoom = 64;

std::string shortText(double value) {
    std::array<char, 64> text;
    const auto done =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::general, 7);
    return {text.data(), done.ptr};
}

std::vector<HM16_FigureInfo> figuresOf(const HM16_FiguresV1& figures) {
    std::vector<HM16_FigureInfo> infos;
    for (std::int32_t n = 0; n < figures.count(); ++n) {
        HM16_FigureInfo info{};
        info.size = sizeof info;
        if (figures.describe(n, &info) == 0) infos.push_back(info);
    }
    return infos;
}

const HM16_FiguresV1* figuresIn(HM16_ExtensionFunction extension) {
    return extension == nullptr ? nullptr
                                : static_cast<const HM16_FiguresV1*>(extension(HM16_FIGURES));
}

// Missing slots are written as a comment, so that a loss is visible.
void printGap(std::uint64_t expected, std::uint64_t number, std::ostream& out) {
    if (number > expected) out << "# " << number - expected << " slots were lost.\n";
}

void printSlot(const HM16_Slot& slot, std::size_t figures, std::ostream& out) {
    out << slot.number << ',' << base::decimalText(static_cast<double>(slot.utcNs) / 1e9, 3) << ','
        << base::decimalText(static_cast<double>(slot.signalNs) / 1e9, 3);
    for (std::size_t n = 0; n < figures; ++n) {
        out << ',';
        if (slot.state[n] == HM16_KNOWN) {
            out << shortText(slot.value[n]);
        } else {
            out << stateWords(slot.state[n]);
        }
    }
    out << '\n';
}

}  // namespace

std::string stateWords(int state) {
    constexpr std::array kWords{
        "known", "settling",  "no carrier", "too noisy",    "multipath",    "no pilot", "overload",
        "gap",   "unit away", "stale",      "not measured", "out of range", "too slow"};
    if (state < 0 || state >= static_cast<int>(kWords.size()))
        return "state " + std::to_string(state);
    return kWords[static_cast<std::size_t>(state)];
}

std::string listFigures(HM16_ExtensionFunction extension, std::ostream& out) {
    for (const char* id : {HM16_FIGURES, HM16_LISTEN}) {
        const bool has = extension != nullptr && extension(id) != nullptr;
        out << "# " << id << (has ? ": yes\n" : ": no\n");
    }
    const HM16_FiguresV1* const figures = figuresIn(extension);
    if (figures == nullptr) return kNoFigures;
    out << "index,key,unit,lowest,highest\n";
    int index = 0;
    for (const HM16_FigureInfo& info : figuresOf(*figures)) {
        out << index++ << ',' << info.key << ',' << info.unit << ',' << shortText(info.lowest)
            << ',' << shortText(info.highest) << '\n';
    }
    return "";
}

std::string printSlots(const HM16_Functions& driver, HM16_ExtensionFunction extension,
                       HM16_StepFunction step, const Options& options, std::ostream& out) {
    const HM16_FiguresV1* const figures = figuresIn(extension);
    if (figures == nullptr) return kNoFigures;
    const auto infos = figuresOf(*figures);
    out << "number,utc_s,signal_s";
    for (const HM16_FigureInfo& info : infos) out << ',' << info.key;
    out << '\n';
    std::vector<HM16_Slot> slots(kRoom);
    std::uint64_t next = 0;
    tune(driver, options, ResponseRun::Off);
    RunClock clock(step);
    for (long look = 1; look * options.every <= options.seconds; ++look) {
        const bool more = clock.passUntil(look * options.every);
        std::int32_t came = kRoom;
        while (came == kRoom) {
            std::uint64_t expected = next;
            came = figures->slots(0, next, slots.data(), sizeof(HM16_Slot), kRoom, &next);
            for (std::int32_t n = 0; n < came; ++n) {
                const HM16_Slot& slot = slots[static_cast<std::size_t>(n)];
                printGap(expected, slot.number, out);
                printSlot(slot, infos.size(), out);
                expected = slot.number + 1;
            }
        }
        if (!more) break;
    }
    driver.parar();
    return next > 0 ? "" : "No slot came within " + base::decimalText(options.seconds, 3) + " s.";
}

}  // namespace hm16::probe
