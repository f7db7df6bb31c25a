// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "analyzer/density.h"
#include "analyzer/scan_rules.h"
#include "analyzer/session_bytes.h"
#include "analyzer/session_folder.h"
#include "analyzer/session_info.h"

namespace hmonitor {

/// The analyzer's session in memory, one for the whole program.
struct Measurement {
    int ScanRunning = 0;  ///< -1 while a scan runs
    Density SpectralDensity;
    hmonitor::SessionInfo SessionInfo;
    std::string CurrentSessionFile;  ///< without a folder; empty: none
    bool damaged = false;            ///< the session's file is damaged

    /// Resets everything: default values, empty cells and no name. `now` in days since 30 December
    /// 1899.
    void NewSessionDefaults(double now);
    /// Loads the session of that file and makes it the current one. False, with no change, when
    /// there is no such file.
    bool LoadSession(const SessionFolder& folder, std::string_view fileName);
    /// Writes the session to its file; does nothing without a name.
    std::optional<FileFault> SaveSession(const SessionFolder& folder, std::string_view fileName);
    /// Counts a level (30 to 100), if a scan is running.
    void CountLevel(int x, int level);
    /// Counts a sweep.
    void countSweep();
};

/// Puts the levels of a sweep into the session: counts each, and keeps it for the text file beside
/// it.
class SweepCounter {
 public:
    explicit SweepCounter(Measurement& measurement) : measurement_(measurement) {}

    /// A scan begins: its ends, and the field correction in dB.
    void beginScan(const ScanRange& range, float correction);
    /// A sweep begins: its text is empty.
    void beginSweep() { text_.begin(); }
    /// Takes a level of the unit at an index; returns the level that is counted, 30 to 100.
    int take(int index, float raw);
    /// Writes this sweep to the text file of the current session.
    std::optional<FileFault> writeText(const SessionFolder& folder) const;

    const ScanRange& range() const { return range_; }

 private:
    Measurement& measurement_;
    ScanRange range_;
    float correction_ = 0;
    SweepText text_;
};

}  // namespace hmonitor
