// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/receiver/survey/survey.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <iterator>
#include <thread>

#include "drivers/unit/slot_ring.h"

namespace hm16::receiver {
namespace {

constexpr double kFirstMhz = 87.5;
constexpr double kLastMhz = 108;
constexpr double kStepMhz = 0.1;

// A station stands so far above the quietest channels of its band.
constexpr float kAboveFloorDb = 10;
// Of two channels closer than that one is the other's edge.
constexpr double kApartMhz = 0.16;

constexpr double kLookSeconds = 0.3;
constexpr double kCarrierSeconds = 1.5;
constexpr double kNameSeconds = 4;
constexpr double kPatienceSeconds = 60;

double powerOf(float level) {
    return level > 0 ? std::pow(10.0, level / 10) : 0;
}

// The levels of whole channels, from those of steps half as wide.
std::vector<float> channelLevels(const std::vector<float>& levels) {
    std::vector<float> wide(levels.size());
    for (std::size_t n = 0; n < levels.size(); ++n) {
        double power = powerOf(levels[n]);
        if (n > 0) power += powerOf(levels[n - 1]) / 2;
        if (n + 1 < levels.size()) power += powerOf(levels[n + 1]) / 2;
        wide[n] = power > 0 ? static_cast<float>(10 * std::log10(power)) : 0;
    }
    return wide;
}

bool isPeak(const std::vector<float>& levels, std::size_t n) {
    return (n == 0 || levels[n - 1] < levels[n]) &&
           (n + 1 == levels.size() || levels[n + 1] <= levels[n]);
}

std::string withoutBlanks(std::string text) {
    const auto last = text.find_last_not_of(' ');
    text.erase(last == std::string::npos ? 0 : last + 1);
    text.erase(0, text.find_first_not_of(' '));
    return text;
}

// Lets so much of the signal pass; false when it has ended.
bool pass(ReceiverUnit& unit, double seconds) {
    if (unit.step(0)) return unit.step(static_cast<int>(std::lround(seconds / kUnitSlotSeconds)));
    std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    return true;
}

std::vector<float> frameOf(ReceiverUnit& unit) {
    const SweepRange range{10 * kFirstMhz, 10 * kLastMhz, 100};
    unit.sweep(range);
    const auto start = std::chrono::steady_clock::now();
    while (!unit.frames().frameArrived()) {
        if (unit.step(0)) {
            if (!unit.step(1)) break;
            continue;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
        if (std::chrono::steady_clock::now() - start >
            std::chrono::duration<double>(kPatienceSeconds))
            break;
    }
    unit.stop();
    std::vector<float> levels;
    for (int n = 0; n < range.points(); ++n)
        levels.push_back(unit.frames().level(range.frequency(n)));
    return levels;
}

// True when a modulated carrier stands there; its name then, as far as it is sent.
bool listen(ReceiverUnit& unit, FoundStation& station) {
    unit.measure({.frequency = 10 * station.mhz});
    bool carrier = false;
    for (double heard = 0; !carrier && heard < kCarrierSeconds; heard += kLookSeconds) {
        pass(unit, kLookSeconds);
        carrier = unit.heard().carrier;
    }
    for (double heard = 0; carrier && heard < kNameSeconds; heard += kLookSeconds) {
        const Figures figures = unit.heard();
        station.name = withoutBlanks(figures.rdsName);
        // Data takes a moment longer to be seen than the carrier.
        if (!station.name.empty() || (heard > kCarrierSeconds && !figures.rds)) break;
        pass(unit, kLookSeconds);
    }
    unit.stop();
    return carrier;
}

}  // namespace

std::vector<FoundStation> loudChannels(const std::vector<float>& levels, double firstMhz) {
    std::vector<float> received;
    std::copy_if(levels.begin(), levels.end(), std::back_inserter(received),
                 [](float level) { return level > 0; });
    if (received.empty()) return {};
    const auto quiet = received.begin() + static_cast<std::ptrdiff_t>(received.size() / 10);
    std::nth_element(received.begin(), quiet, received.end());
    const float floor = *quiet;
    const std::vector<float> wide = channelLevels(levels);
    std::vector<std::size_t> order(levels.size());
    for (std::size_t n = 0; n < order.size(); ++n) order[n] = n;
    std::stable_sort(order.begin(), order.end(),
                     [&](std::size_t a, std::size_t b) { return wide[a] > wide[b]; });
    std::vector<FoundStation> found;
    for (const std::size_t n : order) {
        if (wide[n] < floor + kAboveFloorDb) break;
        // Strong modulation leaves little in the middle of a channel, and a strong neighbour fills
        // the step in between: a station is a peak of one or the other.
        if (!isPeak(levels, n) && !isPeak(wide, n)) continue;
        const double mhz = firstMhz + kStepMhz * static_cast<double>(n);
        const bool edge = std::any_of(found.begin(), found.end(), [&](const FoundStation& other) {
            return std::fabs(other.mhz - mhz) < kApartMhz;
        });
        if (!edge) found.push_back({mhz, wide[n], ""});
    }
    return found;
}

std::vector<FoundStation> surveyBand(ReceiverUnit& unit, std::size_t most) {
    std::vector<FoundStation> stations;
    for (FoundStation& candidate : loudChannels(frameOf(unit), kFirstMhz)) {
        if (stations.size() == most) break;
        if (listen(unit, candidate)) stations.push_back(candidate);
    }
    return stations;
}

}  // namespace hm16::receiver
