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
    bool damaged = false;            ///< the file of the session holds less than it should

    /// As before any session: the defaults, empty cells and a name that nothing is stored under.
    /// `now` in days since 30 December 1899.
    void NewSessionDefaults(double now);
    /// Takes the session of that file, which then is the current one. False, and no change, when
    /// there is no such file.
    bool LoadSession(const SessionFolder& folder, std::string_view fileName);
    /// Replaces the file by the session in memory; nothing without a name.
    std::optional<FileFault> SaveSession(const SessionFolder& folder, std::string_view fileName);
    /// Counts the level (30 to 100), only while a scan runs.
    void CountLevel(int x, int level);
    /// One sweep more.
    void countSweep();
};

/// What a sweep does to the session: each level is counted, and kept for the text file beside it.
class SweepCounter {
 public:
    explicit SweepCounter(Measurement& measurement) : measurement_(measurement) {}

    /// A scan begins: its ends, and the field correction in dB.
    void beginScan(const ScanRange& range, float correction);
    /// A sweep begins: its text is empty.
    void beginSweep() { text_.begin(); }
    /// A level as the unit gave it at an index; answers the level that counts, 30 to 100.
    int take(int index, float raw);
    /// Replaces the text file of the current session by this sweep.
    std::optional<FileFault> writeText(const SessionFolder& folder) const;

    const ScanRange& range() const { return range_; }

 private:
    Measurement& measurement_;
    ScanRange range_;
    float correction_ = 0;
    SweepText text_;
};

}  // namespace hmonitor
