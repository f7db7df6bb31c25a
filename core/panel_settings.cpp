// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/panel_settings.h"

#include <cassert>
#include <utility>

#include "core/numbers.h"
#include "core/text_lines.h"

namespace hmonitor {

namespace {

constexpr PanelLine kLastLine = PanelLine::ScannerOffset;

std::size_t indexOf(PanelLine which) {
    return static_cast<std::size_t>(which) - 1;
}

}  // namespace

FileResult<PanelSettings> PanelSettings::read(const Files& files, PanelLine last) {
    auto lines = files.readLines(kFileName, static_cast<int>(last));
    if (!lines) return lines.fault();
    return PanelSettings(std::move(*lines));
}

std::string_view PanelSettings::line(PanelLine which) const {
    return indexOf(which) < lines_.size() ? std::string_view(lines_[indexOf(which)]) : "";
}

double PanelSettings::value(PanelLine which) const {
    return valueOf(line(which));
}

PanelSettings PanelSettings::with(PanelLine which, std::string_view text) const {
    PanelSettings changed = *this;
    if (indexOf(which) < lines_.size()) changed.lines_[indexOf(which)] = text;
    return changed;
}

std::optional<FileFault> PanelSettings::write(const Files& files) const {
    assert(lines_.size() == static_cast<std::size_t>(kLastLine));
    return files.rewrite(kFileName, joinLines(lines_));
}

std::optional<FileFault> rewritePanelLine(const Files& files, PanelLine which,
                                          std::string_view text) {
    const auto settings = PanelSettings::read(files, kLastLine);
    if (!settings) return settings.fault();
    return settings->with(which, text).write(files);
}

}  // namespace hmonitor
