// SPDX-License-Identifier: GPL-3.0-or-later
#include "program/limit_alarms.h"

#include <chrono>
#include <utility>
#include <variant>

namespace hmonitor {

void LimitAlarms::read(const Files& files) {
    LimitsFile::Parsed parsed = LimitsFile::read(files);
    if (auto* wrong = std::get_if<LimitsFault>(&parsed)) {
        take(LimitsFile::usual());
        fault_ = std::move(*wrong);
    } else {
        take(std::get<LimitsFile>(std::move(parsed)));
    }
}

void LimitAlarms::take(LimitsFile limits) {
    fault_.reset();
    limits_ = std::move(limits);
    watch_.watch(limits_.rules);
    ++revision_;
}

std::optional<FileFault> LimitAlarms::store(const Files& files, LimitsFile limits) {
    if (fault_) {
        const auto faulty = files.read(LimitsFile::kFileName);
        if (faulty) {
            if (auto fault = files.rewrite(LimitsFile::kFaultyName, *faulty)) return fault;
        }
    }
    if (auto fault = limits.write(files)) return fault;
    take(std::move(limits));
    return std::nullopt;
}

void LimitAlarms::tuned(const Tuned& tuned) {
    if (station_ == tuned.frequency) {
        watch_.interrupt();
    } else {
        watch_.forget();
    }
    station_ = tuned.frequency;
}

void LimitAlarms::measured(const Measured& measured) {
    watch_.take(measured.readings, measured.states,
                std::chrono::duration_cast<LimitWatch::Time>(measured.at));
}

}  // namespace hmonitor
