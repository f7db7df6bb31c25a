// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/results_file.h"

#include "core/code_page.h"
#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

constexpr int kNoiseLeft = 18;
constexpr int kNoiseRight = 19;
constexpr int kSeparationLeft = 20;
constexpr int kSeparationRight = 21;
constexpr int kDistortion = 22;

}  // namespace

ResultsFile ResultsFile::read(const Files& files, double frequency) {
    return readNamed(files, frequencyFileName(frequency, ".dat"));
}

ResultsFile ResultsFile::readNamed(const Files& files, std::string_view name) {
    ResultsFile results;
    const auto bytes = files.read(name);
    if (!bytes) return results;
    results.isThere_ = true;
    TextLines text(*bytes);
    while (results.lines_.size() < kLines) {
        const auto line = text.next();
        if (!line) break;
        results.lines_.push_back(utf8FromCodePage(*line));
    }
    return results;
}

std::optional<std::string_view> ResultsFile::line(int n) const {
    if (n < 1 || static_cast<std::size_t>(n) > lines_.size()) return std::nullopt;
    return lines_[static_cast<std::size_t>(n - 1)];
}

void ResultsFile::putFloors(StationState& state) const {
    const auto value = [&](int n) { return valueOf(line(n).value_or("0")); };
    state.FloorNoiseL = line(kNoiseLeft).value_or("xx");
    state.FloorNoiseR = line(kNoiseRight).value_or("xx");
    state.FloorSepL = shortText(floorWhole(value(kSeparationLeft)));
    state.FloorSepR = shortText(floorWhole(value(kSeparationRight)));
    state.FloorThd = shortText(value(kDistortion) * 100);
}

}  // namespace hmonitor
