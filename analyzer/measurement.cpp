// SPDX-License-Identifier: GPL-3.0-or-later
#include "analyzer/measurement.h"

#include <cstdint>
#include <limits>

#include "analyzer/session_names.h"

namespace hmonitor {

void Measurement::NewSessionDefaults(double now) {
    SessionInfo = newSessionInfo(now);
    SpectralDensity.clear();
    CurrentSessionFile = std::string(kNoName) + std::string(kSessionEnding);
    damaged = false;
}

bool Measurement::LoadSession(const SessionFolder& folder, std::string_view fileName) {
    if (fileName.empty() || !folder.exists(fileName)) return false;
    const FileResult<std::string> bytes = folder.read(fileName);
    // A file that cannot be read counts as an empty one.
    const std::string_view there = bytes ? std::string_view(*bytes) : std::string_view();
    damaged = readSession(there, SessionInfo, SpectralDensity) == SessionCondition::Damaged;
    CurrentSessionFile = fileName;
    return true;
}

std::optional<FileFault> Measurement::SaveSession(const SessionFolder& folder,
                                                  std::string_view fileName) {
    if (fileName.empty()) return std::nullopt;
    auto fault = folder.write(fileName, sessionBytes(SessionInfo, SpectralDensity));
    if (!fault) damaged = false;
    return fault;
}

void Measurement::CountLevel(int x, int level) {
    if (ScanRunning != 0) SpectralDensity.count(x, level);
}

void Measurement::countSweep() {
    if (SessionInfo.Acquisitions < std::numeric_limits<std::int32_t>::max())
        ++SessionInfo.Acquisitions;
}

void SweepCounter::beginScan(const ScanRange& range, float correction) {
    range_ = range;
    correction_ = correction;
    text_.begin();
}

int SweepCounter::take(int index, float raw) {
    const int level = scanLevel(raw, correction_);
    measurement_.CountLevel(index, level);
    text_.add(level);
    return level;
}

std::optional<FileFault> SweepCounter::writeText(const SessionFolder& folder) const {
    return folder.write(sweepFileName(measurement_.CurrentSessionFile), text_.bytes(range_));
}

}  // namespace hmonitor
