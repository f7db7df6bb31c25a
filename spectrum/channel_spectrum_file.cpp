// SPDX-License-Identifier: GPL-3.0-or-later
#include "spectrum/channel_spectrum_file.h"

#include <algorithm>
#include <cstdint>

#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

Int16 wholeOf(std::string_view text) {
    return toWhole(valueOf(text));
}

}  // namespace

Int16 ChannelSpectrum::stepKhz() const {
    return wholeOf(step);
}

Int16 ChannelSpectrum::value(int i) const {
    return wholeOf(values[static_cast<std::size_t>(i - 1)]);
}

ChannelSpectrum ChannelSpectrum::parse(std::string_view bytes) {
    TextLines lines(bytes);
    ChannelSpectrum spectrum;
    spectrum.points = std::clamp(int{wholeOf(lines.next().value_or(""))}, 0, kMostPoints);
    spectrum.step = lines.next().value_or("");
    spectrum.beforeFirstMhz = valueOf(lines.next().value_or(""));
    for (int i = 0; i < spectrum.points; ++i) {
        const std::string_view line = lines.next().value_or("");
        if (line.empty()) break;
        spectrum.values.push_back(line);
    }
    return spectrum;
}

std::string ChannelSpectrum::text() const {
    std::vector<std::string> lines{wholeText(static_cast<std::int64_t>(values.size())).str(),
                                   step.str(), shortText(beforeFirstMhz).str()};
    for (const SmallText& value : values) lines.push_back(value.str());
    lines.emplace_back();
    return joinLines(lines);
}

SmallText ChannelSpectrum::fileName(double frequency) {
    return frequencyFileName(frequency, ".spc");
}

FileResult<ChannelSpectrum> ChannelSpectrum::read(const Files& files, double frequency) {
    const FileResult<std::string> bytes = files.read(fileName(frequency));
    if (!bytes) return bytes.fault();
    return parse(*bytes);
}

std::optional<FileFault> ChannelSpectrum::write(const Files& files, double frequency) const {
    return files.rewrite(fileName(frequency), text());
}

}  // namespace hmonitor
