// SPDX-License-Identifier: GPL-3.0-or-later
#include "drivers/unit/station_results.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cmath>

#include "base/number_in_text.h"
#include "base/number_text.h"
#include "base/plain_text.h"
#include "base/read_file.h"
#include "base/utf8_path.h"
#include "drivers/unit/replace_file.h"

namespace hm16 {

namespace {

constexpr std::size_t kLines = 24;
using Lines = std::array<std::string, kLines>;

std::filesystem::path fileOf(const std::filesystem::path& folder, double frequency) {
    // A frequency that was worked out from megahertz is no whole number to the last bit.
    const double tuned = std::round(100 * frequency) / 100;
    return folder / base::frequencyKey(tuned).append(".dat").view();
}

Lines linesOf(std::string_view text) {
    Lines lines;
    for (auto& line : lines) {
        const auto end = text.find('\n');
        line = base::trimmed(text.substr(0, end));
        if (end == std::string_view::npos) break;
        text.remove_prefix(end + 1);
    }
    return lines;
}

float valueOf(const std::string& line) {
    const double value = base::numberIn(line).value_or(0);
    return std::abs(value) <= 1e6 ? static_cast<float>(value) : 0.0f;
}

// A station is measured for years: longer than a float counts to the second.
double secondsOf(const std::string& line) {
    constexpr double kMost = 1e10;
    const double seconds = base::numberIn(line).value_or(0);
    return seconds >= 0 && seconds <= kMost ? seconds : 0;
}

// In these three fields 0 means that there is no result.
std::optional<float> resultOf(const std::string& line) {
    const float value = valueOf(line);
    return value != 0 ? std::optional(value) : std::nullopt;
}

enum class Best { Lowest, Highest };

void keepBest(std::optional<float>& stored, float reading, Best best) {
    if (reading == 0 || !std::isfinite(reading)) return;
    if (!stored) stored = reading;
    stored = best == Best::Lowest ? std::min(*stored, reading) : std::max(*stored, reading);
}

std::string resultText(const std::optional<float>& stored, int decimals, const char* none) {
    return stored ? base::decimalText(*stored, decimals) : none;
}

std::string twoDigits(int number) {
    std::string text(number < 10 ? 1 : 0, '0');
    return text += std::to_string(number);
}

}  // namespace

StationResults::StationResults(double frequency) : frequency_(frequency) {}

StationResults StationResults::read(const std::filesystem::path& folder, double frequency) {
    const auto file = base::readFile(fileOf(folder, frequency));
    StationResults results = parse(frequency, file.bytes);
    // A folder by that name holds no results.
    results.unread_ = file.reason != 0 && file.reason != ENOENT && file.reason != EISDIR;
    return results;
}

StationResults StationResults::parse(double frequency, std::string_view text) {
    const Lines lines = linesOf(text);
    StationResults results(frequency);
    results.seconds_ = secondsOf(lines[3]);
    results.highestModulation_ = valueOf(lines[4]);
    results.last_.peakModulation = valueOf(lines[5]);
    results.last_.levelFirst = valueOf(lines[6]);
    results.last_.levelSecond = valueOf(lines[7]);
    results.last_.stereoPhase = valueOf(lines[8]);
    results.last_.relativePower = valueOf(lines[9]);
    results.worstMultipath_ = valueOf(lines[10]);
    results.last_.multipath = valueOf(lines[11]);
    results.mostPeaks_ = valueOf(lines[12]);
    results.last_.rdsError = valueOf(lines[13]);
    results.last_.rdsLevel = valueOf(lines[14]);
    results.last_.pilotError = valueOf(lines[15]);
    results.last_.pilotLevel = valueOf(lines[16]);
    results.noiseLeft_ = resultOf(lines[17]);
    results.noiseRight_ = resultOf(lines[18]);
    results.separationLeft_ = resultOf(lines[19]);
    results.separationRight_ = resultOf(lines[20]);
    results.distortion_ = resultOf(lines[21]);
    results.last_.carrierDeviation = valueOf(lines[22]) * 10;
    results.last_.field = valueOf(lines[23]);
    return results;
}

void StationResults::add(const Readings& readings, double seconds) {
    seconds_ += seconds;
    last_ = readings;
    highestModulation_ = std::max(highestModulation_, readings.peakModulation);
    worstMultipath_ = std::max(worstMultipath_, readings.multipath);
    mostPeaks_ = std::max(mostPeaks_, readings.peaksPerMinute);
    keepBest(noiseLeft_, readings.noiseLeft, Best::Lowest);
    keepBest(noiseRight_, readings.noiseRight, Best::Lowest);
    keepBest(separationLeft_, readings.separationLeft, Best::Highest);
    keepBest(separationRight_, readings.separationRight, Best::Highest);
    keepBest(distortion_, readings.distortion, Best::Lowest);
}

void StationResults::join(const StationResults& earlier) {
    seconds_ += earlier.seconds_;
    highestModulation_ = std::max(highestModulation_, earlier.highestModulation_);
    worstMultipath_ = std::max(worstMultipath_, earlier.worstMultipath_);
    mostPeaks_ = std::max(mostPeaks_, earlier.mostPeaks_);
    keepBest(noiseLeft_, earlier.noiseLeft_.value_or(0), Best::Lowest);
    keepBest(noiseRight_, earlier.noiseRight_.value_or(0), Best::Lowest);
    keepBest(separationLeft_, earlier.separationLeft_.value_or(0), Best::Highest);
    keepBest(separationRight_, earlier.separationRight_.value_or(0), Best::Highest);
    keepBest(distortion_, earlier.distortion_.value_or(0), Best::Lowest);
}

void StationResults::clear(StoredResult what) {
    switch (what) {
        case StoredResult::Noise:
            noiseLeft_.reset();
            noiseRight_.reset();
            return;
        case StoredResult::Distortion:
            distortion_.reset();
            return;
        case StoredResult::Separation:
            separationLeft_.reset();
            separationRight_.reset();
            return;
    }
}

std::string StationResults::text(const LocalTime& now) const {
    const Lines lines = {
        base::decimalText(frequency_, 2),
        dayMark(now),
        twoDigits(now.hour) + ":" + twoDigits(now.minute),
        base::decimalText(std::floor(seconds_), 0),
        base::decimalText(highestModulation_, 1),
        base::decimalText(last_.peakModulation, 1),
        base::decimalText(last_.levelFirst, 1),
        base::decimalText(last_.levelSecond, 1),
        base::decimalText(last_.stereoPhase, 1),
        base::decimalText(last_.relativePower, 2),
        base::decimalText(worstMultipath_, 1),
        base::decimalText(last_.multipath, 1),
        base::decimalText(mostPeaks_, 0),
        base::decimalText(last_.rdsError, 2),
        base::decimalText(last_.rdsLevel, 2),
        base::decimalText(last_.pilotError, 2),
        base::decimalText(last_.pilotLevel, 2),
        resultText(noiseLeft_, 1, "xx"),
        resultText(noiseRight_, 1, "xx"),
        resultText(separationLeft_, 1, "0"),
        resultText(separationRight_, 1, "0"),
        resultText(distortion_, 2, "0"),
        base::decimalText(last_.carrierDeviation / 10, 2),
        base::decimalText(last_.field, 1),
    };
    std::string text;
    for (const auto& line : lines) text += line + "\r\n";
    return text;
}

std::optional<std::string> StationResults::write(const std::filesystem::path& folder,
                                                 const LocalTime& now) {
    if (unread_) {
        const auto file = fileOf(folder, frequency_);
        const auto read = base::readFile(file);
        if (!read && read.reason != ENOENT)
            return base::notRead(base::utf8Of(file), read.reason) + ".";
        join(parse(frequency_, read.bytes));
        unread_ = false;
    }
    return replaceFile(fileOf(folder, frequency_), text(now));
}

}  // namespace hm16
