// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/limit_watch.h"

#include <utility>

namespace hmonitor {

namespace {

bool sameBounds(const figures::Bounds& one, const figures::Bounds& other) {
    return one.lowest == other.lowest && one.highest == other.highest;
}

/// Whether the figure is of a subcarrier, pilot or RDS, that the station does not send. Its level
/// is known then and says nothing about how well it is set.
bool ofMissingSubcarrier(const figures::Figure& figure, const figures::Readings& readings) {
    using figures::Readings;
    const auto is = [&figure](const char* error, figures::Output level) {
        const figures::Figure& its = *figures::find(error);
        return figure.source.output == level || &figure == &its ? &its : nullptr;
    };
    const figures::Figure* error = is("pilot_error", &Readings::pilotLevel);
    if (!error) error = is("rds_error", &Readings::rdsLevel);
    return error && figures::knownWhen(*error, readings) != figures::State::Known;
}

LimitWatch::Time timeOf(double seconds) {
    return std::chrono::duration_cast<LimitWatch::Time>(std::chrono::duration<double>(seconds));
}

std::size_t indexOf(const figures::Figure& figure) {
    return static_cast<std::size_t>(&figure - figures::all().data());
}

}  // namespace

bool sameRule(const LimitRule& one, const LimitRule& other) {
    return one.name == other.name && one.figure == other.figure &&
           sameBounds(one.good, other.good) && one.holdsFor == other.holdsFor &&
           one.release == other.release && one.severity == other.severity;
}

void LimitWatch::watch(std::vector<LimitRule> rules) {
    rules_ = std::move(rules);
    forget();
}

void LimitWatch::forget() {
    progress_.assign(rules_.size(), {});
    last_.reset();
}

void LimitWatch::interrupt() {
    for (Progress& progress : progress_) progress.since.reset();
}

void LimitWatch::take(const figures::Readings& readings,
                      std::span<const figures::State, figures::kCount> states, Time now) {
    if (last_ && now - *last_ > kLongestGap) interrupt();
    last_ = now;
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        const figures::Figure& figure = *rules_[i].figure;
        // A mono station has a pilot of 0 percent, which breaks no rule of how a pilot is to be
        // set.
        if (states[indexOf(figure)] != figures::State::Known ||
            ofMissingSubcarrier(figure, readings)) {
            progress_[i].since.reset();
            continue;
        }
        take(rules_[i], progress_[i], figures::valueOf(figure, readings), now);
    }
}

void LimitWatch::take(const LimitRule& rule, Progress& progress, float value, Time now) {
    const bool low = value < rule.good.lowest;
    const bool beyond = low || value > rule.good.highest;
    if (beyond) progress.side = low ? LimitAlarm::Side::Low : LimitAlarm::Side::High;
    if (beyond == progress.on) {
        progress.since.reset();
        return;
    }
    if (!progress.since) progress.since = now;
    if (now - *progress.since < timeOf(progress.on ? rule.release : rule.holdsFor)) return;
    progress.on = beyond;
    progress.since.reset();
}

std::optional<LimitAlarm> LimitWatch::of(const figures::Figure& figure) const {
    std::optional<LimitAlarm> worst;
    for (std::size_t i = 0; i < rules_.size(); ++i) {
        const LimitRule& rule = rules_[i];
        if (!progress_[i].on || rule.figure != &figure) continue;
        if (worst && worst->severity >= rule.severity) continue;
        worst = {progress_[i].side, rule.severity, &rule};
    }
    return worst;
}

}  // namespace hmonitor
