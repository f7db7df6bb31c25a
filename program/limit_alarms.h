// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>

#include "core/limit_watch.h"
#include "core/limits_file.h"
#include "program/door_listener.h"

namespace hmonitor {

/// The limits of the figures: reads and stores `limits.ini`, and watches what passes the driver
/// door. Forms ask it what to show.
class LimitAlarms final : public DoorListener {
 public:
    /// Takes the rules of the folder; while they cannot be read, the usual ones hold.
    void read(const Files& files);
    /// Writes these rules and watches by them. A file with a fault is kept beside. Where the file
    /// cannot be written, nothing changes.
    std::optional<FileFault> store(const Files& files, LimitsFile limits);

    const LimitsFile& limits() const { return limits_; }
    /// Why the file's own rules do not hold.
    const std::optional<LimitsFault>& fault() const { return fault_; }

    /// Grows with each change of the rules.
    int revision() const { return revision_; }

    /// The worst that holds for the figure now.
    std::optional<LimitAlarm> of(const figures::Figure& figure) const { return watch_.of(figure); }

    void tuned(const Tuned& tuned) override;
    void measured(const Measured& measured) override;

 private:
    void take(LimitsFile limits);

    LimitsFile limits_ = LimitsFile::usual();
    std::optional<LimitsFault> fault_;
    LimitWatch watch_;
    std::optional<float> station_;
    int revision_ = 0;
};

}  // namespace hmonitor
